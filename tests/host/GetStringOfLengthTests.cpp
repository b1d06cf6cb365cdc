// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Which name is written into a buffer, and that no byte beside it changes.

#include "support/NamedRows.h"

#include <gtest/gtest.h>
#include <host/GetStringOfLength.h>

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace
{
constexpr char untouched = '#';
constexpr auto bypassNames = "Master Bypass\nMastrByp\nMByp\nByp";

struct NameCase
{
    const char* name;
    const char* names;
    std::int32_t maxLength;
    std::string_view written; // all bytes that change, the terminator included
};

using namespace std::string_view_literals;

constexpr NameCase nameCases[] = {
    { "RoomForAll", bypassNames, 31, "Master Bypass\0"sv },
    { "ExactlyTheFirst", bypassNames, 13, "Master Bypass\0"sv },
    { "OneShortOfTheFirst", bypassNames, 12, "MastrByp\0"sv },
    { "Second", bypassNames, 8, "MastrByp\0"sv },
    { "Third", bypassNames, 4, "MByp\0"sv },
    { "Last", bypassNames, 3, "Byp\0"sv },
    { "LastCut", bypassNames, 2, "By\0"sv },
    { "NoRoom", bypassNames, 0, "\0"sv },
    { "NegativeLength", bypassNames, -1, ""sv },
    { "OneNameCut", "Width", 3, "Wid\0"sv },
    { "NoName", "", 3, "\0"sv },
    { "EmptyLastName", "Width\n", 3, "\0"sv },
    { "FirstThatFitsEvenIfALaterOneIsLonger", "Wi\nWid", 3, "Wi\0"sv },
    { "NullZeroesTheRoom", nullptr, 3, "\0\0\0"sv },
    { "NullWithNegativeLength", nullptr, -1, ""sv },
};

using GetStringOfLengthNames = testing::TestWithParam<NameCase>;

TEST_P (GetStringOfLengthNames, WritesThisAndNothingElse)
{
    const auto& row = GetParam();
    std::array<char, 32> out;
    out.fill (untouched);
    std::string expected (out.size(), untouched);
    expected.replace (0, row.written.size(), row.written);

    GetStringOfLength (out.data(), row.names, row.maxLength);

    EXPECT_EQ (std::string (out.data(), out.size()), expected);
    GetStringOfLength (nullptr, row.names, row.maxLength);
}

INSTANTIATE_ROWS (GetStringOfLengthNames, nameCases);
} // namespace
