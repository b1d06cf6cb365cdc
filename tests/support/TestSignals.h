// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Stereo signals that make trouble, and their comparison bit by bit.

#pragma once

#include "TestSeed.h"

#include <span>
#include <string>
#include <vector>

/** Left and right, of equal length. */
struct StereoSignal
{
    std::vector<float> left, right;

    int size() const { return static_cast<int> (left.size()); }
    StereoSignal part (int start, int length) const;
};

/** A pool of long signals of every kind: noise, zeros of both signs in one or both channels, long silence,
    equal channels, values where filters snap and denormals begin, levels far over full scale, infinities and
    NaN, and all of that mixed. */
class TestSignals
{
public:
    explicit TestSignals (TestRandom& randomToUse);

    /** A piece from a random place of a random kind. */
    StereoSignal piece (int length);

private:
    TestRandom& random;
    std::vector<StereoSignal> pool;
};

/** The first difference as text; empty when both hold the same bits. One NaN is like another. */
std::string firstDifference (std::span<const float> actual, std::span<const float> expected);
std::string firstDifference (const StereoSignal& actual, const StereoSignal& expected);
