// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// A way in which audio runs through the effect.

#pragma once

#include "Command.h"

#include "engine/CrzStereoVuVisuals.h"

#include <juce_audio_basics/juce_audio_basics.h>

/** Renders what it is given, without knowing where from. One thread uses it. */
class EffectPath
{
public:
    /** Peaks at the effect's own meters, linear. */
    struct MeterPeaks
    {
        CrzStereoVuVisuals input, output;
    };

    virtual ~EffectPath() = default;

    /** Comes before everything else, which needs its success. `sampleRate` in Hz; no block will be longer
       than `maxBlockFrames`. */
    virtual Problem prepare (double sampleRate, int maxBlockFrames) = 0;

    /** Takes a session block over, as a host that opens a session does. The problem says why it is none. */
    virtual Problem setState (const juce::MemoryBlock& block) = 0;

    /** The session block that a host would keep now. Empty if there is none to be had. */
    virtual juce::MemoryBlock getState() = 0;

    /** Sets a parameter of the table from the next block on. `normalised` is 0..1, and becomes the nearest
       value of a host's control. */
    virtual void setParameter (int index, float normalised) = 0;

    /** Runs 2 channels x samples through the effect, in place. */
    virtual void process (juce::AudioBuffer<float>& block) = 0;

    /** The peaks of the latest blocks. Starts them anew. */
    virtual MeterPeaks takeMeterPeaks() = 0;
};
