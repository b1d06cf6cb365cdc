// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Inflates with zlib itself, whose verdict on the checksum the stream classes hide.

#include "ZlibBody.h"

#include <zlib.h>

#include <algorithm>
#include <array>
#include <limits>

namespace
{
constexpr int highestLevel = 9;
constexpr std::size_t chunkBytes = 16 * 1024;

/** A zlib stream being read. */
class Inflater
{
public:
    explicit Inflater (std::string_view input)
        : ready (inflateInit (&state) == Z_OK)
    {
        // zlib counts its input in 32 bits; no caller reads as much.
        const auto size = std::min<std::size_t> (input.size(), std::numeric_limits<uInt>::max());
        state.next_in = reinterpret_cast<Bytef*> (const_cast<char*> (input.data()));
        state.avail_in = static_cast<uInt> (size);
    }

    ~Inflater()
    {
        if (ready)
            inflateEnd (&state);
    }

    Inflater (const Inflater&) = delete;
    Inflater& operator= (const Inflater&) = delete;

    std::optional<std::string> readAll (std::size_t maxBytes)
    {
        std::string result;

        while (ready)
        {
            state.next_out = chunk.data();
            state.avail_out = static_cast<uInt> (chunk.size());

            const int status = inflate (&state, Z_NO_FLUSH);
            result.append (reinterpret_cast<const char*> (chunk.data()), chunk.size() - state.avail_out);

            if (result.size() > maxBytes || (status != Z_OK && status != Z_STREAM_END))
                break;

            if (status == Z_STREAM_END)
                return result;
        }

        return std::nullopt;
    }

private:
    z_stream state {};
    std::array<Bytef, chunkBytes> chunk {};
    bool ready;
};
} // namespace

std::optional<std::string> inflateZlib (std::string_view stream, std::size_t maxBytes)
{
    return Inflater (stream).readAll (maxBytes);
}

juce::MemoryBlock deflateZlib (std::string_view bytes)
{
    juce::MemoryBlock result;

    {
        juce::MemoryOutputStream output (result, false);
        juce::GZIPCompressorOutputStream compressor (output, highestLevel);
        compressor.write (bytes.data(), bytes.size());
    }

    return result;
}
