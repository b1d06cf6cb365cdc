// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// What text must be before it is walked, and what the reader makes of it then.

#include "XmlGuard.h"

#include "XmlWalk.h"

#include <utility>

namespace
{
constexpr auto npos = std::string_view::npos;
constexpr std::string_view whiteSpace = " \t\n\v\f\r";

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

    if (! juce::CharPointer_UTF8::isValidString (text.data(), static_cast<int> (text.size())))
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
