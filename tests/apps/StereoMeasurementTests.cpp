// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The figures of signals whose figures are known, and the low-pass behind one of them.

#include <wideloom/StereoMeasurement.h>

#include <gmock/gmock.h>

#include <cmath>
#include <functional>
#include <limits>
#include <numbers>
#include <random>
#include <vector>

namespace
{
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double pi = std::numbers::pi;
const double halfPowerDb = 10.0 * std::log10 (0.5);

struct Stereo
{
    std::vector<float> left, right;
};

using Sample = std::function<double (int)>;

Stereo generate (int numFrames, const Sample& left, const Sample& right)
{
    Stereo signal;

    for (int i = 0; i < numFrames; ++i)
    {
        signal.left.push_back (static_cast<float> (left (i)));
        signal.right.push_back (static_cast<float> (right (i)));
    }

    return signal;
}

StereoFigures measure (const Stereo& signal, double sampleRate = 48000.0)
{
    StereoMeasurement measurement;
    measurement.prepare (sampleRate);
    measurement.add (signal.left.data(), signal.right.data(), static_cast<int> (signal.left.size()));
    return measurement.result();
}

constexpr int oneSecond = 48000;

Sample sine (double frequency, double phase = 0.0)
{
    return [=] (int i) { return std::sin (2.0 * pi * frequency * i / oneSecond + phase); };
}

double silence (int)
{
    return 0.0;
}

/** A signal of one second, and what its definition makes the figures be. */
struct SignalCase
{
    const char* name;
    Sample left, right;
    double leftPeakDb, rightPeakDb, midRmsDb, sideRmsDb;
    std::optional<double> correlation, monoSumLossDb;
};

class StereoMeasurementSignals : public testing::TestWithParam<SignalCase>
{
};

// 12 kHz at 48 kHz is sampled at 0, 1, 0, -1: every figure follows exactly.
const SignalCase signalCases[] = {
    { "DualMono", sine (12000.0), sine (12000.0), 0.0, 0.0, halfPowerDb, -infinity, 1.0, 0.0 },
    { "AntiPhase",
      sine (1000.0),
      [] (int i) { return -sine (1000.0) (i); },
      0.0,
      0.0,
      -infinity,
      halfPowerDb,
      -1.0,
      -infinity },
    { "Quadrature",
      sine (1000.0),
      sine (1000.0, pi / 2.0),
      0.0,
      0.0,
      2.0 * halfPowerDb,
      2.0 * halfPowerDb,
      0.0,
      halfPowerDb },
    { "LeftOnly",
      sine (12000.0),
      silence,
      0.0,
      -infinity,
      3.0 * halfPowerDb,
      3.0 * halfPowerDb,
      {},
      halfPowerDb },
    { "Silence", silence, silence, -infinity, -infinity, -infinity, -infinity, {}, {} },
    // L = 1, R = 1/2: mid 3/4, side 1/4; correlation 1; 2 (9/16) / (5/4) = 9/10 of the energy is left.
    { "HalfOnTheRight",
      [] (int) { return 1.0; },
      [] (int) { return 0.5; },
      0.0,
      20.0 * std::log10 (0.5),
      20.0 * std::log10 (0.75),
      20.0 * std::log10 (0.25),
      1.0,
      10.0 * std::log10 (0.9) },
    { "OverFullScale",
      [] (int) { return -2.0; },
      [] (int) { return 2.0; },
      20.0 * std::log10 (2.0),
      20.0 * std::log10 (2.0),
      -infinity,
      20.0 * std::log10 (2.0),
      -1.0,
      -infinity },
};

/** Single-precision samples carry an error of 6e-8 of full scale; a level in dB made of 48000 of them is far
    closer than this. */
constexpr double toleranceDb = 1.0e-5;

void expectFigure (double expected, double actual)
{
    if (std::isinf (expected))
        EXPECT_EQ (actual, expected);
    else
        EXPECT_NEAR (actual, expected, toleranceDb);
}

void expectFigure (std::optional<double> expected, std::optional<double> actual)
{
    ASSERT_EQ (actual.has_value(), expected.has_value());

    if (expected)
        expectFigure (*expected, *actual);
}

TEST_P (StereoMeasurementSignals, HaveTheFiguresOfTheirDefinition)
{
    const auto& row = GetParam();
    const auto figures = measure (generate (oneSecond, row.left, row.right));

    EXPECT_EQ (figures.numFrames, oneSecond);
    expectFigure (row.leftPeakDb, figures.leftPeakDb);
    expectFigure (row.rightPeakDb, figures.rightPeakDb);
    expectFigure (row.midRmsDb, figures.midRmsDb);
    expectFigure (row.sideRmsDb, figures.sideRmsDb);
    expectFigure (row.correlation, figures.correlation);
    expectFigure (row.monoSumLossDb, figures.monoSumLossDb);
}

INSTANTIATE_TEST_SUITE_P (Signals,
                          StereoMeasurementSignals,
                          testing::ValuesIn (signalCases),
                          [] (const auto& param) { return param.param.name; });

TEST (StereoMeasurement, DualMonoCorrelatesExactly)
{
    std::mt19937 random (1);
    std::uniform_real_distribution<float> values (-1.0f, 1.0f);
    const auto noise = generate (
        4096, [&] (int) { return values (random); }, silence);
    EXPECT_EQ (measure ({ noise.left, noise.left }).correlation, 1.0);
}

struct FilterCase
{
    const char* name;
    double sampleRate, frequency;
};

class StereoMeasurementSideBass : public testing::TestWithParam<FilterCase>
{
};

const FilterCase filterCases[] = {
    { "Deep", 44100.0, 30.0 },         { "BelowCorner", 44100.0, 120.0 },  { "Corner44k", 44100.0, 150.0 },
    { "Corner192k", 192000.0, 150.0 }, { "Corner8k", 8000.0, 150.0 },      { "OctaveAbove", 48000.0, 300.0 },
    { "TwoOctaves", 96000.0, 600.0 },  { "LowRateCorner", 1000.0, 150.0 }, { "LowRateAbove", 1000.0, 400.0 },
    { "LowestRate", 301.0, 100.0 },
};

TEST_P (StereoMeasurementSideBass, FollowsTheButterworthMagnitude)
{
    // The magnitude of a bilinear, prewarped Butterworth filter of order n is
    // 1 / sqrt (1 + (tan (pi f / fs) / tan (pi fc / fs))^(2 n)).
    const auto [name, sampleRate, frequency] = GetParam();
    const double ratio = std::tan (pi * frequency / sampleRate) / std::tan (pi * 150.0 / sampleRate);
    const double expectedDb = -10.0 * std::log10 (1.0 + std::pow (ratio, 8.0));

    // Impulse response, long enough that nothing of it is left; its transform is the magnitude wanted.
    ButterworthLowPass filter (sampleRate, StereoMeasurement::sideBassCornerHz);
    constexpr int length = 200000;
    double real = 0.0, imaginary = 0.0;

    for (int i = 0; i < length; ++i)
    {
        const double value = filter.process (i == 0 ? 1.0 : 0.0);
        real += value * std::cos (2.0 * pi * frequency * i / sampleRate);
        imaginary -= value * std::sin (2.0 * pi * frequency * i / sampleRate);
    }

    EXPECT_NEAR (20.0 * std::log10 (std::hypot (real, imaginary)), expectedDb, 1.0e-6);
}

INSTANTIATE_TEST_SUITE_P (Frequencies,
                          StereoMeasurementSideBass,
                          testing::ValuesIn (filterCases),
                          [] (const auto& param) { return param.param.name; });

TEST (StereoMeasurement, MeasuresTheBassOfTheSideOnly)
{
    // Ten seconds, so that the filter's settling weighs less than a hundredth of a dB.
    const auto bass = sine (60.0);
    const auto wide = measure (generate (10 * oneSecond, bass, [&] (int i) { return -bass (i); }));
    const auto centred = measure (generate (10 * oneSecond, bass, bass));
    const auto shrill = measure (generate (10 * oneSecond, sine (6000.0), silence));

    ASSERT_TRUE (wide.sideBassRmsDb && centred.sideBassRmsDb && shrill.sideBassRmsDb);
    EXPECT_NEAR (*wide.sideBassRmsDb, halfPowerDb, 0.01);
    EXPECT_EQ (*centred.sideBassRmsDb, -infinity);
    EXPECT_LT (*shrill.sideBassRmsDb, -70.0);
}

TEST (StereoMeasurement, HasNoSideBassWhereTheRateHasNoSuchBand)
{
    const auto signal = generate (100, sine (1000.0), silence);

    for (const double sampleRate : { 8.0, 299.0, 300.0 })
        EXPECT_FALSE (measure (signal, sampleRate).sideBassRmsDb.has_value()) << sampleRate;

    EXPECT_TRUE (measure (signal, 301.0).sideBassRmsDb.has_value());
}

TEST (StereoMeasurement, DoesNotDependOnTheBlocks)
{
    std::mt19937 random (2);
    std::uniform_real_distribution<float> values (-1.0f, 1.0f);
    const auto noise = generate (
        10000, [&] (int) { return values (random); }, [&] (int) { return values (random); });
    const auto whole = juce::JSON::toString (toJson (measure (noise)));

    for (const int blockSize : { 1, 7, 512, 9999 })
    {
        StereoMeasurement measurement;
        measurement.prepare (48000.0);

        for (int start = 0; start < 10000; start += blockSize)
            measurement.add (
                noise.left.data() + start, noise.right.data() + start, std::min (blockSize, 10000 - start));

        EXPECT_EQ (juce::JSON::toString (toJson (measurement.result())), whole) << blockSize;
    }
}

TEST (StereoMeasurement, KeepsSamplesThatAreNotFiniteOutOfTheFigures)
{
    auto signal = generate (oneSecond, sine (100.0), sine (100.0, 1.0));
    const auto clean = measure (signal);
    const auto insert = [&signal] (int position, float left, float right)
    {
        signal.left.insert (signal.left.begin() + position, left);
        signal.right.insert (signal.right.begin() + position, right);
    };

    const float nan = std::numeric_limits<float>::quiet_NaN();
    const float inf = std::numeric_limits<float>::infinity();
    insert (0, nan, 0.5f);
    insert (1000, 123.0f, -inf);
    insert (30000, inf, nan);

    auto figures = measure (signal);
    EXPECT_EQ (figures.numNonFiniteSamples, 4);
    EXPECT_EQ (figures.numFrames, clean.numFrames + 3);

    // All else is as if those frames had never been.
    figures.numNonFiniteSamples = 0;
    figures.numFrames = clean.numFrames;
    EXPECT_EQ (juce::JSON::toString (toJson (figures)), juce::JSON::toString (toJson (clean)));
}

TEST (StereoMeasurement, TakesAnEmptySignalAsSilence)
{
    const auto figures = measure ({});
    EXPECT_EQ (figures.leftPeakDb, -infinity);
    EXPECT_EQ (figures.midRmsDb, -infinity);
    EXPECT_FALSE (figures.correlation || figures.monoSumLossDb);
}

TEST (StereoMeasurement, StartsAnewWhenPrepared)
{
    StereoMeasurement measurement;
    const auto signal = generate (oneSecond, sine (50.0), silence);
    const auto once = measure (signal);

    for (int pass = 0; pass < 2; ++pass)
    {
        measurement.prepare (48000.0);
        measurement.add (signal.left.data(), signal.right.data(), oneSecond);
    }

    EXPECT_EQ (juce::JSON::toString (toJson (measurement.result())), juce::JSON::toString (toJson (once)));
}
} // namespace
