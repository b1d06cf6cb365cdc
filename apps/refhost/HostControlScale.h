// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// How a host maps values of 0..1 to those of controls, which span the whole range of 32 bits.

#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace refhost
{
inline constexpr double controlSpan = 4294967295.0;
inline constexpr double lowestControlValue = std::numeric_limits<std::int32_t>::min();
inline constexpr double highestControlValue = std::numeric_limits<std::int32_t>::max();

/** The nearest control value; what is outside 0..1 becomes the nearer end, NaN the low one. */
inline std::int32_t toControlValue (float normalised)
{
    const double value = static_cast<double> (normalised) * controlSpan + lowestControlValue;
    const double limited =
        value > lowestControlValue ? std::min (value, highestControlValue) : lowestControlValue;
    return static_cast<std::int32_t> (std::nearbyint (limited)); // a tie goes to the even value
}

inline float fromControlValue (std::int32_t value)
{
    return static_cast<float> ((static_cast<double> (value) - lowestControlValue) / controlSpan);
}
} // namespace refhost
