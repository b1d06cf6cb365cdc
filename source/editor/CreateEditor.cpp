// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The processor's editor, made here so that the engine needs to know nothing of windows.

#include "WideLoomAudioProcessorEditor.h"

#include "engine/WideLoomAudioProcessor.h"

juce::AudioProcessorEditor* WideLoomAudioProcessor::createEditor()
{
    return std::make_unique<WideLoomAudioProcessorEditor> (this).release();
}
