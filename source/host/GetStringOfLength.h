// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Texts into buffers that the host lends, in the longest form that fits.

#pragma once

#include <cstdint>
#include <string_view>

/** [any] Copies at most `maxLength` bytes of `text` and a terminator to `out`, which holds `maxLength` + 1
   bytes. Writes nothing if `out` is null or `maxLength` negative. */
void copyHostText (char* out, std::string_view text, std::int32_t maxLength) noexcept;

/** [any] As copyHostText, with a second terminator at out[maxLength], where the host looks for it. */
void copyHostTextToEnd (char* out, std::string_view text, std::int32_t maxLength) noexcept;

/** [any] Chooses from `names`, alternatives of falling length with a newline between them, the first that has
   at most `maxLength` bytes, or else the last, cut, and copies it as copyHostText does. If `names` is null,
    `maxLength` bytes of `out` are zeroed. */
void GetStringOfLength (char* out, const char* names, std::int32_t maxLength) noexcept;
