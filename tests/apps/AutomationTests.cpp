// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Automation files: what is read, in which order, and what is refused.

#include "wideloom/Automation.h"

#include "engine/ParameterTable.h"
#include "support/ScratchFolder.h"

#include <gmock/gmock.h>

namespace
{
TEST (Automation, SortsByPositionAndKeepsTheOrderOfOnePosition)
{
    AutomationEvents events;
    const auto problem = readAutomation ("\xef\xbb\xbf# comment\r\n\r\nposition, name, value\r\n"
                                         "20,Pan,0.25\n0,Mono,1\n  20 , Pan ,\t0.75 \n20,StereoWidth,1e-1",
                                         "a.csv",
                                         events);
    ASSERT_FALSE (problem) << *problem;

    std::vector<std::tuple<std::int64_t, int, float>> found;

    for (const auto& event : events)
        found.emplace_back (event.position, event.setting.index, event.setting.value);

    const int pan = indexOf (ParameterId::pan);
    EXPECT_THAT (found,
                 testing::ElementsAre (std::tuple (0, indexOf (ParameterId::mono), 1.0f),
                                       std::tuple (20, pan, 0.25f),
                                       std::tuple (20, pan, 0.75f),
                                       std::tuple (20, indexOf (ParameterId::stereoWidth), 0.1f)));
}

struct RefusedRow
{
    const char* name;
    const char* text;
    const char* hint;
};

class AutomationRefused : public testing::TestWithParam<RefusedRow>
{
};

TEST_P (AutomationRefused, NamesFileLineAndWhatWouldBeRight)
{
    AutomationEvents events;
    const auto problem = readAutomation (std::string ("0,Pan,0.5\n\n") + GetParam().text, "a.csv", events);
    ASSERT_TRUE (problem);
    EXPECT_THAT (*problem, testing::StartsWith ("'a.csv', line 3: "));
    EXPECT_THAT (*problem, testing::HasSubstr (GetParam().hint));
}

constexpr RefusedRow refusedRows[] = {
    { "twoFields", "10,Pan", "position,name,value" },
    { "fourFields", "10,Pan,0.5,1", "position,name,value" },
    { "headingTooLate", "position,name,value", "'position' is no sample position" },
    { "negativePosition", "-1,Pan,0.5", "whole number from 0" },
    { "fractionalPosition", "1.5,Pan,0.5", "whole number from 0" },
    { "emptyPosition", ",Pan,0.5", "whole number from 0" },
    { "hugePosition", "99999999999999999999,Pan,0.5", "whole number from 0" },
    { "unknownName", "10,pan,0.5", "did you mean Pan?" },
    { "valueTooHigh", "10,Pan,1.5", "from 0 to 1" },
    { "valueNotFinite", "10,Pan,nan", "from 0 to 1" },
    { "valueEmpty", "10,Pan,", "from 0 to 1" },
    { "valueAsText", "10,Pan,L30", "from 0 to 1" },
};

INSTANTIATE_TEST_SUITE_P (Rows,
                          AutomationRefused,
                          testing::ValuesIn (refusedRows),
                          [] (const auto& row) { return std::string (row.param.name); });

TEST (Automation, RefusesFilesThatCannotBeReadOrNeverEnd)
{
    const ScratchFolder folder;
    AutomationEvents events;
    EXPECT_THAT (loadAutomation (folder / "none.csv", events).value_or (""), testing::HasSubstr ("none.csv"));
    EXPECT_TRUE (loadAutomation (folder / "", events)); // a folder
    EXPECT_THAT (loadAutomation ("/dev/zero", events).value_or (""), testing::HasSubstr ("too long"));
}
} // namespace
