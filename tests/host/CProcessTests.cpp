// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// What a process answers about its controls, their texts and their steps, and about its view.

#include "host/ControlledProcess.h"
#include "host/FakeTokenHost.h"
#include "support/NamedRows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <host/CDAEError.h>
#include <host/FourCC.h>
#include <host/HostGlobals.h>
#include <host/platform/Views.h>

#include <array>
#include <cstdint>
#include <limits>
#include <memory>
#include <string>

namespace
{
using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::int32_t bottom = longControlBottom;
constexpr std::int32_t top = longControlTop;
constexpr std::int32_t garbage = 4711;
constexpr char untouched = '#';

std::unique_ptr<PlainTestControl> plainControl (const char* name = "Width", std::uint32_t id = 0)
{
    return std::make_unique<PlainTestControl> (name, id);
}

/** An operation that gives one number of a control. */
struct QuestionRow
{
    const char* name;
    std::int32_t (*ask) (CProcess&, std::int32_t control);
    std::int32_t ofControl, ofNoControl;
};

template <auto operation, typename Result = std::int32_t>
std::int32_t ask (CProcess& process, std::int32_t control)
{
    Result result { 99 };
    EXPECT_EQ ((process.*operation) (control, &result), 0);
    EXPECT_EQ ((process.*operation) (control, nullptr), 0);
    return static_cast<std::int32_t> (result);
}

std::int32_t askForKey (CProcess& process, std::int32_t control)
{
    unsigned char valid = 99;
    EXPECT_EQ (process.IsKeyValid (control, PlainTestControl::validKey, &valid), 0);
    return valid;
}

std::int32_t askForText (CProcess& process, std::int32_t control)
{
    std::int32_t value = garbage;
    EXPECT_EQ (process.ConvertStringToValue (control, PlainTestControl::knownText, &value), 0);
    return value;
}

std::int32_t askForPascalText (CProcess& process, std::int32_t control)
{
    std::array<unsigned char, 8> text {};
    text.fill (untouched);
    EXPECT_EQ (process.GetValueString (control, 4, text.data(), 5), 0);
    EXPECT_EQ (text[6], untouched);
    return text[0];
}

constexpr auto questions = std::to_array<QuestionRow> ({
    { "Value", ask<&CProcess::GetControlValue>, 12, 0 },
    { "Default", ask<&CProcess::GetControlDefaultValue>, PlainTestControl::defaultValue, 0 },
    { "Steps", ask<&CProcess::GetNumControlSteps>, PlainTestControl::numSteps, 0 },
    { "Priority", ask<&CProcess::GetControlPriority>, PlainTestControl::priority, 0 },
    { "Orientation", ask<&CProcess::GetControlOrientation>, PlainTestControl::orientation, 0 },
    { "Type", ask<&CProcess::GetControlType>, PlainTestControl::controlType, 1 },
    { "Automatable", ask<&CProcess::IsControlAutomatable, unsigned char>, 1, 0 },
    { "NameID", ask<&CProcess::GetControlNameID>, 0, 0 },
    { "Key", askForKey, 1, 0 },
    { "TypedText", askForText, 7, 0 },
    { "LengthOfText", askForPascalText, 5, 0 },
});

using CProcessQuestions = testing::TestWithParam<QuestionRow>;

TEST_P (CProcessQuestions, AreAnsweredForEveryIndex)
{
    ControlledProcess process;
    process.add (plainControl())->SetValue (12);
    EXPECT_EQ (GetParam().ask (process, 1), GetParam().ofControl);

    for (const std::int32_t index :
         { 0, -1, 2, std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max() })
        EXPECT_EQ (GetParam().ask (process, index), GetParam().ofNoControl) << index;
}

INSTANTIATE_ROWS (CProcessQuestions, questions);

TEST (CProcessControls, IgnoresChangesOfControlsThatThereAreNot)
{
    ControlledProcess process;
    process.add (plainControl())->SetValue (12);

    for (const std::int32_t index : { 0, 2, -1 })
    {
        EXPECT_EQ (process.SetControlValue (index, 5), 0);
        EXPECT_EQ (process.UpdateControlValue (index, 5), 0);
        EXPECT_EQ (process.SetControlRelative (index, 5), 0);
        EXPECT_EQ (process.SetControlDefaultValue (index, 5), 0);
    }

    EXPECT_EQ (process.valueOf (1), 12);
}

TEST (CProcessControls, GivesTheCodeOfATextThatCannotBeRead)
{
    ControlledProcess process;
    process.add (plainControl());
    std::int32_t value = garbage;
    EXPECT_EQ (process.ConvertStringToValue (1, "eight", &value), PlainTestControl::unknownTextCode);
    EXPECT_EQ (process.ConvertStringToValue (1, nullptr, &value), 0);
    EXPECT_EQ (value, 0);
}

TEST (CProcessControls, AsksForNamesWithTheirLengthAndController)
{
    ControlledProcess process;
    auto* const control = process.add (plainControl ("A name of more than thirty-one characters"));

    std::array<char, 33> name {};
    name.fill (untouched);
    EXPECT_EQ (process.GetControlName (1, name.data()), 0);
    EXPECT_STREQ (name.data(), "A name of more than thirty-one ");
    EXPECT_EQ (name[32], untouched);
    EXPECT_EQ (control->askedController, fourCC ("PcTL"));

    std::int16_t required = 99;
    EXPECT_EQ (process.GetControlNameOfLength (1, name.data(), 6, fourCC ("abcd"), &required), 0);
    EXPECT_STREQ (name.data(), "A name");
    EXPECT_EQ (control->askedController, fourCC ("abcd"));
    EXPECT_EQ (required, 0);

    EXPECT_EQ (process.GetControlName (2, name.data()), 0);
    EXPECT_STREQ (name.data(), "");
    EXPECT_EQ (process.GetControlName (1, nullptr), 0);
    EXPECT_EQ (process.GetControlNameOfLength (1, name.data(), -1, 0, nullptr), 0);
}

TEST (CProcessTexts, AreAsLongAsTheHostSays)
{
    struct Row
    {
        std::int32_t control, length;
        std::size_t written;
    };

    ControlledProcess process;
    process.add (plainControl());

    constexpr Row rows[] = { { 1, 3, 3 },     { 1, 99, 99 }, { 1, 100, 0 }, { 1, 103, 3 },
                             { 1, 250, 150 }, { 1, 0, 0 },   { 2, 9, 0 } };

    for (const auto& [control, length, written] : rows)
    {
        std::string text (300, untouched);
        EXPECT_EQ (process.MapControlValToString (control, 4, text.data(), length), 0);
        EXPECT_EQ (std::string (text.c_str()), written == 0 ? "" : std::string (written - 1, 'x') + '4')
            << length;
        EXPECT_EQ (text[written + 1], untouched);
    }

    char text = untouched;
    EXPECT_EQ (process.MapControlValToString (1, 4, &text, -1), 0);
    EXPECT_EQ (text, untouched);
}

TEST (CProcessSteps, StayOnTheScale)
{
    struct Row
    {
        std::int32_t from, delta, to;
    };

    ControlledProcess process;
    auto* const control = process.add (plainControl());
    std::int32_t numChanges = 0, expectedChanges = 0;

    constexpr Row rows[] = { { -3, 5, 2 },           { 2, -5, -3 },      { top - 1, 1, top },
                             { top - 1, 2, top },    { 1, top, top },    { bottom + 1, -1, bottom },
                             { -1, bottom, bottom }, { bottom, top, -1 } };

    for (const auto& [from, delta, to] : rows)
        for (const auto change : { &CProcess::SetControlRelative, &CProcess::UpdateControlRelative })
        {
            control->SetValue (from);
            EXPECT_EQ ((process.*change) (1, delta), 0);
            EXPECT_EQ (process.valueOf (1), to) << from << " and " << delta;
            EXPECT_EQ (process.GetNumChanges (&numChanges), 0);
            EXPECT_EQ (numChanges, ++expectedChanges);
        }
}

TEST (CProcessView, IsSetUpAndDeleted)
{
    ControlledProcess process;
    process.nextView = std::make_unique<TestView> (process.calls);
    process.Initialize();
    EXPECT_THAT (process.calls, ElementsAre ("view set up"));
    EXPECT_EQ (process.Free(), 0);
    EXPECT_THAT (process.calls, ElementsAre ("view set up", "view deleted"));
}

TEST (CProcessView, IsDeletedWhenItCannotBeSetUp)
{
    FakeTokenHost host;
    ControlledProcess process;
    process.nextView = std::make_unique<TestView> (process.calls);
    process.nextView->failsToSetUp = true;
    EXPECT_THROW (process.Initialize(), CDAEError);
    EXPECT_THAT (process.calls, ElementsAre ("view set up", "view deleted"));
    EXPECT_THAT (host.calls, IsEmpty());
}

TEST (CProcessView, IsNotMadeWhereThereAreNone)
{
    platform::setNoViews (true);
    ControlledProcess process;
    process.nextView = std::make_unique<TestView> (process.calls);
    process.Initialize();
    platform::setNoViews (false);
    EXPECT_THAT (process.calls, IsEmpty());
    EXPECT_NE (process.nextView, nullptr);

    Rect area { 1, 2, 3, 4 };
    unsigned char handled = 99;
    EXPECT_EQ (process.GetViewRect (&area), 0);
    EXPECT_EQ (process.DoKeyCommand (nullptr, &handled), 0);
    EXPECT_EQ (process.SetViewPort (1), 0);
    EXPECT_EQ (area.right + area.bottom + handled, 0);
}

TEST (CProcessView, HasSubViewsOfAllControlsThatHaveAnId)
{
    ControlledProcess process;
    process.add (plainControl ("A", 11));
    process.add (plainControl ("B", fourCC ("NONE")));
    process.add (plainControl ("C", 33));
    process.nextView = std::make_unique<TestView> (process.calls);
    auto* const view = process.nextView.get();
    process.Initialize();
    process.calls.clear();

    EXPECT_EQ (process.SetViewPort (5), 0);
    EXPECT_EQ (view->GetPort(), 5u);
    EXPECT_EQ (process.UpdateControlGraphic (3, 8), 0);
    EXPECT_EQ (process.UpdateControlGraphic (4, 8), 0);
    EXPECT_EQ (process.SetControlValue (1, 9), 0); // no token service: at once, and shown
    EXPECT_EQ (process.SetViewPort (0), 0);
    EXPECT_THAT (
        process.calls,
        ElementsAre ("attach 11", "attach 33", "update 33=8", "update 11=9", "detach 11", "detach 33"));

    process.Free();
}

TEST (CProcess, AnswersForPortsChunksAndValuesThatItKnowsNothingOf)
{
    ControlledProcess process;
    unsigned char connected = 0;
    std::uint32_t id = 0;
    std::int32_t value = garbage;
    EXPECT_EQ (process.CProcess::IsInputPortConnected (-1, &connected), 0);
    EXPECT_EQ (connected, 1);
    EXPECT_EQ (process.GetControlValueInfo (1, 1, &value), -7304);
    EXPECT_EQ (value, 0);
    EXPECT_EQ (process.CProcess::GetIndexedChunkID (1, &id), -7157);
    EXPECT_EQ (id, fourCC ("    "));
}

TEST (CProcess, IsNotTouchedAgainIfAMessageFreesIt)
{
    FakeTokenHost host;
    auto process = std::make_unique<ControlledProcess>();
    process->Initialize();
    process->runMessages = [&]
    {
        process->Free();
        process.reset();
        return false;
    };
    host.calls.clear();

    EXPECT_EQ (process->DoIdle(), 0);
    EXPECT_EQ (process, nullptr);
    EXPECT_THAT (host.calls, ElementsAre ("release name /Inst" + std::to_string (gInstanciationNum)));
}
} // namespace
