// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Dither: what it leaves alone, what its noise is like, and that blocks do not matter.

#include "wideloom/GridAwareDither.h"

#include "support/TestAudioFiles.h"

#include <gmock/gmock.h>

#include <cmath>

namespace
{
constexpr int bits = 16;
constexpr float step = 0x1p-15f;
constexpr int topOf32 = 1 << 16;

/** Runs a signal through in blocks and gives the integers back. */
IntegerBlock dithered (const StereoSignal& signal, int blockFrames)
{
    GridAwareDither dither (bits);
    IntegerBlock result;

    for (int start = 0; start < signal.size(); start += blockFrames)
    {
        const auto part = signal.part (start, std::min (blockFrames, signal.size() - start));
        dither.process (part.left.data(), part.right.data(), part.size(), result);
    }

    dither.finish (result);

    for (auto* channel : { &result.left, &result.right })
        for (int& sample : *channel)
            sample /= topOf32;

    return result;
}

/** `numOnGrid` frames on the grid with one frame off it before and behind. */
StereoSignal gridBetweenFractions (int numOnGrid)
{
    StereoSignal signal;

    for (int i = 0; i < numOnGrid + 2; ++i)
    {
        const bool isEdge = i == 0 || i == numOnGrid + 1;
        signal.left.push_back ((static_cast<float> (i % 1000) + (isEdge ? 0.5f : 0.0f)) * step);
        signal.right.push_back (static_cast<float> (-(i % 777)) * step);
    }

    return signal;
}

int numChanged (const StereoSignal& signal, const IntegerBlock& result)
{
    int count = 0;

    for (int i = 1; i + 1 < signal.size(); ++i)
    {
        const auto at = static_cast<std::size_t> (i);
        count += static_cast<float> (result.left[at]) != signal.left[at] / step
                 || static_cast<float> (result.right[at]) != signal.right[at] / step;
    }

    return count;
}

TEST (GridAwareDither, LeavesLongRunsOnTheGridAloneAndDithersShortOnes)
{
    constexpr int shortest = GridAwareDither::shortestRun;

    for (const int numOnGrid : { shortest, shortest + 1, 3 * shortest })
        EXPECT_EQ (
            numChanged (gridBetweenFractions (numOnGrid), dithered (gridBetweenFractions (numOnGrid), 100)),
            0);

    EXPECT_GT (
        numChanged (gridBetweenFractions (shortest - 1), dithered (gridBetweenFractions (shortest - 1), 100)),
        shortest / 4);
}

TEST (GridAwareDither, LeavesAShortSignalAloneThatIsOnTheGridThroughout)
{
    for (const int length : { 1, 2, GridAwareDither::shortestRun - 1 })
    {
        auto signal = gridBetweenFractions (length);
        signal.left.front() = signal.left.back() = -1.0f;
        EXPECT_EQ (numChanged (signal, dithered (signal, 64)), 0);
        EXPECT_EQ (dithered (signal, 64).left.front(), -32768);
    }
}

TEST (GridAwareDither, DoesNotDependOnTheBlocks)
{
    auto signal = noise (5000);
    const auto onGrid = gridBetweenFractions (1500);
    signal.left.insert (signal.left.begin() + 1700, onGrid.left.begin(), onGrid.left.end());
    signal.right.insert (signal.right.begin() + 1700, onGrid.right.begin(), onGrid.right.end());
    const auto expected = dithered (signal, signal.size());
    ASSERT_EQ (static_cast<int> (expected.left.size()), signal.size());

    for (const int blockFrames : { 1, 7, 1023, 1024, 1025 })
    {
        const auto result = dithered (signal, blockFrames);
        EXPECT_EQ (result.left, expected.left) << blockFrames;
        EXPECT_EQ (result.right, expected.right) << blockFrames;
    }
}

TEST (GridAwareDither, AddsTriangularNoiseOfTwoSteps)
{
    // A constant between two steps: the mean of what comes out is the constant, the power of the error that
    // of rounding and the noise together, and the channels differ.
    constexpr int numFrames = 200000;
    constexpr double level = 100.3, expectedErrorPower = 0.25;
    const StereoSignal signal { std::vector<float> (numFrames, static_cast<float> (level) * step),
                                std::vector<float> (numFrames, static_cast<float> (level) * step) };
    const auto result = dithered (signal, 4096);
    double sum = 0.0, errorPower = 0.0, product = 0.0;

    for (std::size_t i = 0; i < numFrames; ++i)
    {
        const double left = result.left[i] - level, right = result.right[i] - level;
        ASSERT_LE (std::abs (left), 1.5);
        sum += left;
        errorPower += left * left;
        product += left * right;
    }

    // Five standard deviations of each mean over that many frames.
    EXPECT_NEAR (sum / numFrames, 0.0, 0.006);
    EXPECT_NEAR (errorPower / numFrames, expectedErrorPower, 0.004);
    EXPECT_NEAR (product / numFrames, 0.0, 0.003);
}

TEST (IntegerRounding, RoundsToNearestLimitsAndCounts)
{
    IntegerRounding rounding (bits);
    EXPECT_EQ (rounding.convert (2.5f * step) / topOf32, 2);
    EXPECT_EQ (rounding.convert (3.5f * step) / topOf32, 4);
    EXPECT_EQ (rounding.convert (-0.75f * step) / topOf32, -1);
    EXPECT_EQ (rounding.convert (-1.0f) / topOf32, -32768);
    EXPECT_EQ (rounding.getNumClipped(), 0);

    EXPECT_EQ (rounding.convert (1.0f) / topOf32, 32767);
    EXPECT_EQ (rounding.convert (-INFINITY) / topOf32, -32768);
    EXPECT_EQ (rounding.convert (NAN), 0);
    EXPECT_EQ (rounding.getNumClipped(), 3);
}
} // namespace
