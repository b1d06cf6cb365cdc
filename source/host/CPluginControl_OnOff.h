// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// A control that is on or off.

#pragma once

#include "CPluginControl_Discrete.h"

#include <array>
#include <cstdint>
#include <string>

/** 1 is on, 0 is off. */
class CPluginControl_OnOff : public CPluginControl_Discrete
{
public:
    /** Texts are cut to 254 bytes. If either is null, they are "On" and "Off". The other arguments are those
       of CPluginControl_Discrete. */
    CPluginControl_OnOff (std::uint32_t newId,
                          std::string newNames,
                          std::int32_t newDefaultValue,
                          bool isAutomatable,
                          const char* newOnText,
                          const char* newOffText);

    /** [host-main] The on or the off text; "1" or "0" where there is no room for two bytes. Writes a
       terminator at text[maxLength], too. */
    void GetValueString (char* text, std::int32_t maxLength, std::int32_t valueToShow) override;

    /** [host-main] The keys of numbers and those that start or end "on". */
    bool IsKeyValid (std::int32_t key) override;

    /** [host-main] On for the on text, in small or capital letters; off for anything else. */
    std::int32_t ConvertStringToValue (const char* text) override;

private:
    static constexpr int textBytes = 255; // with the terminator

    std::array<char, textBytes> onText {};
    std::array<char, textBytes> offText {};
};
