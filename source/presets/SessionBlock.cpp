// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Wraps XML text into session blocks and takes it out again.

#include "SessionBlock.h"

#include <algorithm>
#include <string_view>

namespace
{
// The block: magic and text length as little-endian 32-bit integers, the text, one 0 byte.
constexpr juce::uint32 blockMagic = 0x21324356;
constexpr std::size_t lengthOffset = 4, textOffset = 8, terminatorBytes = 1;

/** The XML text of a block; empty if it is none. */
std::string_view textInBlock (const void* data, int sizeInBytes)
{
    if (data == nullptr || sizeInBytes < static_cast<int> (textOffset + terminatorBytes))
        return {};

    const auto* bytes = static_cast<const char*> (data);
    const auto length = static_cast<juce::int32> (juce::ByteOrder::littleEndianInt (bytes + lengthOffset));

    if (juce::ByteOrder::littleEndianInt (bytes) != blockMagic || length <= 0)
        return {};

    return { bytes + textOffset,
             std::min (static_cast<std::size_t> (length),
                       static_cast<std::size_t> (sizeInBytes) - textOffset) };
}
} // namespace

GuardedXml readSessionBlock (const void* data, int sizeInBytes)
{
    constexpr auto noBlock = "it is no session block";
    const auto text = textInBlock (data, sizeInBytes);

    if (text.empty())
        return { nullptr, noBlock };

    auto parsed = parseGuardedXml (text);

    // Compared exactly: hasTagName() ignores case.
    if (parsed.element != nullptr && parsed.element->getTagName() != sessionTag)
        return { nullptr, noBlock };

    return parsed;
}

void writeSessionBlock (const juce::String& text, juce::MemoryBlock& block)
{
    const auto textBytes = text.getNumBytesAsUTF8();

    juce::MemoryOutputStream stream (block, false);
    stream.writeInt (static_cast<int> (blockMagic));
    stream.writeInt (static_cast<int> (textBytes));
    stream.write (text.toRawUTF8(), textBytes + terminatorBytes);
}
