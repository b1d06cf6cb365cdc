// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The bytes of user preset files.

#pragma once

#include <juce_data_structures/juce_data_structures.h>

#include <cstddef>
#include <string>
#include <string_view>

/** A text header that ends with a 0 byte, then XML that ends with a 0 byte, the latter as it is or as a zlib
    stream. The header starts with a fixed text, and ends in "c" where the XML is compressed. */
namespace UserPresetFile
{
inline constexpr auto extension = ".q7p";

/** As much of a file as is looked at: room for any body that may be read, and for a very long header. */
inline constexpr std::size_t maxBytes = std::size_t { 1024 } * 1024;

/** What reading gives: a tree, or an invalid one and why. */
struct Contents
{
    juce::ValueTree tree;
    bool compressed = false;
    juce::String error;
    juce::StringArray correctedParameters; ///< whose values were limited or left out
};

/** [message] Values of the effect's own parameters come limited to 0..1, and those that are not finite
   numbers are left out. The type of the root is not looked at. */
Contents read (std::string_view bytes);

/** [message] The file's bytes. Read back, they give an equal tree unless it is too large for a file. */
juce::MemoryBlock write (const juce::ValueTree& tree, bool compressed);

/** [any] The bytes up to the first 0 byte, `maxBytes` or the end. */
std::string readHeader (juce::InputStream& stream);

/** [any] Whether a preset's name, without the extension, can be a file's: not empty, not "..", and without
    separators, control characters and what is no character in a session block or a preset. */
bool isFileName (const juce::String& name);
} // namespace UserPresetFile
