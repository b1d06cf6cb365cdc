// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Fills each block with the music that comes next, runs it through the effect, and resamples the result.

#include "LoopedProgram.h"

namespace
{
constexpr int numChannels = 2;
} // namespace

LoopedProgram::LoopedProgram (EffectPath& effect, juce::AudioBuffer<float> music, double rateOfMusic)
    : musicRate (rateOfMusic),
      loop (effect, std::move (music)),
      resampler (&loop, false, numChannels)
{
}

void LoopedProgram::prepareToPlay (int samplesPerBlock, double sampleRate)
{
    resampler.setResamplingRatio (musicRate / sampleRate);
    resampler.prepareToPlay (samplesPerBlock, sampleRate);
    isPrepared = true;
}

void LoopedProgram::releaseResources()
{
    resampler.releaseResources();
    isPrepared = false;
}

void LoopedProgram::getNextAudioBlock (const juce::AudioSourceChannelInfo& info)
{
    info.clearActiveBufferRegion();

    if (isPrepared && info.numSamples > 0)
        resampler.getNextAudioBlock (info);
}

void LoopedProgram::Loop::getNextAudioBlock (const juce::AudioSourceChannelInfo& info)
{
    for (int done = 0; done < info.numSamples;)
    {
        const int count = juce::jmin (info.numSamples - done, maxBlockFrames);
        juce::AudioBuffer<float> block (
            info.buffer->getArrayOfWritePointers(), numChannels, info.startSample + done, count);
        readMusic (block);
        effect.process (block);
        done += count;
    }
}

void LoopedProgram::Loop::readMusic (juce::AudioBuffer<float>& block)
{
    if (music.getNumSamples() == 0 || ! running.load (std::memory_order_relaxed))
        return block.clear();

    for (int done = 0; done < block.getNumSamples();)
    {
        const int count = juce::jmin (block.getNumSamples() - done, music.getNumSamples() - position);

        for (int channel = 0; channel < numChannels; ++channel)
            block.copyFrom (channel, done, music, channel, position, count);

        done += count;
        position = (position + count) % music.getNumSamples();
    }
}
