// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Safe Bass as it is heard through the processor.

#include "support/Rendering.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace
{
using enum ParameterId;

/** A second of a sine that fades in nowhere: what the filter makes of its start is left out of the measure.
 */
StereoSignal sine (double sampleRate, double frequency, float leftLevel, float rightLevel)
{
    StereoSignal signal;

    for (int i = 0; i < static_cast<int> (sampleRate); ++i)
    {
        const auto value =
            static_cast<float> (std::sin (2.0 * std::numbers::pi * frequency * i / sampleRate));
        signal.left.push_back (leftLevel * value);
        signal.right.push_back (rightLevel * value);
    }

    return signal;
}

/** RMS of the second half of one second, in dBFS of a sine. */
double levelDb (const std::vector<float>& channel)
{
    double sum = 0.0;

    for (auto i = channel.size() / 2; i < channel.size(); ++i)
        sum += static_cast<double> (channel[i]) * static_cast<double> (channel[i]);

    return 10.0 * std::log10 (2.0 * sum / static_cast<double> (channel.size() - channel.size() / 2));
}

/** How much a side signal of this frequency is lowered. */
double sideGainDb (WideLoomAudioProcessor& processor, double sampleRate, double frequency)
{
    auto signal = sine (sampleRate, frequency, -1.0f, 1.0f);
    render (processor, signal);
    return levelDb (signal.right);
}

struct CutOffCase
{
    double sampleRate;
    float normalised;
    double hertz;
};

// Frequencies are whole numbers of hertz, so that half a second holds whole periods; the worst of them is
// 0.02 Hz beside the cut-off.
constexpr CutOffCase cutOffs[] = { { 44100.0, 1.0f, 500.0 },
                                   { 48000.0, 0.2857143f, 150.0 },
                                   { 96000.0, 0.5f, 255.0 },
                                   { 44100.0, 0.0204082f, 20.0 } };
constexpr double toleranceDb = 0.05; ///< for float coefficients at a low cut-off

/** A processor with Safe Bass on. */
std::unique_ptr<WideLoomAudioProcessor> safeBassAt (double sampleRate, float normalisedFrequency)
{
    auto processor = std::make_unique<WideLoomAudioProcessor>();
    prepare (*processor, sampleRate);
    set (*processor, safeBass, 1.0f);
    set (*processor, safeBassFreq, normalisedFrequency);
    return processor;
}

void expectCutOff (WideLoomAudioProcessor& processor, double sampleRate, double hertz)
{
    // A second-order Butterworth high-pass: -10 log10 (1 + (fc / f)^4).
    EXPECT_NEAR (sideGainDb (processor, sampleRate, hertz), -3.0103, toleranceDb) << hertz;
    EXPECT_NEAR (sideGainDb (processor, sampleRate, hertz * 0.5), -12.3045, toleranceDb) << hertz;
    EXPECT_NEAR (sideGainDb (processor, sampleRate, hertz * 10.0), 0.0, toleranceDb) << hertz;
}

/** Equal channels: the side signal is 0.0, so the side of what comes out is the filter's decay. */
StereoSignal decayOf (WideLoomAudioProcessor& processor)
{
    auto block = constantSignal (0.5f, 0.5f, 64);
    render (processor, block);
    return block;
}

void excite (WideLoomAudioProcessor& processor)
{
    auto block = constantSignal (-0.75f, 0.75f, 100);
    render (processor, block);
}
} // namespace

TEST (SafeBassFilter, LowersTheSideSignalBelowItsCutOff)
{
    for (const auto& row : cutOffs)
        expectCutOff (*safeBassAt (row.sampleRate, row.normalised), row.sampleRate, row.hertz);
}

TEST (SafeBassFilter, FollowsTheSampleRate)
{
    const auto processor = safeBassAt (44100.0, 0.5f);

    for (const double sampleRate : { 44100.0, 96000.0, 32000.0 })
    {
        prepare (*processor, sampleRate);
        expectCutOff (*processor, sampleRate, 255.0);
    }
}

TEST (SafeBassFilter, MakesTheBassOfOneChannelMono)
{
    const auto processor = safeBassAt (48000.0, 1.0f);
    auto low = sine (48000.0, 20.0, 1.0f, 0.0f);
    auto high = sine (48000.0, 8000.0, 1.0f, 0.0f);
    render (*processor, low);
    render (*processor, high);

    EXPECT_NEAR (levelDb (low.left), -6.02, 0.1);
    EXPECT_NEAR (levelDb (low.right), -6.02, 0.1);
    EXPECT_NEAR (levelDb (high.left), 0.0, 0.1);
    EXPECT_LT (levelDb (high.right), -20.0);
}

TEST (SafeBassFilter, DoesNotRunAtFrequencyZero)
{
    for (const float off : { 0.0f, -0.0f, -0.01f })
    {
        TestRandom random (testSeed());
        const auto processor = safeBassAt (48000.0, off);
        const auto input = TestSignals (random).piece (500);
        auto filtered = input, unfiltered = input;
        render (*processor, filtered);
        set (*processor, safeBass, 0.0f);
        render (*processor, unfiltered);
        EXPECT_EQ (firstDifference (filtered, unfiltered), "") << off;
    }
}

TEST (SafeBassFilter, NeedsASampleRate)
{
    const auto processor = safeBassAt (0.0, 1.0f);
    auto block = constantSignal (1.0f, 0.5f, 100);
    render (*processor, block);
    EXPECT_EQ (firstDifference (block, constantSignal (1.0f, 0.5f, 100)), "");

    prepare (*processor, 48000.0);
    expectCutOff (*processor, 48000.0, 500.0);
}

TEST (SafeBassFilter, TakesFrequenciesWhileItIsOff)
{
    const auto processor = safeBassAt (48000.0, 0.1f);
    excite (*processor);
    set (*processor, safeBass, 0.0f);
    excite (*processor);
    set (*processor, safeBassFreq, 1.0f);
    set (*processor, safeBass, 1.0f);
    expectCutOff (*processor, 48000.0, 500.0);
}

TEST (SafeBassFilter, TakesTheFrequencyOfASessionBeforeTheFirstBlockOrWithTheNextWrite)
{
    constexpr float saved = 0.2857143f; // 150 Hz
    juce::MemoryBlock session;
    safeBassAt (48000.0, saved)->getStateInformation (session);

    for (const bool hasRun : { false, true })
    {
        WideLoomAudioProcessor processor;
        prepare (processor, 48000.0);

        if (hasRun)
        {
            set (processor, safeBassFreq, 1.0f);
            excite (processor);
        }

        // Restoring only fills the table.
        processor.setStateInformation (session.getData(), static_cast<int> (session.getSize()));
        EXPECT_EQ (processor.getParameter (indexOf (safeBassFreq)), saved);
        EXPECT_EQ (processor.getParameter (indexOf (safeBass)), 1.0f);
        expectCutOff (processor, 48000.0, hasRun ? 500.0 : 150.0);

        set (processor, safeBassFreq, saved);
        expectCutOff (processor, 48000.0, 150.0);
    }
}

TEST (SafeBassFilter, KeepsItsHistoryWhileItDoesNotRun)
{
    struct Pause
    {
        const char* name;
        ParameterId id;
        float on, off;
        bool silent;
    };

    constexpr Pause pauses[] = { { "bypass", bypass, 1.0f, 0.0f, false },
                                 { "mute side", muteSide, 1.0f, 0.0f, false },
                                 { "switched off", safeBass, 0.0f, 1.0f, false },
                                 { "silence", safeBass, 1.0f, 1.0f, true } };
    const auto untouched = safeBassAt (48000.0, 0.5f);
    excite (*untouched);
    const auto expected = decayOf (*untouched);
    ASSERT_NE (expected.left, expected.right) << "a decay to look at";

    for (const auto& pause : pauses)
    {
        const auto processor = safeBassAt (48000.0, 0.5f);
        excite (*processor);
        set (*processor, pause.id, pause.on);
        auto block = pause.silent ? constantSignal (0.0f, -0.0f, 777) : constantSignal (0.7f, -0.2f, 777);
        render (*processor, block);
        set (*processor, pause.id, pause.off);
        EXPECT_EQ (firstDifference (decayOf (*processor), expected), "") << pause.name;
    }
}

TEST (SafeBassFilter, LetsItsDecayOutUnderMuteAll)
{
    const auto processor = safeBassAt (48000.0, 0.5f);
    excite (*processor);
    set (*processor, muteAll, 1.0f);
    const auto decay = decayOf (*processor);
    EXPECT_NE (decay.left.front(), 0.0f);
    EXPECT_EQ (decay.left.front(), -decay.right.front());
}

TEST (SafeBassFilter, RecoversFromNaN)
{
    const auto processor = safeBassAt (48000.0, 0.5f);
    excite (*processor);
    auto block = constantSignal (-0.5f, 0.5f, 8);
    block.left[2] = std::numeric_limits<float>::quiet_NaN();
    render (*processor, block);
    EXPECT_TRUE (std::isnan (block.left[2]));

    for (std::size_t i = 5; i < block.left.size(); ++i)
        EXPECT_TRUE (std::isfinite (block.left[i]) && std::isfinite (block.right[i])) << i;
}

TEST (SafeBassFilter, RefusesFrequenciesThatAreNone)
{
    constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
    EXPECT_FALSE (SafeBassCoefficients::make (48000.0, notANumber));
    EXPECT_FALSE (SafeBassCoefficients::make (48000.0, -0.03));
    EXPECT_FALSE (SafeBassCoefficients::make (48000.0, 50.0));
    EXPECT_FALSE (SafeBassCoefficients::make (notANumber, 0.5));
    EXPECT_TRUE (SafeBassCoefficients::make (1000.0, 1.0));
}
