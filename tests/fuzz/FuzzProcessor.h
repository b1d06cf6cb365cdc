// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The processor that a fuzz target drives, and what must hold after every input.

#pragma once

#include <engine/WideLoomAudioProcessor.h>

/** One processor for the whole run, in a home folder of its own. */
WideLoomAudioProcessor& fuzzProcessor();

/** While one lives, any assertion of JUCE ends the run. Afterwards they are those of a program that libFuzzer
   leaves without tidying up. */
class ScopedFuzzInput
{
public:
    ScopedFuzzInput() noexcept;
    ~ScopedFuzzInput();

    ScopedFuzzInput (const ScopedFuzzInput&) = delete;
    ScopedFuzzInput& operator= (const ScopedFuzzInput&) = delete;
};

/** Ends the run unless the condition holds. */
void require (bool condition, const char* what);

/** Ends the run unless all parameters are in 0..1 and the editor heights are usable. Empties the history. */
void requireSoundState();
