// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Goes through the chunks of an AIFF file, down to the 80-bit sample rate.

#include "AiffHeader.h"

#include <juce_core/juce_core.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <limits>
#include <string_view>

namespace
{
constexpr int chunkHeaderBytes = 8;
constexpr int firstChunkPosition = 12;
constexpr int mostChunks = 65536;

// The common chunk; positions are those of the fields in bytes.
constexpr std::size_t commonBytes = 18, commonBytesWithCompression = 22;
constexpr std::size_t framesAt = 2, bitsAt = 6, rateAt = 8, compressionAt = 18;

// The sound data chunk starts with the offset of the first sample and a block size that nobody uses.
constexpr int soundHeadBytes = 8;

struct Compression
{
    std::string_view code;
    bool isFloat, bigEndian;
    int bits; ///< 0 for what the header says
};

constexpr auto compressions = std::to_array<Compression> ({
    { "NONE", false, true, 0 },
    { "twos", false, true, 0 },
    { "sowt", false, false, 0 },
    { "in24", false, true, 24 },
    { "in32", false, true, 32 },
    { "fl32", true, true, 32 },
    { "FL32", true, true, 32 },
    { "fl64", true, true, 64 },
    { "FL64", true, true, 64 },
});

int get16 (const unsigned char* bytes) noexcept
{
    return juce::ByteOrder::bigEndianShort (bytes);
}

std::uint32_t get32 (const unsigned char* bytes) noexcept
{
    return juce::ByteOrder::bigEndianInt (bytes);
}

/** The 80-bit number that AIFF keeps the rate in. */
double readExtended (const unsigned char* bytes) noexcept
{
    constexpr int exponentBias = 16383, fractionBits = 63, exponentMask = 0x7fff;
    const auto exponent = (get16 (bytes) & exponentMask) - exponentBias - fractionBits;
    return std::ldexp (static_cast<double> (juce::ByteOrder::bigEndianInt64 (bytes + 2)), exponent);
}

Problem readCommon (const unsigned char* bytes, std::size_t count, PcmLayout& layout)
{
    if (count < commonBytes)
        return "its header is damaged: the common chunk is too short";

    const std::string_view code =
        count < commonBytesWithCompression
            ? "NONE"
            : std::string_view (reinterpret_cast<const char*> (bytes + compressionAt), 4);
    const auto* known = std::find_if (
        compressions.begin(), compressions.end(), [code] (const auto& row) { return row.code == code; });

    if (known == compressions.end())
        return "it holds compressed audio; uncompressed WAV, AIFF or FLAC is needed";

    layout.numChannels = get16 (bytes);
    layout.numFrames = get32 (bytes + framesAt);
    layout.sampleRate = std::round (readExtended (bytes + rateAt));
    layout.samples = { known->bits != 0 ? known->bits : get16 (bytes + bitsAt), known->isFloat };
    layout.bigEndian = known->bigEndian;

    if (auto problem = checkSamples (layout.numChannels, layout.sampleRate, layout.samples))
        return problem;

    layout.samples.bits = storedBits (layout.samples.bits);

    if (layout.numFrames > std::numeric_limits<std::int32_t>::max())
        return "it has more frames than can be read; convert it to WAV";

    return {};
}
} // namespace

Problem readAiffHeader (const ByteSource& bytes, PcmLayout& layout)
{
    std::int64_t position = firstChunkPosition;
    std::int64_t soundEnd = 0;
    bool hasCommon = false, hasSound = false;

    for (int i = 0; i < mostChunks && ! (hasCommon && hasSound); ++i)
    {
        std::array<unsigned char, chunkHeaderBytes> head {};
        std::array<unsigned char, commonBytesWithCompression> body {};

        if (bytes.read (position, head.data(), head.size()) < head.size())
            break;

        const auto is = [&head] (const char* name) { return std::memcmp (head.data(), name, 4) == 0; };
        const auto length = get32 (head.data() + 4);
        position += chunkHeaderBytes;
        const auto got = bytes.read (position, body.data(), std::min<std::size_t> (body.size(), length));

        if (is ("COMM"))
        {
            if (auto problem = readCommon (body.data(), got, layout))
                return problem;

            hasCommon = true;
        }
        else if (is ("SSND") && got >= soundHeadBytes)
        {
            layout.dataStart = position + soundHeadBytes + get32 (body.data());
            soundEnd = position + length;
            hasSound = true;
        }

        position += static_cast<std::int64_t> (length) + (length & 1);
    }

    if (! hasCommon || (! hasSound && layout.numFrames > 0))
        return "it holds no audio, or is cut short before it; export it again";

    const auto promised = layout.dataBytes();
    const auto present = std::max<std::int64_t> (0, std::min (soundEnd, bytes.size()) - layout.dataStart);

    if (promised > present)
        return truncatedText (promised, present);

    return {};
}
