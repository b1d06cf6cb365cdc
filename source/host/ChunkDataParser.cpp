// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Keeps the list, writes it as a body, reads it from one, and finds values by their names.

#include "ChunkDataParser.h"

#include "ChunkEntryReader.h"
#include "ChunkFormat.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstring>
#include <limits>
#include <stdexcept>
#include <string_view>
#include <utility>

namespace
{
constexpr std::int32_t notFound = -1;
constexpr std::int64_t maxBodyBytes = std::numeric_limits<std::int32_t>::max() - ficChunkHeaderSize;

std::string_view textOf (const char* text) noexcept
{
    return text == nullptr ? std::string_view() : text;
}

std::int64_t nameFieldBytes (std::string_view name) noexcept
{
    return ChunkFormat::padded (ChunkFormat::prefixBytes + std::ssize (name) + 1);
}
} // namespace

void ChunkDataParser::Clear() noexcept
{
    lastFoundIndex = notFound;
    chunkVersion = -1;
    names.clear();
    values.clear();
    types.clear();
}

void ChunkDataParser::AddInt32 (const char* name, std::int32_t value)
{
    append (std::string (textOf (name)),
            static_cast<std::uint64_t> (std::int64_t { value }),
            ChunkDataParserDefs::LONG_TYPE);
}

void ChunkDataParser::AddDouble (const char* name, double value)
{
    append (
        std::string (textOf (name)), std::bit_cast<std::uint64_t> (value), ChunkDataParserDefs::DOUBLE_TYPE);
}

/** Either all three lists grow or none. */
void ChunkDataParser::append (std::string name, std::uint64_t value, std::int32_t type)
{
    const auto oldLength = names.size();

    try
    {
        names.push_back (std::move (name));
        values.push_back (value);
        types.push_back (type);
    }
    catch (...)
    {
        names.resize (oldLength);
        values.resize (oldLength);
        throw;
    }
}

/** Throws std::out_of_range if the lists are not equally long. */
std::size_t ChunkDataParser::numEntries() const
{
    if (values.size() != names.size() || types.size() != names.size())
        throw std::out_of_range ("the lists of a chunk have parted");

    return names.size();
}

std::int32_t ChunkDataParser::GetChunkDataSize() const
{
    std::int64_t total = ChunkFormat::markerBytes;

    for (std::size_t i = 0, end = numEntries(); i < end; ++i)
        total += nameFieldBytes (names[i]) + ChunkFormat::kindOfType (types[i]).fieldBytes;

    return total > maxBodyBytes ? 0 : static_cast<std::int32_t> (total);
}

std::int32_t ChunkDataParser::GetChunkSize() const
{
    return GetChunkDataSize() + ficChunkHeaderSize;
}

std::int32_t ChunkDataParser::GetChunkData (SFicPlugInChunk* chunk) const
{
    if (chunk == nullptr)
        return ficSuccess;

    try
    {
        const auto size = GetChunkDataSize();
        chunk->chunkSize = size + ficChunkHeaderSize;

        if (size < 1)
            return size;

        auto* position = ChunkFormat::body (*chunk);
        std::memset (position, 0, static_cast<std::size_t> (size));
        std::memcpy (position, &ChunkFormat::marker, sizeof (ChunkFormat::marker));
        position += ChunkFormat::markerBytes;

        for (std::size_t i = 0; i < names.size(); ++i)
        {
            const auto& name = names[i];
            const auto& kind = ChunkFormat::kindOfType (types[i]);
            position[0] = static_cast<std::uint8_t> (kind.letter);
            position[1] = static_cast<std::uint8_t> (ChunkFormat::separator);
            std::copy (name.begin(), name.end(), position + ChunkFormat::prefixBytes);
            position += nameFieldBytes (name);
            ChunkFormat::writeValue (position, kind, values[i]);
            position += kind.fieldBytes;
        }

        return ficSuccess;
    }
    catch (const std::out_of_range&)
    {
        return ficChunkNameUnreadable;
    }
}

void ChunkDataParser::LoadChunk (const SFicPlugInChunk* chunk)
{
    Clear();

    if (chunk == nullptr)
        return;

    chunkVersion = chunk->version;
    const auto length = ChunkFormat::bodyLength (*chunk);

    if (length <= ChunkFormat::markerBytes)
        return;

    const auto* body = ChunkFormat::body (*chunk);

    if (std::memcmp (body, &ChunkFormat::marker, sizeof (ChunkFormat::marker)) != 0)
        return;

    for (ChunkEntryReader entry (body, length); entry.next();)
        append (std::string (entry.name()), entry.value(), entry.type());
}

std::int32_t ChunkDataParser::FindName (const std::string& name)
{
    const auto numNames = static_cast<std::int32_t> (names.size());

    if (lastFoundIndex >= numNames - 1)
        lastFoundIndex = notFound;

    for (std::int32_t step = 1; step <= numNames; ++step)
    {
        const auto index = (lastFoundIndex + step) % numNames;

        if (names[static_cast<std::size_t> (index)] == name)
            return lastFoundIndex = index;
    }

    return notFound;
}

/** The value of the next entry of that name and type, null if there is none. */
const std::uint64_t* ChunkDataParser::find (const char* name, std::int32_t type)
{
    const auto found = FindName (std::string (textOf (name)));

    if (found == notFound)
        return nullptr;

    const auto index = static_cast<std::size_t> (found);
    const bool isWanted = types.empty() || (index < types.size() && types[index] == type);
    return isWanted && index < values.size() ? &values[index] : nullptr;
}

bool ChunkDataParser::FindInt32 (const char* name, std::int32_t* value)
{
    const auto* slot = find (name, ChunkDataParserDefs::LONG_TYPE);

    if (slot != nullptr && value != nullptr)
        *value = static_cast<std::int32_t> (*slot);

    return slot != nullptr;
}

bool ChunkDataParser::FindDouble (const char* name, double* value)
{
    const auto* slot = find (name, ChunkDataParserDefs::DOUBLE_TYPE);

    if (slot != nullptr && value != nullptr)
        *value = std::bit_cast<double> (*slot);

    return slot != nullptr;
}
