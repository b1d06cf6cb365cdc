// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Goes through the chunks of a WAV file, the 64-bit sizes of RF64 included.

#include "WavHeader.h"

#include <juce_core/juce_core.h>

#include <algorithm>
#include <array>
#include <cstring>

namespace
{
constexpr int chunkHeaderBytes = 8;
constexpr int firstChunkPosition = 12;
constexpr int mostChunks = 65536;

// The format chunk; positions are those of the fields in bytes.
constexpr std::size_t plainFormatBytes = 16;
constexpr std::size_t extensibleFormatBytes = 40;
constexpr std::size_t channelsAt = 2, rateAt = 4, frameBytesAt = 12, bitsAt = 14, subFormatAt = 24;
constexpr std::array<unsigned char, 14> subFormatTail { 0x00, 0x00, 0x00, 0x00, 0x10, 0x00, 0x80,
                                                        0x00, 0x00, 0xaa, 0x00, 0x38, 0x9b, 0x71 };
constexpr int tagInteger = 1, tagFloat = 3, tagExtensible = 0xfffe;

// The chunk of RF64 with the sizes that have no room elsewhere.
constexpr std::size_t sizesBytes = 28;
constexpr std::size_t dataSizeAt = 8;

/** Lengths from here on are what programs write that do not know the length yet. */
constexpr std::int64_t openLength = 0x7ffff000;
constexpr std::uint32_t lengthElsewhere = 0xffffffffu;

int get16 (const unsigned char* bytes) noexcept
{
    return juce::ByteOrder::littleEndianShort (bytes);
}

std::uint32_t get32 (const unsigned char* bytes) noexcept
{
    return juce::ByteOrder::littleEndianInt (bytes);
}

Problem readFormat (const unsigned char* bytes, std::size_t count, PcmLayout& layout)
{
    if (count < plainFormatBytes)
        return "its header is damaged: the format chunk is too short";

    int tag = get16 (bytes);

    if (tag == tagExtensible && count >= extensibleFormatBytes
        && std::equal (subFormatTail.begin(), subFormatTail.end(), bytes + subFormatAt + 2))
        tag = get16 (bytes + subFormatAt);

    if (tag != tagInteger && tag != tagFloat)
        return "it holds compressed audio (format " + std::to_string (tag)
               + "); uncompressed WAV, AIFF or FLAC is needed";

    layout.numChannels = get16 (bytes + channelsAt);
    layout.sampleRate = get32 (bytes + rateAt);
    layout.samples = { get16 (bytes + bitsAt), tag == tagFloat };

    if (auto problem = checkSamples (layout.numChannels, layout.sampleRate, layout.samples))
        return problem;

    layout.samples.bits = storedBits (layout.samples.bits);

    if (get16 (bytes + frameBytesAt) != layout.bytesPerFrame())
        return "its header is damaged: the size of a frame does not fit its channels and bits";

    return {};
}

/** Takes the data chunk, which says that it has `length` bytes from `start` on. */
Problem takeData (const ByteSource& bytes, std::int64_t start, std::int64_t length, PcmLayout& layout)
{
    const auto present = std::max<std::int64_t> (0, bytes.size() - start);
    const bool open = bytes.wasStreamed() && (length == 0 || length >= openLength);

    if (length > present && ! open)
        return truncatedText (length, present);

    layout.dataStart = start;
    layout.numFrames = (open ? present : length) / layout.bytesPerFrame();
    return {};
}
} // namespace

Problem readWavHeader (const ByteSource& bytes, PcmLayout& layout)
{
    std::int64_t position = firstChunkPosition;
    std::int64_t longDataLength = -1;
    bool hasFormat = false;

    for (int i = 0; i < mostChunks; ++i)
    {
        std::array<unsigned char, extensibleFormatBytes> body {};
        std::array<unsigned char, chunkHeaderBytes> head {};

        if (bytes.read (position, head.data(), head.size()) < head.size())
            break;

        const auto is = [&head] (const char* name) { return std::memcmp (head.data(), name, 4) == 0; };
        const auto length = get32 (head.data() + 4);
        position += chunkHeaderBytes;

        if (is ("fmt "))
        {
            const auto got = bytes.read (position, body.data(), std::min<std::size_t> (body.size(), length));

            if (auto problem = readFormat (body.data(), got, layout))
                return problem;

            hasFormat = true;
        }
        else if (is ("ds64"))
        {
            if (bytes.read (position, body.data(), sizesBytes) == sizesBytes)
                longDataLength =
                    static_cast<std::int64_t> (juce::ByteOrder::littleEndianInt64 (body.data() + dataSizeAt));
        }
        else if (is ("data"))
        {
            if (! hasFormat)
                return "its header is damaged: no format chunk stands before the audio";

            const bool isLong = length == lengthElsewhere && longDataLength >= 0;
            return takeData (bytes, position, isLong ? longDataLength : length, layout);
        }

        position += static_cast<std::int64_t> (length) + (length & 1);
    }

    return "it holds no audio, or is cut short before it; export it again";
}
