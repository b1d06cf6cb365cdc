// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// What text must be before it is walked, and what the reader makes of it then.

#include "XmlGuard.h"

#include "XmlWalk.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace
{
constexpr auto npos = std::string_view::npos;
constexpr std::string_view whiteSpace = " \t\n\v\f\r";

/** What the second byte of a character must be for its first. */
struct Utf8Row
{
    unsigned char firstLead, lastLead, firstSecond, lastSecond;
    std::size_t numBytes;
};

// What no row allows is a surrogate, lies past the last character, or takes more bytes than it needs.
constexpr Utf8Row utf8Rows[] {
    { 0xc2, 0xdf, 0x80, 0xbf, 2 }, { 0xe0, 0xe0, 0xa0, 0xbf, 3 }, { 0xe1, 0xec, 0x80, 0xbf, 3 },
    { 0xed, 0xed, 0x80, 0x9f, 3 }, { 0xee, 0xef, 0x80, 0xbf, 3 }, { 0xf0, 0xf0, 0x90, 0xbf, 4 },
    { 0xf1, 0xf3, 0x80, 0xbf, 4 }, { 0xf4, 0xf4, 0x80, 0x8f, 4 },
};

/** Not JUCE's own check, which lets longer forms pass: the reader takes such a form of "<" for "<", and the
   walk would not see it. */
bool isUtf8 (std::string_view text)
{
    constexpr unsigned char lastAscii = 0x7f, firstTrail = 0x80, lastTrail = 0xbf;

    while (! text.empty())
    {
        const auto byteAt = [text] (std::size_t i) { return static_cast<unsigned char> (text[i]); };
        const auto lead = byteAt (0);

        if (lead <= lastAscii)
        {
            text.remove_prefix (1);
            continue;
        }

        const auto* const row =
            std::find_if (std::begin (utf8Rows),
                          std::end (utf8Rows),
                          [lead] (const Utf8Row& r) { return lead >= r.firstLead && lead <= r.lastLead; });

        if (row == std::end (utf8Rows) || text.size() < row->numBytes || byteAt (1) < row->firstSecond
            || byteAt (1) > row->lastSecond)
            return false;

        for (std::size_t i = 2; i < row->numBytes; ++i)
            if (byteAt (i) < firstTrail || byteAt (i) > lastTrail)
                return false;

        text.remove_prefix (row->numBytes);
    }

    return true;
}

/** Headers may claim any encoding; the text is UTF-8, and the reader complains of other claims. */
std::string_view withoutHeaders (std::string_view text)
{
    for (;;)
    {
        const auto start = text.find_first_not_of (whiteSpace);

        if (start == npos || ! text.substr (start).starts_with ("<?xml"))
            return text;

        const auto end = text.find ("?>", start);

        if (end == npos)
            return text;

        text.remove_prefix (end + 2);
    }
}

std::string_view upToFirstZero (std::string_view text)
{
    return text.substr (0, text.find ('\0'));
}

} // namespace

juce::String findXmlDanger (std::string_view text)
{
    text = upToFirstZero (text);

    if (text.size() > maxXmlTextBytes)
        return "the text is too long";

    if (! isUtf8 (text))
        return "the text is not UTF-8";

    const auto last = text.find_last_not_of (whiteSpace);

    if (last == npos || text[last] != '>')
        return "the text is cut short";

    return XmlWalk (text).findDanger();
}

GuardedXml parseGuardedXml (std::string_view text)
{
    if (auto danger = findXmlDanger (text); danger.isNotEmpty())
        return { nullptr, danger };

    const auto body = withoutHeaders (upToFirstZero (text));
    juce::XmlDocument document (juce::String::fromUTF8 (body.data(), static_cast<int> (body.size())));
    auto element = document.getDocumentElement (false);

    if (auto error = document.getLastParseError(); error.isNotEmpty())
        return { nullptr, error };

    if (element == nullptr)
        return { nullptr, "there is no element" };

    return { std::move (element), {} };
}

juce::ValueTree treeFromXml (const juce::XmlElement& element)
{
    juce::ValueTree tree (element.getTagName());

    for (int i = 0, count = element.getNumAttributes(); i < count; ++i)
        if (const auto& name = element.getAttributeName (i); ! name.startsWith ("base64:"))
            tree.setProperty (name, element.getAttributeValue (i), nullptr);

    // Built up rather than stripped: taking texts out of an element searches for each from its start.
    for (const auto* child : element.getChildIterator())
        if (! child->isTextElement())
            tree.appendChild (treeFromXml (*child), nullptr);

    return tree;
}
