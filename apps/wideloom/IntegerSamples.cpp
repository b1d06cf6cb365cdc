// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Rounds to the nearest step, limits to the range, and counts what was limited.

#include "IntegerSamples.h"

#include <algorithm>
#include <cmath>

namespace
{
constexpr int intBits = 32;
}

IntegerRounding::IntegerRounding (int bits) noexcept
    : scale (std::ldexp (1.0, bits - 1)),
      lowest (-scale),
      highest (scale - 1.0),
      shift (intBits - bits)
{
}

int IntegerRounding::convert (float sample, double offset) noexcept
{
    const double rounded = std::nearbyint (static_cast<double> (sample) * scale + offset);

    if (rounded >= lowest && rounded <= highest)
        return static_cast<int> (rounded) * (1 << shift);

    ++numClipped;
    return static_cast<int> (std::isnan (rounded) ? 0.0 : std::clamp (rounded, lowest, highest))
           * (1 << shift);
}

bool IntegerRounding::isOnGrid (float sample) const noexcept
{
    const double scaled = static_cast<double> (sample) * scale;
    return scaled >= lowest && scaled <= highest && scaled == std::nearbyint (scaled);
}
