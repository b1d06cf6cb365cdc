// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Texts for the host with a length byte in front.

#pragma once

#include <cstdint>
#include <string_view>

/** The longest text that a length byte can count. */
inline constexpr std::int32_t maxPascalLength = 255;

/** [any] Writes at most `maxLength` and at most 255 bytes of `text` behind a length byte. `out` holds one
   byte more than that. Writes nothing if `out` is null. */
void copyPascalText (unsigned char* out,
                     std::string_view text,
                     std::int32_t maxLength = maxPascalLength) noexcept;

/** [any] Writes GetStringOfLength()'s choice from `names` as a Pascal string: `maxLength` bytes at most, and
   a length byte. Writes nothing if `out` is null. */
void GetPascalStringOfLength (unsigned char* out, const char* names, std::int32_t maxLength) noexcept;
