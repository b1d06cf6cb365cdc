// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Discrete and on-off controls: their texts, keys and steps, and the list that owns them.

#include "support/NamedRows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <host/CDAEError.h>
#include <host/CPluginControlManager.h>
#include <host/CPluginControl_Discrete.h>
#include <host/CPluginControl_OnOff.h>
#include <host/FourCC.h>

#include <cstdint>
#include <memory>
#include <string>

namespace
{
constexpr std::int32_t bottom = longControlBottom;
constexpr std::int32_t top = longControlTop;
constexpr char untouched = '#';

constexpr std::int32_t low = -5;
constexpr std::int32_t high = 995;

std::int32_t onScale (std::int32_t value)
{
    return LongToLongControl (value, low, high);
}

std::unique_ptr<CPluginControl> discreteControl()
{
    return std::make_unique<CPluginControl_Discrete> (fourCC ("widt"), "Width\nW", low, high, 100, true);
}

std::unique_ptr<CPluginControl> onOffControl (const char* onText = nullptr,
                                              const char* offText = nullptr,
                                              std::int32_t initial = 0)
{
    return std::make_unique<CPluginControl_OnOff> (
        fourCC ("bypa"), "Master Bypass\nByp", initial, true, onText, offText);
}

struct ValueTextCase
{
    const char* name;
    std::unique_ptr<CPluginControl> (*makeControl)();
    std::int32_t maxLength, value;
    std::string text;
};

std::unique_ptr<CPluginControl> plain()
{
    return onOffControl();
}

std::unique_ptr<CPluginControl> spoken()
{
    return onOffControl ("Bypassed", "Active");
}

const ValueTextCase valueTextCases[] = {
    { "Digits", discreteControl, 31, onScale (123), "123" },
    { "DigitsThatJustFit", discreteControl, 3, onScale (123), "123" },
    { "TooManyDigits", discreteControl, 2, onScale (123), "*" },
    { "SignCounts", discreteControl, 1, onScale (-5), "*" },
    { "NoRoomForDigits", discreteControl, 0, onScale (1), "" },
    { "BottomOfTheRange", discreteControl, 31, bottom, "-5" },
    { "TopOfTheRange", discreteControl, 31, top, "995" },
    { "On", plain, 31, top, "On" },
    { "Off", plain, 31, bottom, "Off" },
    { "OnFromTheMiddleUp", plain, 31, 0, "On" },
    { "OffBelowTheMiddle", plain, 31, -1, "Off" },
    { "OffCut", plain, 2, bottom, "Of" },
    { "OnAsADigit", plain, 1, top, "1" },
    { "OffAsADigit", plain, 1, bottom, "0" },
    { "NoRoomForOn", plain, 0, top, "" },
    { "OwnOnText", spoken, 31, top, "Bypassed" },
    { "OwnOffText", spoken, 31, bottom, "Active" },
    { "OwnTextCut", spoken, 4, top, "Bypa" },
};

using ControlValueText = testing::TestWithParam<ValueTextCase>;

TEST_P (ControlValueText, EndsAtItsLengthAndAtTheLongest)
{
    const auto& row = GetParam();
    constexpr std::size_t room = 40;
    std::string out (room, untouched);
    std::string expected = out;
    expected.replace (0, row.text.size() + 1, row.text + '\0');
    expected[static_cast<std::size_t> (row.maxLength)] = '\0';

    const auto control = row.makeControl();
    control->SetValue (row.value == top ? bottom : top); // not what is asked for
    control->GetValueString (out.data(), row.maxLength, row.value);

    EXPECT_EQ (out, expected);
}

TEST_P (ControlValueText, NeedsABuffer)
{
    const auto& row = GetParam();
    std::string out (2, untouched);

    row.makeControl()->GetValueString (out.data() + 1, -1, row.value);
    row.makeControl()->GetValueString (nullptr, row.maxLength, row.value);

    EXPECT_EQ (out, std::string (2, untouched));
}

struct TypedCase
{
    const char* name;
    std::unique_ptr<CPluginControl> (*makeControl)();
    const char* text;
    std::int32_t value;
};

const TypedCase typedCases[] = {
    { "Number", discreteControl, "123", onScale (123) },
    { "NumberAmongOthers", discreteControl, " +12 dB", onScale (12) },
    { "NotANumber", discreteControl, "wide", onScale (0) },
    { "Nothing", discreteControl, "", onScale (0) },
    { "Null", discreteControl, nullptr, onScale (0) },
    { "AboveTheRange", discreteControl, "996", top },
    { "BelowTheRange", discreteControl, "-6", bottom },
    { "JustPast32Bits", discreteControl, "4294967296", top },
    { "Past64Bits", discreteControl, "-99999999999999999999", bottom },
    { "On", plain, "On", top },
    { "OnInAnyCase", plain, "oN", top },
    { "Off", plain, "Off", bottom },
    { "OnlyAPartOfOn", plain, "O", bottom },
    { "MoreThanOn", plain, "Only", bottom },
    { "OnAsADigit", plain, "1", bottom },
    { "NullIsOff", plain, nullptr, bottom },
    { "OwnOnText", spoken, "BYPASSED", top },
    { "OnIsNotTheOwnText", spoken, "On", bottom },
};

using ControlTypedText = testing::TestWithParam<TypedCase>;

TEST_P (ControlTypedText, GivesAValueOnTheScale)
{
    const auto& row = GetParam();
    EXPECT_EQ (row.makeControl()->ConvertStringToValue (row.text), row.value);
}

INSTANTIATE_ROWS (ControlValueText, valueTextCases);
INSTANTIATE_ROWS (ControlTypedText, typedCases);

std::string keysThatAreValid (CPluginControl& control)
{
    std::string keys;

    for (std::int32_t key = -300; key < 300; ++key)
        if (control.IsKeyValid (key))
            keys += static_cast<char> (key);

    return keys;
}

TEST (ControlKeys, AreThoseOfNumbersAndOfOn)
{
    EXPECT_EQ (keysThatAreValid (*discreteControl()), "\x08\x1c\x1d+-.0123456789:|");
    EXPECT_EQ (keysThatAreValid (*onOffControl()), "\x08\x1c\x1d+-.0123456789:Ono|");
}

TEST (OnOffControl, TakesBothTextsOrNeither)
{
    for (const auto& control : { onOffControl (nullptr, "Idle"), onOffControl ("Busy", nullptr) })
    {
        std::string on (3, untouched), off (4, untouched);
        control->GetValueString (on.data(), 2, top);
        control->GetValueString (off.data(), 3, bottom);
        EXPECT_STREQ (on.c_str(), "On");
        EXPECT_STREQ (off.c_str(), "Off");
    }
}

TEST (OnOffControl, CutsLongTexts)
{
    const std::string longText (300, 'x');
    const std::string kept (254, 'x');
    const auto control = onOffControl (longText.c_str(), longText.c_str());
    std::string out (400, untouched);

    control->GetValueString (out.data(), 399, top);

    EXPECT_EQ (out.c_str(), kept);
    EXPECT_EQ (control->ConvertStringToValue (kept.c_str()), top);
}

TEST (DiscreteControl, StartsAtItsDefaultAndTakesANewOne)
{
    const auto control = discreteControl();
    EXPECT_EQ (control->GetValue(), onScale (100));
    EXPECT_EQ (control->GetDefaultValue(), onScale (100));

    control->SetDefaultValue (onScale (200) + 1); // not exactly a step
    EXPECT_EQ (control->GetDefaultValue(), onScale (200));
    EXPECT_EQ (control->GetValue(), onScale (100));

    EXPECT_EQ (onOffControl (nullptr, nullptr, 1)->GetValue(), top);
    EXPECT_EQ (onOffControl (nullptr, nullptr, 5)->GetValue(), top) << "limited to the range";
}

TEST (DiscreteControl, CountsItsSteps)
{
    EXPECT_EQ (onOffControl()->GetNumSteps(), 2);
    EXPECT_EQ (discreteControl()->GetNumSteps(), 1001);
    EXPECT_EQ (CPluginControl_Discrete (0, "", bottom, top, 0, true).GetNumSteps(), top)
        << "more than 32 bits hold";
}

/** Says when it goes. */
class Mortal : public CPluginControl_OnOff
{
public:
    explicit Mortal (int& deathCount)
        : CPluginControl_OnOff (0, "", 0, true, nullptr, nullptr),
          deaths (deathCount)
    {
    }

    ~Mortal() override { ++deaths; }

private:
    int& deaths;
};

template <typename Call>
std::int32_t codeThrownBy (Call call)
{
    try
    {
        call();
        return 0;
    }
    catch (const CDAEError& error)
    {
        return error.GetErrorCode();
    }
}

TEST (ControlManager, CountsFromOneAndOwnsItsControls)
{
    int deaths = 0;
    {
        CPluginControlManager manager;
        auto* first = new Mortal (deaths);
        auto* second = new Mortal (deaths);
        manager.AddControl (first);
        manager.AddControl (second);

        EXPECT_EQ (codeThrownBy ([&] { manager.AddControl (nullptr); }), -7053);
        EXPECT_EQ (manager.GetNumControls(), 2);
        EXPECT_EQ (manager.GetControl (1), first);
        EXPECT_EQ (manager.GetControl (2), second);

        for (std::int32_t index : { 0, 3, -1, bottom, top })
        {
            EXPECT_FALSE (manager.IsValidControlIndex (index)) << index;
            EXPECT_EQ (codeThrownBy ([&] { manager.GetControl (index); }), -7300) << index;
        }

        EXPECT_EQ (deaths, 0);
    }
    EXPECT_EQ (deaths, 2);
}
} // namespace
