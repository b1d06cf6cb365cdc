// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Finds runs of samples that are on the grid already, and adds noise to the others.

#include "GridAwareDither.h"

namespace
{
constexpr std::uint64_t seed = 0x57696465'4c6f6f6d;

/** A well-mixed 64-bit number for each counter value, after Steele, Lea and Flood (2014). */
std::uint64_t mixed (std::uint64_t counter) noexcept
{
    std::uint64_t z = seed + counter * 0x9e3779b97f4a7c15;
    z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9;
    z = (z ^ (z >> 27)) * 0x94d049bb133111eb;
    return z ^ (z >> 31);
}

/** Above -1 and below 1 with a triangular distribution: the difference of two even ones. */
double triangular (std::uint64_t counter) noexcept
{
    const auto bits = mixed (counter);
    const auto first = static_cast<double> (bits >> 32);
    const auto second = static_cast<double> (bits & 0xffffffff);
    return (first - second) * 0x1p-32;
}
} // namespace

GridAwareDither::GridAwareDither (int bits) noexcept
    : rounding (bits)
{
}

void GridAwareDither::process (const float* left, const float* right, int numFrames, IntegerBlock& output)
{
    for (int i = 0; i < numFrames; ++i)
    {
        const Frame frame { left[i], right[i] };

        if (! (rounding.isOnGrid (frame.left) && rounding.isOnGrid (frame.right)))
        {
            emitPending (true, output);
            emit (frame, true, output);
            runIsLong = false;
        }
        else if (runIsLong)
        {
            emit (frame, false, output);
        }
        else
        {
            pending[numPending++] = frame;

            if (numPending == pending.size())
            {
                emitPending (false, output);
                runIsLong = true;
            }
        }
    }
}

void GridAwareDither::finish (IntegerBlock& output)
{
    const bool coversAll = numEmitted == 0;
    emitPending (! coversAll, output);
}

void GridAwareDither::emit (Frame frame, bool dithered, IntegerBlock& output)
{
    const auto counter = static_cast<std::uint64_t> (numEmitted++) * 2;
    output.left.push_back (rounding.convert (frame.left, dithered ? triangular (counter) : 0.0));
    output.right.push_back (rounding.convert (frame.right, dithered ? triangular (counter + 1) : 0.0));
}

void GridAwareDither::emitPending (bool dithered, IntegerBlock& output)
{
    for (std::size_t i = 0; i < numPending; ++i)
        emit (pending[i], dithered, output);

    numPending = 0;
}
