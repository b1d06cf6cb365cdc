// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// "wideloom open" where there is no display: what was typed wrongly comes before what is missing.

#include "support/ScratchFolder.h"

#include <gmock/gmock.h>

namespace
{
struct OpenRow
{
    const char *name, *arguments;
    int status;
    const char* error;
};

class OpenCommandRefusal : public testing::TestWithParam<OpenRow>
{
};

TEST_P (OpenCommandRefusal, TellsWrongUsageFromFailure)
{
    const ScratchFolder folder;
    const auto result = folder.shell ("DISPLAY=none wideloom open " + std::string (GetParam().arguments));
    EXPECT_EQ (result.status, GetParam().status);
    EXPECT_THAT (result.errors, testing::HasSubstr (GetParam().error));
}

constexpr OpenRow openRows[] = {
    { "NoSuchParameter", "--set Pam=C", 2, "--set: there is no parameter 'Pam'; did you mean Pan?" },
    { "NoSuchValue", "--set Pan=far", 2, "--set: " },
    { "EmptyPreset", "--preset ''", 2, "--preset: it is empty" },
    { "NoSuchPath", "--path x", 2, "--path: x not in {host,direct}" },
    { "NoDisplay", "--set Pan=C", 1, "needs a display" },
};

INSTANTIATE_TEST_SUITE_P (Mistakes,
                          OpenCommandRefusal,
                          testing::ValuesIn (openRows),
                          [] (const auto& row) { return std::string (row.param.name); });
} // namespace
