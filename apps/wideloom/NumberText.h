// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Numbers and words in text, read without regard to the locale.

#pragma once

#include <optional>
#include <string>
#include <string_view>

constexpr bool isSpace (char c) noexcept
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

/** Of ASCII letters; others stay. */
constexpr char toLower (char c) noexcept
{
    return c >= 'A' && c <= 'Z' ? static_cast<char> (c - 'A' + 'a') : c;
}

constexpr std::string_view trimmed (std::string_view text) noexcept
{
    while (! text.empty() && isSpace (text.front()))
        text.remove_prefix (1);

    while (! text.empty() && isSpace (text.back()))
        text.remove_suffix (1);

    return text;
}

/** Without white space and in lower case. */
std::string folded (std::string_view text);

/** A finite decimal number such as "-3", "+1.5" or ".5" that takes up the whole text; no exponent. */
std::optional<double> readNumber (std::string_view text) noexcept;
