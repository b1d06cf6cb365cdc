// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Runs audio through a processor of our own, with nothing between.

#pragma once

#include "EffectPath.h"

#include <juce_audio_processors/juce_audio_processors.h>

#include <memory>

class WideLoomAudioProcessor;

/** What is wrong with bytes that are to be a session block. */
Problem findSessionBlockFault (const juce::MemoryBlock& block);

/** Needs JUCE to be initialised, on the thread that makes it. */
class DirectPath : public EffectPath
{
public:
    DirectPath();
    ~DirectPath() override;

    Problem prepare (double sampleRate, int maxBlockFrames) override;
    Problem setState (const juce::MemoryBlock& block) override;
    juce::MemoryBlock getState() override;
    void setParameter (int index, float normalised) override;
    void process (juce::AudioBuffer<float>& block) override;
    MeterPeaks takeMeterPeaks() override;

    juce::AudioProcessor& getProcessor() noexcept;

private:
    std::unique_ptr<WideLoomAudioProcessor> processor;
    juce::MidiBuffer noMidi;
};
