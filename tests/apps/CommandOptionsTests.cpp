// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// How the help of a command shows options that take one of a few words.

#include "support/ScratchFolder.h"

#include <gmock/gmock.h>

namespace
{
struct ChoiceRow
{
    const char *name, *command, *help;
};

class CommandHelp : public testing::TestWithParam<ChoiceRow>
{
};

TEST_P (CommandHelp, NamesTheChoicesOfAnOptionOnce)
{
    const ScratchFolder folder;
    const auto result = folder.shell ("wideloom " + std::string (GetParam().command) + " --help");
    EXPECT_THAT (result.output, testing::HasSubstr (GetParam().help));
    EXPECT_THAT (result.output, testing::Not (testing::HasSubstr ("{")));
}

constexpr ChoiceRow choiceRows[] = {
    { "Scheme", "picture", "--scheme dark|bright=bright " },
    { "Panel", "picture", "--panel main|save|info|resizing|warning|menu=main" },
    { "OpenPath", "open", "--path host|direct " },
    { "RenderPath", "render", "--path host|direct " },
    { "Bits", "render", "--bits 16|24|32f " },
};

INSTANTIATE_TEST_SUITE_P (Choices,
                          CommandHelp,
                          testing::ValuesIn (choiceRows),
                          [] (const auto& row) { return std::string (row.param.name); });
} // namespace
