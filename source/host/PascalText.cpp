// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Texts for the host with a length byte in front.

#include "PascalText.h"

#include "GetStringOfLength.h"

#include <algorithm>
#include <array>

void copyPascalText (unsigned char* out, std::string_view text, std::int32_t maxLength) noexcept
{
    if (out == nullptr)
        return;

    const auto room = static_cast<std::size_t> (std::clamp (maxLength, std::int32_t { 0 }, maxPascalLength));
    const auto length = std::min (text.size(), room);
    out[0] = static_cast<unsigned char> (length);
    std::copy_n (text.begin(), length, out + 1);
}

void GetPascalStringOfLength (unsigned char* out, const char* names, std::int32_t maxLength) noexcept
{
    std::array<char, maxPascalLength + 1> chosen {};
    const auto length = std::clamp (maxLength, std::int32_t { 0 }, maxPascalLength);
    GetStringOfLength (chosen.data(), names, length);
    copyPascalText (out, chosen.data(), length);
}
