// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// A few seconds of synthesised music whose stereo image has something of everything.

#pragma once

#include <juce_audio_basics/juce_audio_basics.h>

inline constexpr double demoSampleRate = 44100.0;

/** Two channels, peak at -9 dBFS. A bass with a wide phase, so that its fundamental is in the side too; a pad
    detuned between left and right; plucked notes that wander across; drums in the centre and a hi-hat beside
    it. The same samples every time. */
juce::AudioBuffer<float> makeDemoMusic();
