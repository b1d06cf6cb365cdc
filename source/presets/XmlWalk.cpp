// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The steps of the walk.

#include "XmlWalk.h"

#include "XmlGuard.h"

#include <algorithm>
#include <charconv>
#include <cstdint>

namespace
{
constexpr auto npos = std::string_view::npos;
constexpr std::string_view whiteSpace = " \t\n\v\f\r";
constexpr auto nestedTooDeeply = "the elements are nested too deeply";

constexpr bool isWhiteSpace (char c)
{
    return whiteSpace.find (c) != npos;
}

constexpr bool startsName (char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c == ':';
}

constexpr bool continuesName (char c)
{
    return startsName (c) || (c >= '0' && c <= '9') || c == '-' || c == '.';
}

/** The letter in lower case, if it is an ASCII one. */
constexpr char lowerCase (char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char> (c - 'A' + 'a') : c;
}

/** A number in a character reference. */
bool isCharacterNumber (std::string_view digits, int base)
{
    constexpr std::uint32_t lastCharacter = 0x10FFFF, firstSurrogate = 0xD800, lastSurrogate = 0xDFFF;
    constexpr std::size_t maxDigits = 8; // The reader takes no more hexadecimal ones.

    std::uint32_t number = 0;
    const auto* end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars (digits.data(), end, number, base);

    return digits.size() <= maxDigits && error == std::errc() && stop == end && number != 0
           && number <= lastCharacter && (number < firstSurrogate || number > lastSurrogate);
}

/** What stands between "&" and ";". */
bool isKnownReference (std::string_view name)
{
    if (name.starts_with ("#x") || name.starts_with ("#X"))
        return isCharacterNumber (name.substr (2), 16);

    if (name.starts_with ('#'))
        return isCharacterNumber (name.substr (1), 10);

    for (const std::string_view known : { "amp", "quot", "apos", "lt", "gt" })
        if (std::equal (name.begin(),
                        name.end(),
                        known.begin(),
                        known.end(),
                        [] (char a, char b) { return lowerCase (a) == b; }))
            return true;

    return false;
}
} // namespace

juce::String XmlWalk::findDanger()
{
    if (walkToMarkup() && walkElements())
        refuseDeclarationsBehindTheRoot();

    return danger;
}

bool XmlWalk::refuse (const char* why)
{
    danger = why;
    return false;
}

bool XmlWalk::skipPast (std::string_view token, const char* whyNot)
{
    const auto found = text.find (token, position);

    if (found == npos)
        return refuse (whyNot);

    position = found + token.size();
    return true;
}

bool XmlWalk::skipComment()
{
    position += std::string_view ("<!--").size();
    return skipPast ("-->", "a comment is not closed");
}

void XmlWalk::skipWhiteSpaceOnly()
{
    while (isWhiteSpace (current()))
        ++position;
}

bool XmlWalk::skipGap()
{
    for (;;)
    {
        skipWhiteSpaceOnly();

        if (at ("<!--"))
        {
            if (! skipComment())
                return false;
        }
        else if (at ("<?"))
        {
            position += 2;

            if (! skipPast ("?>", "an instruction is not closed"))
                return false;
        }
        else
            return true;
    }
}

bool XmlWalk::walkToMarkup()
{
    if (! skipGap())
        return false;

    return current() == '<' || refuse ("there is no element");
}

bool XmlWalk::walkElements()
{
    int depth = 0;

    do
    {
        if (current() == '&')
        {
            if (! walkReference())
                return false;
        }
        else if (current() != '<')
        {
            position = std::min (text.find_first_of ("<&", position), text.size());

            if (atEnd())
                return refuse ("an element is not closed");
        }
        else if (at ("<!--"))
        {
            if (! skipComment())
                return false;
        }
        else if (at ("<![CDATA["))
        {
            if (! skipPast ("]]>", "a section is not closed"))
                return false;
        }
        else if (at ("<!"))
            return refuse ("it declares a document type or an entity");
        else if (at ("<?")) // The reader never gets past one between text and elements.
            return refuse ("there is an instruction inside an element");
        else if (at ("</"))
        {
            if (! skipPast (">", "an end tag is not closed"))
                return false;

            --depth;
        }
        else if (! walkStartTag (depth))
            return false;
    } while (depth > 0);

    return true;
}

bool XmlWalk::walkStartTag (int& depth)
{
    ++position;

    namesInTag.clear();

    if (! skipGap() || ! walkName ("an element has no good name"))
        return false;

    for (;;)
    {
        if (! skipGap())
            return false;

        if (at ("/>"))
        {
            position += 2;
            return depth < maxXmlDepth || refuse (nestedTooDeeply);
        }

        if (current() == '>')
        {
            ++position;
            return ++depth <= maxXmlDepth || refuse (nestedTooDeeply);
        }

        if (! walkAttribute())
            return false;
    }
}

bool XmlWalk::walkAttribute()
{
    const auto start = position;

    if (! walkName ("a tag is damaged"))
        return false;

    // A tree would read the first value, but be saved with the last.
    if (! namesInTag.insert (text.substr (start, position - start)).second)
        return refuse ("an attribute stands twice in a tag");

    if (namesInTag.size() > maxXmlAttributes)
        return refuse ("an element has too many attributes");

    if (! skipGap())
        return false;

    if (current() != '=')
        return refuse ("an attribute has no value");

    ++position;

    if (! skipGap())
        return false;

    const char quote = current();

    if (quote != '"' && quote != '\'')
        return refuse ("an attribute's value has no quotes");

    const char stops[] { quote, '&', '\0' };
    ++position;

    for (;;)
    {
        position = std::min (text.find_first_of (stops, position), text.size());

        if (atEnd())
            return refuse ("an attribute's value is not closed");

        if (current() == quote)
        {
            ++position;
            return true;
        }

        if (! walkReference())
            return false;
    }
}

bool XmlWalk::walkName (const char* whyNot)
{
    if (! startsName (current()))
        return refuse (whyNot);

    const auto start = position;

    while (continuesName (current()))
        ++position;

    names.insert (text.substr (start, position - start));
    return names.size() <= maxXmlNames || refuse ("there are too many different names");
}

bool XmlWalk::walkReference()
{
    constexpr std::size_t maxReferenceBytes = 16;

    const auto rest = text.substr (position + 1, maxReferenceBytes);
    const auto end = rest.find (';');

    if (end == npos || ! isKnownReference (rest.substr (0, end)))
        return refuse ("there is an unknown reference");

    position += 1 + end + 1;
    return ++numReferences <= maxXmlReferences || refuse ("there are too many references");
}

void XmlWalk::refuseDeclarationsBehindTheRoot()
{
    const auto rest = text.substr (position);

    if (rest.find ("<!DOCTYPE") != npos || rest.find ("<!ENTITY") != npos)
        refuse ("it declares a document type or an entity");
}
