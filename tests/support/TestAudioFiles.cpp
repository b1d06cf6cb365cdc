// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Goes through the inputs and outputs of wideloom, except for headers written by hand.

#include "TestAudioFiles.h"

#include "wideloom/AudioInput.h"
#include "wideloom/AudioOutput.h"

#include <gtest/gtest.h>

#include <random>

void writeAudio (const std::string& path, const StereoSignal& signal, SampleFormat samples, double sampleRate)
{
    Problem problem;
    const auto container = containerForFileName (path).value();
    const auto output =
        AudioOutput::create (path, { container, sampleRate, samples }, { true, false }, problem);
    ASSERT_FALSE (problem) << *problem;
    problem = output->write (signal.left.data(), signal.right.data(), signal.size());
    ASSERT_FALSE (problem) << *problem;
    problem = output->finish();
    ASSERT_FALSE (problem) << *problem;
}

StereoSignal readAudio (const std::string& path)
{
    Problem problem;
    const auto input = AudioInput::open (path, problem);

    if (input == nullptr)
    {
        ADD_FAILURE() << *problem;
        return {};
    }

    const auto numFrames = static_cast<int> (input->getNumFrames());
    juce::AudioBuffer<float> audio (2, numFrames);
    EXPECT_TRUE (input->read (audio, 0, numFrames));
    const auto* left = audio.getReadPointer (0);
    const auto* right = audio.getReadPointer (1);
    return { { left, left + numFrames }, { right, right + numFrames } };
}

SampleFormat sampleFormatOf (const std::string& path)
{
    Problem problem;
    const auto input = AudioInput::open (path, problem);
    EXPECT_NE (input, nullptr) << problem.value_or ("");
    return input != nullptr ? input->getSampleFormat() : SampleFormat {};
}

void expectSame (const StereoSignal& actual, const StereoSignal& expected)
{
    ASSERT_EQ (actual.size(), expected.size());
    EXPECT_EQ (firstDifference (actual, expected), "");
}

std::string plainWav (const std::string& samples, int numChannels, int bits, int formatTag)
{
    const auto number = [] (std::size_t value, int numBytes)
    {
        std::string bytes;

        for (int i = 0; i < numBytes; ++i, value >>= 8)
            bytes += static_cast<char> (value & 0xff);

        return bytes;
    };

    constexpr std::size_t rate = 44100, formatBytes = 16, bytesBesideSamples = 36;
    const auto frameBytes = static_cast<std::size_t> (numChannels * bits / 8);
    return "RIFF" + number (bytesBesideSamples + samples.size(), 4) + "WAVEfmt " + number (formatBytes, 4)
           + number (static_cast<std::size_t> (formatTag), 2)
           + number (static_cast<std::size_t> (numChannels), 2) + number (rate, 4)
           + number (rate * frameBytes, 4) + number (frameBytes, 2)
           + number (static_cast<std::size_t> (bits), 2) + "data" + number (samples.size(), 4) + samples;
}

StereoSignal noise (int numFrames)
{
    std::mt19937 random (1); // always the same, which some tests compare by
    std::uniform_real_distribution<float> level (-0.5f, 0.5f);
    StereoSignal signal;

    for (int i = 0; i < numFrames; ++i)
    {
        signal.left.push_back (level (random));
        signal.right.push_back (level (random));
    }

    return signal;
}
