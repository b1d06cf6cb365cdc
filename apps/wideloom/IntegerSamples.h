// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Turns floats into integers of some bits.

#pragma once

#include <cstdint>
#include <vector>

/** Stereo integers, 2 channels x samples, as JUCE's writers take them: at the top of 32 bits. */
struct IntegerBlock
{
    std::vector<int> left, right;

    void clear() noexcept
    {
        left.clear();
        right.clear();
    }
};

/** Rounds to the nearest integer, a tie to the even one, and limits to what the bits can hold. A value on the
    integers' grid stays exactly what it is. */
class IntegerRounding
{
public:
    explicit IntegerRounding (int bits) noexcept;

    /** A sample, -1..1 nominal, with `offset` steps of the grid added, at the top of 32 bits. NaN gives 0. */
    int convert (float sample, double offset = 0.0) noexcept;

    /** Whether the sample is one of the integers as it is. */
    bool isOnGrid (float sample) const noexcept;

    /** Samples that had to be limited, NaN among them. */
    std::int64_t getNumClipped() const noexcept { return numClipped; }

private:
    double scale, lowest, highest;
    int shift;
    std::int64_t numClipped = 0;
};
