// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Walks XML text in step with the XML reader, to find what the reader would come to harm by.

#pragma once

#include <juce_core/juce_core.h>

#include <cstddef>
#include <string_view>
#include <unordered_set>

/** Follows the reader through the text. Each step gives false, with the danger named, where the two could
   part or the reader would come to harm. */
class XmlWalk
{
public:
    explicit XmlWalk (std::string_view textToWalk)
        : text (textToWalk)
    {
    }

    /** Empty if there is none. */
    juce::String findDanger();

private:
    /** Names the danger and gives false. */
    bool refuse (const char* why);

    bool at (std::string_view token) const { return text.substr (position).starts_with (token); }
    bool atEnd() const { return position >= text.size(); }
    char current() const { return atEnd() ? '\0' : text[position]; }

    bool skipPast (std::string_view token, const char* whyNot);
    bool skipComment();
    void skipWhiteSpaceOnly();

    /** White space with the comments and instructions that the reader counts as such outside of content. */
    bool skipGap();

    bool walkToMarkup();

    /** From the root's "<" to behind its end. */
    bool walkElements();

    bool walkStartTag (int& depth);
    bool walkAttribute();
    bool walkName (const char* whyNot);
    bool walkReference();
    void refuseDeclarationsBehindTheRoot();

    std::string_view text;
    std::size_t position = 0;
    std::unordered_set<std::string_view> names;      ///< of elements and attributes, all through the text
    std::unordered_set<std::string_view> namesInTag; ///< of the present tag's attributes
    std::size_t numReferences = 0;
    juce::String danger;
};
