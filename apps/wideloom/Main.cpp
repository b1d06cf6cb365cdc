// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Entry point of the command-line host.

#include "CommandLine.h"
#include "FileDescriptors.h"
#include "Interruption.h"

#include <juce_events/juce_events.h>

int main (int argc, char** argv)
{
    occupyStandardStreams();
    watchForInterruption();
    const juce::ScopedJuceInitialiser_GUI juce;
    return static_cast<int> (runCommandLine (argc, argv));
}
