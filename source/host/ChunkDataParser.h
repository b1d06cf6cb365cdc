// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// A list of named values, as it travels in the host's chunks.

#pragma once

#include "HostInterface.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

/** Builds the list and writes it as a chunk's body, or reads it from one. Names may occur more than once.
    ChunkFormat.h has the bytes. */
class ChunkDataParser
{
public:
    ChunkDataParser() = default;
    ChunkDataParser (const ChunkDataParser&) = default;
    ChunkDataParser& operator= (const ChunkDataParser&) = default;
    virtual ~ChunkDataParser() = default;

    /** [host-main] */
    void Clear() noexcept;

    /** [host-main] Appends. A reader takes the first 253 bytes of a name; a longer one spoils what follows
     * it. */
    void AddInt32 (const char* name, std::int32_t value);

    /** [host-main] Appends, as AddInt32. */
    void AddDouble (const char* name, double value);

    /** [host-main] The body's length in bytes; 0 if a chunk cannot be as large as the list would make it.
       Throws std::out_of_range if the list is not whole, which only a subclass can bring about. */
    std::int32_t GetChunkDataSize() const;

    /** [host-main] As GetChunkDataSize, with the chunk's header. */
    std::int32_t GetChunkSize() const;

    /** [host-main] Writes chunkSize and the body. `chunk` has room for GetChunkSize() bytes. Returns 0 or an
       error code; nothing is written if the list is not whole. */
    std::int32_t GetChunkData (SFicPlugInChunk* chunk) const;

    /** [host-main] Reads all entries up to the first that is damaged, in place of what the list had. Trusts
       nothing of the chunk but that it has a header and as many bytes as chunkSize says. */
    void LoadChunk (const SFicPlugInChunk* chunk);

    /** [host-main] The index of the next entry of that name, counted on from the last one found and around
       the end, or -1. So a search in the order of the list takes one comparison each. */
    std::int32_t FindName (const std::string& name);

    /** [host-main] Finds the next entry of that name. False, with `value` left alone, if there is none or it
       is of another type. */
    bool FindInt32 (const char* name, std::int32_t* value);

    /** [host-main] As FindInt32. */
    bool FindDouble (const char* name, double* value);

protected:
    std::int32_t lastFoundIndex = -1;
    std::int32_t chunkVersion = -1; // of the chunk loaded last

    // One item for each entry in every list. Where `types` is empty, an entry found is of any type.
    std::vector<std::string> names;
    std::vector<std::uint64_t> values; // a double's bits, or a smaller number in the low bits
    std::vector<std::int32_t> types;

private:
    void append (std::string name, std::uint64_t value, std::int32_t type);
    std::size_t numEntries() const;
    const std::uint64_t* find (const char* name, std::int32_t type);
};
