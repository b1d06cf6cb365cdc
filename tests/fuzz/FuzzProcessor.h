// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The processor that a fuzz target drives, and what must hold after every input.

#pragma once

#include <engine/WideLoomAudioProcessor.h>

/** One processor for the whole run, in a home folder of its own. Ends the run at any assertion of JUCE. */
WideLoomAudioProcessor& fuzzProcessor();

/** Ends the run unless the condition holds. */
void require (bool condition, const char* what);

/** Ends the run unless all parameters are in 0..1 and the editor heights are usable. Empties the history. */
void requireSoundState();
