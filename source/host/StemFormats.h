// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The host's stem formats and how many channels each one means.

#pragma once

#include <cstdint>

inline constexpr std::int32_t stemFormatNone = -1;
inline constexpr std::int32_t stemFormatMono = 0;
inline constexpr std::int32_t stemFormatStereo = 1;

/** [any] Throws a CDAEError for a format that does not exist. */
std::int32_t SurroundFormatToNumChannels (std::int32_t stemFormat);

/** [any] The format that a type with this many channels announces, or stemFormatNone. */
std::int32_t stemFormatOf (std::int32_t numChannels) noexcept;
