// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The texts of the two states, written and read.

#include "CPluginControl_OnOff.h"

#include "GetStringOfLength.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace
{
constexpr std::int32_t off = 0;
constexpr std::int32_t on = 1;

/** What a letter of ASCII is compared as, whatever the locale. */
char lowerCase (char letter) noexcept
{
    return letter >= 'A' && letter <= 'Z' ? static_cast<char> (letter - 'A' + 'a') : letter;
}
} // namespace

CPluginControl_OnOff::CPluginControl_OnOff (std::uint32_t newId,
                                            std::string newNames,
                                            std::int32_t newDefaultValue,
                                            bool isAutomatable,
                                            const char* newOnText,
                                            const char* newOffText)
    : CPluginControl_Discrete (newId, std::move (newNames), off, on, newDefaultValue, isAutomatable)
{
    const bool given = newOnText != nullptr && newOffText != nullptr;
    copyHostText (onText.data(), given ? newOnText : "On", textBytes - 1);
    copyHostText (offText.data(), given ? newOffText : "Off", textBytes - 1);
}

void CPluginControl_OnOff::GetValueString (char* text, std::int32_t maxLength, std::int32_t valueToShow)
{
    const bool isOn = ConvertControlToDiscrete (valueToShow) == on;

    if (maxLength < 2)
        copyHostTextToEnd (text, isOn ? "1" : "0", maxLength);
    else
        copyHostTextToEnd (text, (isOn ? onText : offText).data(), maxLength);
}

bool CPluginControl_OnOff::IsKeyValid (std::int32_t key)
{
    return key == 'n' || key == 'o' || key == 'O' || CPluginControl_Discrete::IsKeyValid (key);
}

std::int32_t CPluginControl_OnOff::ConvertStringToValue (const char* text)
{
    const std::string_view given = text == nullptr ? "" : text;
    const std::string_view wanted = onText.data();
    const bool isOn = std::equal (given.begin(),
                                  given.end(),
                                  wanted.begin(),
                                  wanted.end(),
                                  [] (char a, char b) { return lowerCase (a) == lowerCase (b); });
    return ConvertDiscreteToControl (isOn ? on : off);
}
