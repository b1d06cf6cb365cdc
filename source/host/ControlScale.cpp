// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Maps integer ranges onto the scale of controls and back, by way of double precision.

#include "ControlScale.h"

#include <algorithm>
#include <cmath>

namespace
{
constexpr double bottom = longControlBottom;
constexpr double extent = static_cast<double> (longControlTop) - bottom;

/** In floating point: the extent of an integer range need not fit into its type. */
double extentOf (std::int32_t low, std::int32_t high) noexcept
{
    return static_cast<double> (high) - static_cast<double> (low);
}
} // namespace

std::int32_t LongToLongControl (std::int32_t value, std::int32_t low, std::int32_t high) noexcept
{
    if (high <= low)
        return longControlBottom;

    const double t = extentOf (low, std::clamp (value, low, high)) / extentOf (low, high);
    return static_cast<std::int32_t> (extent * t + bottom);
}

std::int32_t LongControlToNewRange (std::int32_t control, std::int32_t low, std::int32_t high) noexcept
{
    const double t = (static_cast<double> (control) - bottom) / extent;
    return static_cast<std::int32_t> (std::floor (0.5 + low + extentOf (low, high) * t));
}
