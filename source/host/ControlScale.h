// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The scale of control values: all of a signed 32-bit integer, and how integer ranges map onto it.

#pragma once

#include <cstdint>
#include <limits>

/** The bottom and the top of every control's range. */
inline constexpr std::int32_t longControlBottom = std::numeric_limits<std::int32_t>::min();
inline constexpr std::int32_t longControlTop = std::numeric_limits<std::int32_t>::max();

/** [any] Where `value`, limited to [low, high], lies on the scale. A range without extent lies at the bottom.
 */
std::int32_t LongToLongControl (std::int32_t value, std::int32_t low, std::int32_t high) noexcept;

/** [any] The number in [low, high] that is nearest to a value on the scale. */
std::int32_t LongControlToNewRange (std::int32_t control, std::int32_t low, std::int32_t high) noexcept;
