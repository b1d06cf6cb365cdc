// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Makes the plain header that stands in for the one in the file.

#include "SampleDataStream.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace
{
void writeName (juce::OutputStream& stream, const char* name)
{
    stream.write (name, 4);
}

/** As RF64, which has room for any length. */
juce::MemoryBlock wavHeader (const PcmLayout& layout)
{
    constexpr int lengthElsewhere = -1, sizesBytes = 28, formatBytes = 16, tagInteger = 1, tagFloat = 3;
    constexpr int bytesBetweenLengthAndData = 4 + 8 + sizesBytes + 8 + formatBytes + 8;
    juce::MemoryOutputStream header;

    writeName (header, "RF64");
    header.writeInt (lengthElsewhere);
    writeName (header, "WAVE");
    writeName (header, "ds64");
    header.writeInt (sizesBytes);
    header.writeInt64 (bytesBetweenLengthAndData + layout.dataBytes());
    header.writeInt64 (layout.dataBytes());
    header.writeInt64 (layout.numFrames);
    header.writeInt (0);
    writeName (header, "fmt ");
    header.writeInt (formatBytes);
    header.writeShort (layout.samples.isFloat ? tagFloat : tagInteger);
    header.writeShort (static_cast<short> (layout.numChannels));
    header.writeInt (static_cast<int> (layout.sampleRate));
    header.writeInt (static_cast<int> (layout.sampleRate) * layout.bytesPerFrame());
    header.writeShort (static_cast<short> (layout.bytesPerFrame()));
    header.writeShort (static_cast<short> (layout.samples.bits));
    writeName (header, "data");
    header.writeInt (lengthElsewhere);
    return header.getMemoryBlock();
}

/** A whole rate as AIFF's 80-bit number. */
void writeExtended (juce::OutputStream& stream, double number)
{
    constexpr int exponentBias = 16383, topBit = 63;
    const auto integer = static_cast<std::uint64_t> (number);
    const int leadingZeros = std::countl_zero (integer);

    stream.writeShortBigEndian (static_cast<short> (exponentBias + topBit - leadingZeros));
    const auto fraction = integer << leadingZeros;
    stream.writeInt64BigEndian (static_cast<juce::int64> (fraction));
}

juce::MemoryBlock aiffHeader (const PcmLayout& layout)
{
    constexpr int commonBytes = 24, soundHeadBytes = 8;
    constexpr int bytesAfterLength = 4 + 8 + commonBytes + 8 + soundHeadBytes;
    juce::MemoryOutputStream header;

    writeName (header, "FORM");
    header.writeIntBigEndian (bytesAfterLength);
    writeName (header, "AIFC");
    writeName (header, "COMM");
    header.writeIntBigEndian (commonBytes);
    header.writeShortBigEndian (static_cast<short> (layout.numChannels));
    header.writeIntBigEndian (static_cast<int> (layout.numFrames));
    header.writeShortBigEndian (static_cast<short> (layout.samples.bits));
    writeExtended (header, layout.sampleRate);
    writeName (header, layout.samples.isFloat ? "fl32" : layout.bigEndian ? "NONE" : "sowt");
    header.writeShort (0); // the compression has no name
    writeName (header, "SSND");
    header.writeIntBigEndian (static_cast<int> (soundHeadBytes + layout.dataBytes()));
    header.writeInt64 (0);
    return header.getMemoryBlock();
}
} // namespace

SampleDataStream::SampleDataStream (const ByteSource& bytesToRead,
                                    AudioContainer container,
                                    const PcmLayout& layout)
    : bytes (bytesToRead),
      header (container == AudioContainer::aiff ? aiffHeader (layout) : wavHeader (layout)),
      dataStart (layout.dataStart),
      dataBytes (layout.dataBytes())
{
}

SampleDataStream::SampleDataStream (const ByteSource& bytesToRead)
    : bytes (bytesToRead),
      dataStart (0),
      dataBytes (bytesToRead.size())
{
}

juce::int64 SampleDataStream::getTotalLength()
{
    return static_cast<juce::int64> (header.getSize()) + dataBytes;
}

bool SampleDataStream::isExhausted()
{
    return position >= getTotalLength();
}

bool SampleDataStream::setPosition (juce::int64 newPosition)
{
    position = juce::jlimit (juce::int64 { 0 }, getTotalLength(), newPosition);
    return true;
}

int SampleDataStream::read (void* destination, int numBytes)
{
    const auto headerBytes = static_cast<juce::int64> (header.getSize());
    auto* out = static_cast<char*> (destination);
    int done = 0;

    if (position < headerBytes && numBytes > 0)
    {
        done = static_cast<int> (std::min<juce::int64> (numBytes, headerBytes - position));
        std::memcpy (
            out, static_cast<const char*> (header.getData()) + position, static_cast<std::size_t> (done));
    }

    const auto dataPosition = position + done - headerBytes;
    const auto wanted = std::min<juce::int64> (numBytes - done, dataBytes - dataPosition);

    if (wanted > 0)
    {
        const auto got = bytes.read (dataStart + dataPosition, out + done, static_cast<std::size_t> (wanted));
        failed = failed || static_cast<juce::int64> (got) < wanted;
        done += static_cast<int> (got);
    }

    position += done;
    return done;
}
