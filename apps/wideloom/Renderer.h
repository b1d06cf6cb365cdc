// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Runs one input through the effect into one output.

#pragma once

#include "AudioInput.h"
#include "AudioOutput.h"
#include "Automation.h"
#include "EffectPath.h"

#include <functional>
#include <vector>

/** What is done to the audio and how. */
struct RenderSettings
{
    juce::MemoryBlock state;                  ///< session block to start from; empty for the defaults
    std::vector<ParameterSetting> parameters; ///< on top of it, in the order in which they are set
    AutomationEvents automation;
    int blockFrames = defaultBlockFrames; ///< 1..mostBlockFrames; the output does not depend on it

    static constexpr int defaultBlockFrames = 512, mostBlockFrames = 65536;
};

/** Who wants to see what goes by. Any of them may be empty. */
struct RenderObservers
{
    using Audio = std::function<void (const float* left, const float* right, int numFrames)>;

    Audio input, output; ///< before and after the effect, not yet rounded to the output's bits
    std::function<void (std::int64_t framesDone, std::int64_t numFrames)> progress;
};

/** Prepares the effect and brings it into the state in which the first frame finds it, automation aside.
   `sampleRate` in Hz. */
Problem startEffect (EffectPath& effect, double sampleRate, const RenderSettings& settings);

/** Reads, processes and writes to the end, but does not finish the output. The effect has been started.
   Applies each event of the automation at exactly its sample. Stops with a problem when the program is
   interrupted. */
Problem render (AudioInput& input,
                EffectPath& effect,
                AudioOutput& output,
                const RenderSettings& settings,
                const RenderObservers& observers);
