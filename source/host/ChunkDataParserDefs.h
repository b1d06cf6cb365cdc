// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The kinds of values that a chunk's list holds, and how each is stored.

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace ChunkDataParserDefs
{
inline constexpr std::int32_t FLOAT_TYPE = 1;
inline constexpr std::int32_t LONG_TYPE = 2;
inline constexpr std::int32_t DOUBLE_TYPE = 3;
inline constexpr std::int32_t SHORT_TYPE = 4;

/** How values of one type are stored: big-endian in the first bytes of their field, zeroes behind. */
struct ValueKind
{
    std::int32_t type;
    char letter; // stands before the value's name
    std::int32_t storedBytes;
    std::int32_t fieldBytes;
    bool isSigned; // its sign fills the 64 bits in which values are kept
};

inline constexpr auto valueKinds = std::to_array<ValueKind> ({
    { FLOAT_TYPE, 'f', 4, 4, false },
    { LONG_TYPE, 'l', 4, 4, true },
    { DOUBLE_TYPE, 'd', 8, 8, false },
    { SHORT_TYPE, 's', 2, 4, true },
});

constexpr bool isInTypeOrder()
{
    for (std::size_t i = 0; i < valueKinds.size(); ++i)
        if (valueKinds[i].type != static_cast<std::int32_t> (i + 1))
            return false;

    return true;
}

static_assert (isInTypeOrder());
} // namespace ChunkDataParserDefs
