// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Steps from entry to entry and stops at the first that is cut short or of no known type.

#include "ChunkEntryReader.h"

#include <algorithm>
#include <cstddef>

ChunkEntryReader::ChunkEntryReader (const std::uint8_t* bodyStart, std::int64_t bodyLength) noexcept
    : body (bodyStart),
      length (bodyLength)
{
}

bool ChunkEntryReader::next() noexcept
{
    if (position >= length || ! seekTerminator())
        return false;

    const auto fieldLength = std::min (terminator - position, ChunkFormat::maxNameFieldLength);

    if (fieldLength < ChunkFormat::prefixBytes)
        return false;

    const std::string_view field (reinterpret_cast<const char*> (body + position),
                                  static_cast<std::size_t> (fieldLength));
    kind = ChunkFormat::kindOfLetter (field.front());
    position += ChunkFormat::padded (fieldLength + 1);

    if (kind == nullptr || length - position < kind->fieldBytes)
        return false;

    entryName = field.substr (ChunkFormat::prefixBytes);
    valueField = body + position;
    position += kind->fieldBytes;
    return true;
}

/** Goes over the body once, also where a cut name leaves many entries before the same terminator. */
bool ChunkEntryReader::seekTerminator() noexcept
{
    terminator = std::max (terminator, position);

    while (terminator < length && body[terminator] != 0)
        ++terminator;

    return terminator < length;
}
