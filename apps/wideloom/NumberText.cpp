// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Takes only the digits, signs and points that people write, where std::from_chars takes more.

#include "NumberText.h"

#include <charconv>

std::string folded (std::string_view text)
{
    std::string result;

    for (const char c : text)
        if (! isSpace (c))
            result += toLower (c);

    return result;
}

std::optional<double> readNumber (std::string_view text) noexcept
{
    if (text.starts_with ('+') && ! text.starts_with ("+-"))
        text.remove_prefix (1);

    if (text.find_first_not_of ("-.0123456789") != std::string_view::npos)
        return {};

    double number = 0.0;
    const auto* end = text.data() + text.size();
    const auto [rest, error] = std::from_chars (text.data(), end, number, std::chars_format::fixed);

    if (error != std::errc {} || rest != end)
        return {};

    return number;
}
