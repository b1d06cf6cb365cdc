// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Takes the entries of a list out of a chunk's body, one after the other.

#pragma once

#include "ChunkDataParserDefs.h"
#include "ChunkFormat.h"

#include <cstdint>
#include <string_view>

/** Reads nothing outside the body, whatever its bytes are. What the last successful next() read is there to
   ask for until the following one. */
class ChunkEntryReader
{
public:
    /** [any] The body, which must outlive the reader, starts with the marker and has `bodyLength` bytes. */
    ChunkEntryReader (const std::uint8_t* bodyStart, std::int64_t bodyLength) noexcept;

    /** [any] Reads the next entry. False at the end of the body, or of what is sound of it: at an entry that
       is cut short, has no terminator before the end of the body, or starts with an unknown letter. */
    bool next() noexcept;

    /** [any] Cut to what a reader takes of a name. Lies in the body. */
    std::string_view name() const noexcept { return entryName; }

    /** [any] One of the codes of ChunkDataParserDefs. */
    std::int32_t type() const noexcept { return kind->type; }

    /** [any] As ChunkFormat::readValue gives it. */
    std::uint64_t value() const noexcept { return ChunkFormat::readValue (valueField, *kind); }

private:
    bool seekTerminator() noexcept;

    const std::uint8_t* body;
    std::int64_t length;
    std::int64_t position = ChunkFormat::markerBytes; // of the next entry
    std::int64_t terminator = 0; // the first one from `position` on, once it is looked for

    const ChunkDataParserDefs::ValueKind* kind = nullptr;
    std::string_view entryName;
    const std::uint8_t* valueField = nullptr;
};
