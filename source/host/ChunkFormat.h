// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The bytes of a chunk: where its body lies and how a list of named values is laid out in it.

#pragma once

#include "ChunkDataParserDefs.h"
#include "HostInterface.h"

#include <cstdint>

/** The body of a list starts with a marker. Entries follow to its end: a type letter, a separator, a name
   with its terminator, zeroes up to the next position that is a multiple of four, the value. Positions count
   from the start of the body, numbers are big-endian. */
namespace ChunkFormat
{
/** The same in either byte order. */
inline constexpr std::uint32_t marker = 0x01010101;
inline constexpr std::int32_t markerBytes = 4;

inline constexpr std::int32_t alignmentBytes = 4;

inline constexpr char separator = '_';

/** The type letter and the separator. */
inline constexpr std::int32_t prefixBytes = 2;

/** As much of prefix and name as a reader takes. */
inline constexpr std::int64_t maxNameFieldLength = 255;

/** [any] What a field of so many bytes takes with its padding. */
constexpr std::int64_t padded (std::int64_t numBytes) noexcept
{
    return (numBytes + alignmentBytes - 1) / alignmentBytes * alignmentBytes;
}

/** [any] How many bytes the chunk says that its body has. Below 0 if it says that it is shorter than its
 * header. */
std::int64_t bodyLength (const SFicPlugInChunk& chunk) noexcept;

/** [any] The first byte behind the header. */
std::uint8_t* body (SFicPlugInChunk& chunk) noexcept;
const std::uint8_t* body (const SFicPlugInChunk& chunk) noexcept;

/** [any] The kind of a type code. Throws std::out_of_range if there is none. */
const ChunkDataParserDefs::ValueKind& kindOfType (std::int32_t type);

/** [any] The kind of a type letter, null if there is none. */
const ChunkDataParserDefs::ValueKind* kindOfLetter (char letter) noexcept;

/** [any] Reads a value's stored bytes. What does not fill 64 bits lies in the low ones. */
std::uint64_t readValue (const std::uint8_t* field, const ChunkDataParserDefs::ValueKind& kind) noexcept;

/** [any] Writes a value's stored bytes and nothing else of its field. */
void writeValue (std::uint8_t* field,
                 const ChunkDataParserDefs::ValueKind& kind,
                 std::uint64_t value) noexcept;
} // namespace ChunkFormat
