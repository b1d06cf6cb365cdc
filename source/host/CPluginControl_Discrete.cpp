// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Converts between integers, control values and texts.

#include "CPluginControl_Discrete.h"

#include "GetStringOfLength.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <utility>

namespace
{
/** Brings a number into the host's 32 bits instead of letting it wrap. */
std::int32_t saturated (std::int64_t number) noexcept
{
    return static_cast<std::int32_t> (std::clamp<std::int64_t> (number, longControlBottom, longControlTop));
}

constexpr std::int32_t leftArrowKey = 28;
constexpr std::int32_t rightArrowKey = 29;
constexpr std::int32_t backspaceKey = 8;
constexpr auto keysBesideDigits =
    std::to_array<std::int32_t> ({ '.', '-', '+', '|', ':', leftArrowKey, rightArrowKey, backspaceKey });
} // namespace

CPluginControl_Discrete::CPluginControl_Discrete (std::uint32_t newId,
                                                  std::string newNames,
                                                  std::int32_t newMinValue,
                                                  std::int32_t newMaxValue,
                                                  std::int32_t newDefaultValue,
                                                  bool isAutomatable)
    : id (newId),
      names (std::move (newNames)),
      minValue (newMinValue),
      maxValue (newMaxValue),
      defaultValue (newDefaultValue),
      automatable (isAutomatable)
{
    SetValue (ConvertDiscreteToControl (defaultValue));
}

std::int32_t CPluginControl_Discrete::ConvertControlToDiscrete (std::int32_t control) const noexcept
{
    return LongControlToNewRange (control, minValue, maxValue);
}

std::int32_t CPluginControl_Discrete::ConvertDiscreteToControl (std::int32_t discrete) const noexcept
{
    return LongToLongControl (discrete, minValue, maxValue);
}

std::int32_t CPluginControl_Discrete::GetDefaultValue() const
{
    return ConvertDiscreteToControl (defaultValue);
}

void CPluginControl_Discrete::SetDefaultValue (std::int32_t control)
{
    defaultValue = ConvertControlToDiscrete (control);
}

std::int32_t CPluginControl_Discrete::GetNumSteps() const
{
    return saturated (std::int64_t { maxValue } + 1 - minValue);
}

std::int32_t CPluginControl_Discrete::ConvertStringToValue (const char* text)
{
    constexpr int decimal = 10;
    const auto number = text == nullptr ? 0 : std::strtoll (text, nullptr, decimal);
    return ConvertDiscreteToControl (saturated (number));
}

bool CPluginControl_Discrete::IsKeyValid (std::int32_t key)
{
    return (key >= '0' && key <= '9')
           || std::find (keysBesideDigits.begin(), keysBesideDigits.end(), key) != keysBesideDigits.end();
}

void CPluginControl_Discrete::GetNameOfLength (char* name, std::int32_t maxLength, std::uint32_t)
{
    GetStringOfLength (name, names.c_str(), maxLength);
}

void CPluginControl_Discrete::GetValueString (char* text, std::int32_t maxLength, std::int32_t valueToShow)
{
    const auto digits = std::to_string (ConvertControlToDiscrete (valueToShow));
    const bool fits = static_cast<std::int64_t> (digits.size()) <= maxLength;
    copyHostTextToEnd (text, fits ? digits : "*", maxLength);
}
