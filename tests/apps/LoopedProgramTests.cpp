// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The loop that plays while the editor is open on the desktop.

#include <engine/WideLoomAudioProcessor.h>
#include <wideloom/LoopedProgram.h>

#include <gtest/gtest.h>

#include <vector>

namespace
{
constexpr double sampleRate = 48000.0; // Hz, of music and output alike

juce::AudioBuffer<float> ramp (int numSamples)
{
    juce::AudioBuffer<float> music (2, numSamples);

    for (int i = 0; i < numSamples; ++i)
    {
        music.setSample (0, i, 0.01f * static_cast<float> (i + 1));
        music.setSample (1, i, -0.01f * static_cast<float> (i + 1));
    }

    return music;
}

/** What the program gives on the left, drawn in blocks of the given sizes. */
std::vector<float> draw (LoopedProgram& program, std::initializer_list<int> blockSizes, int numChannels = 2)
{
    std::vector<float> left;

    for (const int size : blockSizes)
    {
        constexpr int offset = 3;
        juce::AudioBuffer<float> block (numChannels, size + offset);
        program.getNextAudioBlock ({ &block, offset, size });
        left.insert (left.end(), block.getReadPointer (0) + offset, block.getReadPointer (0) + offset + size);
    }

    return left;
}

TEST (LoopedProgram, GoesRoundAndRound)
{
    WideLoomAudioProcessor processor;
    LoopedProgram program (processor, ramp (7), sampleRate);
    program.prepareToPlay (4, sampleRate);

    const auto heard = draw (program, { 1, 0, 9, 4, 30 }); // blocks longer than promised too
    const auto start = std::find (heard.begin(), heard.end(), 0.01f);
    ASSERT_NE (start, heard.end());
    EXPECT_LT (start - heard.begin(), 4); // the interpolator's own delay

    for (auto sample = start; sample != heard.end(); ++sample)
        EXPECT_FLOAT_EQ (*sample, 0.01f * static_cast<float> ((sample - start) % 7 + 1))
            << sample - heard.begin();
}

TEST (LoopedProgram, GivesTheProcessorSilenceWhileStopped)
{
    WideLoomAudioProcessor processor;
    LoopedProgram program (processor, ramp (7), sampleRate);
    program.prepareToPlay (16, sampleRate);
    draw (program, { 16 });
    EXPECT_GT (processor.getInputVuMeterVisuals().left, 0.0f);

    program.setRunning (false);
    EXPECT_EQ (draw (program, { 16 }), std::vector<float> (16, 0.0f));
    EXPECT_EQ (processor.getInputVuMeterVisuals().left, 0.0f);
}

TEST (LoopedProgram, IsSilentWithoutMusicAndBeforeItIsPrepared)
{
    WideLoomAudioProcessor processor;
    LoopedProgram program (processor, juce::AudioBuffer<float> (2, 0), sampleRate);
    EXPECT_EQ (draw (program, { 5 }), std::vector<float> (5, 0.0f));
    program.prepareToPlay (4, 44100.0);
    EXPECT_EQ (draw (program, { 5 }, 1), std::vector<float> (5, 0.0f));
    EXPECT_EQ (processor.getLastSampleRateString(), "44100 Hz");
}
} // namespace
