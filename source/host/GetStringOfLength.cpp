// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Cuts a text to a length, and picks the first of several names that fits.

#include "GetStringOfLength.h"

#include <algorithm>
#include <cstddef>

void copyHostText (char* out, std::string_view text, std::int32_t maxLength) noexcept
{
    if (out == nullptr || maxLength < 0)
        return;

    const auto fitting = text.substr (0, static_cast<std::size_t> (maxLength));
    *std::copy (fitting.begin(), fitting.end(), out) = '\0';
}

void copyHostTextToEnd (char* out, std::string_view text, std::int32_t maxLength) noexcept
{
    if (out == nullptr || maxLength < 0)
        return;

    copyHostText (out, text, maxLength);
    out[maxLength] = '\0';
}

void GetStringOfLength (char* out, const char* names, std::int32_t maxLength) noexcept
{
    if (out == nullptr || maxLength < 0)
        return;

    if (names == nullptr)
    {
        std::fill_n (out, maxLength, '\0');
        return;
    }

    constexpr char separator = '\n';
    std::string_view rest = names;
    auto end = rest.find (separator);

    while (std::min (end, rest.size()) > static_cast<std::size_t> (maxLength)
           && end != std::string_view::npos)
    {
        rest.remove_prefix (end + 1);
        end = rest.find (separator);
    }

    copyHostText (out, rest.substr (0, end), maxLength);
}
