// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Finds bodies and kinds of values, and turns values into big-endian bytes and back.

#include "ChunkFormat.h"

#include <algorithm>
#include <cstddef>

namespace
{
using ChunkDataParserDefs::ValueKind;
using ChunkDataParserDefs::valueKinds;

constexpr int bitsPerByte = 8;
constexpr int bitsPerSlot = 64;
} // namespace

std::int64_t ChunkFormat::bodyLength (const SFicPlugInChunk& chunk) noexcept
{
    return std::int64_t { chunk.chunkSize } - ficChunkHeaderSize;
}

std::uint8_t* ChunkFormat::body (SFicPlugInChunk& chunk) noexcept
{
    return reinterpret_cast<std::uint8_t*> (&chunk) + ficChunkHeaderSize;
}

const std::uint8_t* ChunkFormat::body (const SFicPlugInChunk& chunk) noexcept
{
    return reinterpret_cast<const std::uint8_t*> (&chunk) + ficChunkHeaderSize;
}

const ValueKind& ChunkFormat::kindOfType (std::int32_t type)
{
    return valueKinds.at (static_cast<std::size_t> (type) - 1);
}

const ValueKind* ChunkFormat::kindOfLetter (char letter) noexcept
{
    const auto* kind = std::find_if (valueKinds.begin(),
                                     valueKinds.end(),
                                     [letter] (const ValueKind& row) { return row.letter == letter; });
    return kind == valueKinds.end() ? nullptr : kind;
}

std::uint64_t ChunkFormat::readValue (const std::uint8_t* field, const ValueKind& kind) noexcept
{
    std::uint64_t value = 0;

    for (int i = 0; i < kind.storedBytes; ++i)
        value = (value << bitsPerByte) | field[i];

    if (! kind.isSigned)
        return value;

    const int unusedBits = bitsPerSlot - bitsPerByte * kind.storedBytes;
    return static_cast<std::uint64_t> (static_cast<std::int64_t> (value << unusedBits) >> unusedBits);
}

void ChunkFormat::writeValue (std::uint8_t* field, const ValueKind& kind, std::uint64_t value) noexcept
{
    for (int i = kind.storedBytes - 1; i >= 0; --i)
    {
        field[i] = static_cast<std::uint8_t> (value);
        value >>= bitsPerByte;
    }
}
