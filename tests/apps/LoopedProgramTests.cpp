// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The loop that plays while the editor is open on the desktop.

#include <wideloom/DirectPath.h>
#include <wideloom/LoopedProgram.h>

#include <gtest/gtest.h>

#include <vector>

namespace
{
constexpr double sampleRate = 48000.0; // Hz, of the music

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

class LoopedMusic : public testing::Test
{
protected:
    LoopedMusic() { EXPECT_EQ (effect.prepare (sampleRate, LoopedProgram::maxBlockFrames), Problem()); }

    DirectPath effect;
};

TEST_F (LoopedMusic, GoesRoundAndRound)
{
    LoopedProgram program (effect, ramp (7), sampleRate);
    program.prepareToPlay (4, sampleRate);

    const auto heard = draw (program, { 1, 0, 9, 4, 2000, 30 }); // blocks longer than promised too
    const auto start = std::find (heard.begin(), heard.end(), 0.01f);
    ASSERT_NE (start, heard.end());
    EXPECT_LT (start - heard.begin(), 4); // the interpolator's own delay

    for (auto sample = start; sample != heard.end(); ++sample)
        ASSERT_FLOAT_EQ (*sample, 0.01f * static_cast<float> ((sample - start) % 7 + 1))
            << sample - heard.begin();
}

TEST_F (LoopedMusic, GivesTheEffectSilenceWhileStopped)
{
    LoopedProgram program (effect, ramp (7), sampleRate);
    program.prepareToPlay (16, sampleRate);
    draw (program, { 16 });
    EXPECT_GT (effect.takeMeterPeaks().input.left, 0.0f);

    program.setRunning (false);
    draw (program, { 64 }); // what the interpolator had read before
    EXPECT_EQ (draw (program, { 16 }), std::vector<float> (16, 0.0f));
    EXPECT_EQ (effect.takeMeterPeaks().input.left, 0.0f);
}

TEST_F (LoopedMusic, IsSilentWithoutMusicAndWhileItIsNotPrepared)
{
    LoopedProgram silence (effect, juce::AudioBuffer<float> (2, 0), sampleRate);
    EXPECT_EQ (draw (silence, { 5 }), std::vector<float> (5, 0.0f));
    silence.prepareToPlay (4, 44100.0);
    EXPECT_EQ (draw (silence, { 5 }, 1), std::vector<float> (5, 0.0f));

    LoopedProgram program (effect, ramp (7), sampleRate);
    program.prepareToPlay (4, 44100.0);
    program.releaseResources();
    EXPECT_EQ (draw (program, { 5 }), std::vector<float> (5, 0.0f));
    EXPECT_EQ (effect.takeMeterPeaks().input.left, 0.0f);
}

/** At twice the rate the loop takes twice as many samples, and is heard as often a second. */
TEST_F (LoopedMusic, KeepsItsPaceAtAnyRate)
{
    juce::AudioBuffer<float> music (2, 100);
    music.clear();
    music.setSample (0, 0, 0.5f);
    LoopedProgram program (effect, std::move (music), sampleRate);

    for (const int times : { 1, 2 })
    {
        program.prepareToPlay (64, times * sampleRate);
        const auto heard = draw (program, { 1000 * times });
        int numPeaks = 0;

        for (size_t i = 1; i + 1 < heard.size(); ++i)
            numPeaks += heard[i] > 0.2f && heard[i] >= heard[i - 1] && heard[i] > heard[i + 1];

        EXPECT_NEAR (numPeaks, 10, 1) << times;
        program.releaseResources();
    }
}
} // namespace
