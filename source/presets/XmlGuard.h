// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Stands before the XML reader and lets through only text that it reads safely.

#pragma once

#include <juce_data_structures/juce_data_structures.h>

#include <cstddef>
#include <memory>
#include <string_view>

/** XML from outside: an element, or why there is none. */
struct GuardedXml
{
    std::unique_ptr<juce::XmlElement> element;
    juce::String error;
};

/** The longest text that is read, in bytes. */
inline constexpr std::size_t maxXmlTextBytes = std::size_t { 256 } * 1024;

/** The deepest nesting of elements that is read; the outermost element counts as 1. */
inline constexpr int maxXmlDepth = 32;

/** The most different element and attribute names that are read; the reader's time grows with their square.
 */
inline constexpr std::size_t maxXmlNames = 4096;

/** The most attributes of one element that are read; a tree is made from them in a time that grows with their
    square. */
inline constexpr std::size_t maxXmlAttributes = 512;

/** The most entity and character references that are read; for each, the reader goes through all of the value
    that it has put together so far. */
inline constexpr std::size_t maxXmlReferences = 8192;

/** [any] Why `text`, UTF-8 that ends at its first 0 byte if it has one, must not reach the XML reader; empty
   if it may. JUCE's reader hangs, overflows the stack or reads past the end for some texts, so whatever this
   lets through is walked in step with it: a construct that it would take in another way is refused. */
juce::String findXmlDanger (std::string_view text);

/** [message] Reads `text` if it is safe. The element is null whenever there is an error. */
GuardedXml parseGuardedXml (std::string_view text);

/** [message] The element as a tree. Text, which a tree cannot hold, is left out, and so are attributes that a
    tree would decode into binary data of any size that they claim. */
juce::ValueTree treeFromXml (const juce::XmlElement& element);
