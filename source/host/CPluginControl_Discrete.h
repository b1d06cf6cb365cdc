// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// A control whose own range is one of integers.

#pragma once

#include "CPluginControl.h"

#include <cstdint>
#include <string>

/** A control of this kind travels in the controls chunk as an integer in its own range. */
class CPluginControl_Discrete : public CPluginControl
{
public:
    /** `newNames` has names of falling length with a newline between them. The three numbers are in the
       control's own range, both ends included; the control starts at its default. */
    CPluginControl_Discrete (std::uint32_t newId,
                             std::string newNames,
                             std::int32_t newMinValue,
                             std::int32_t newMaxValue,
                             std::int32_t newDefaultValue,
                             bool isAutomatable);

    /** [host-main] From the control scale to the control's own range. */
    std::int32_t ConvertControlToDiscrete (std::int32_t control) const noexcept;

    /** [host-main] From the control's own range, to which the value is limited, to the control scale. */
    std::int32_t ConvertDiscreteToControl (std::int32_t discrete) const noexcept;

    /** [host-main] The current value in the control's own range. */
    std::int32_t GetDiscrete() const noexcept { return ConvertControlToDiscrete (GetValue()); }

    std::uint32_t GetID() const override { return id; }
    std::int32_t GetDefaultValue() const override;
    void SetDefaultValue (std::int32_t control) override;
    std::int32_t GetNumSteps() const override;

    /** [host-main] Reads the decimal number that the text starts with, 0 if there is none. */
    std::int32_t ConvertStringToValue (const char* text) override;

    bool IsKeyValid (std::int32_t key) override;
    void GetNameOfLength (char* name, std::int32_t maxLength, std::uint32_t controllerType) override;
    std::int32_t GetPriority() const override { return 0; }
    std::int32_t GetOrientation() const override { return 0; }
    std::int32_t GetControlType() const override { return 0; }

    /** [host-main] Decimal, or "*" if that has too many digits. Writes a terminator at text[maxLength], too.
     */
    void GetValueString (char* text, std::int32_t maxLength, std::int32_t valueToShow) override;

    bool IsAutomatable() const override { return automatable; }

private:
    std::uint32_t id;
    std::string names;
    std::int32_t minValue;
    std::int32_t maxValue;
    std::int32_t defaultValue;
    bool automatable;
};
