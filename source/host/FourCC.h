// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Four-character codes.

#pragma once

#include <cstdint>

/** [any] The code that the four characters spell, the first in the most significant byte. */
constexpr std::uint32_t fourCC (const char (&text)[5])
{
    constexpr int bitsPerCharacter = 8;
    std::uint32_t code = 0;

    for (int i = 0; i < 4; ++i)
        code = (code << bitsPerCharacter) | static_cast<unsigned char> (text[i]);

    return code;
}

static_assert (fourCC ("bypa") == 0x62797061);
