// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "LoopedProgram.h"

namespace
{
constexpr int numChannels = 2;
} // namespace

LoopedProgram::LoopedProgram (juce::AudioProcessor& processorToPlay,
                              juce::AudioBuffer<float> music,
                              double rateOfMusic)
    : processor (processorToPlay),
      musicRate (rateOfMusic),
      loop (std::move (music)),
      resampler (&loop, false, numChannels)
{
}

void LoopedProgram::prepareToPlay (int samplesPerBlock, double sampleRate)
{
    const juce::ScopedLock lock (processor.getCallbackLock());
    chunk.setSize (numChannels, samplesPerBlock);
    resampler.setResamplingRatio (musicRate / sampleRate);
    resampler.prepareToPlay (samplesPerBlock, sampleRate);
    processor.setPlayConfigDetails (numChannels, numChannels, sampleRate, samplesPerBlock);
    processor.prepareToPlay (sampleRate, samplesPerBlock);
}

void LoopedProgram::releaseResources()
{
    resampler.releaseResources();
    processor.releaseResources();
}

void LoopedProgram::getNextAudioBlock (const juce::AudioSourceChannelInfo& info)
{
    info.clearActiveBufferRegion();

    for (int done = 0; done < info.numSamples && chunk.getNumSamples() > 0;)
    {
        const int count = juce::jmin (info.numSamples - done, chunk.getNumSamples());
        processChunk (count);

        for (int channel = 0; channel < juce::jmin (numChannels, info.buffer->getNumChannels()); ++channel)
            info.buffer->copyFrom (channel, info.startSample + done, chunk, channel, 0, count);

        done += count;
    }
}

void LoopedProgram::processChunk (int numSamples)
{
    const juce::AudioSourceChannelInfo whole (&chunk, 0, numSamples);

    if (isRunning())
        resampler.getNextAudioBlock (whole);
    else
        whole.clearActiveBufferRegion();

    juce::AudioBuffer<float> block (chunk.getArrayOfWritePointers(), numChannels, numSamples);
    const juce::ScopedLock lock (processor.getCallbackLock());
    processor.processBlock (block, noMidi);
}

void LoopedProgram::Loop::getNextAudioBlock (const juce::AudioSourceChannelInfo& info)
{
    if (music.getNumSamples() == 0)
    {
        info.clearActiveBufferRegion();
        return;
    }

    for (int done = 0; done < info.numSamples;)
    {
        const int count = juce::jmin (info.numSamples - done, music.getNumSamples() - position);

        for (int channel = 0; channel < numChannels; ++channel)
            info.buffer->copyFrom (channel, info.startSample + done, music, channel, position, count);

        done += count;
        position = (position + count) % music.getNumSamples();
    }
}
