// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// What a process answers about its controls.

#include "CDAEError.h"
#include "CProcess.h"
#include "ControlScale.h"
#include "FourCC.h"
#include "GetStringOfLength.h"
#include "PascalText.h"

#include <algorithm>
#include <array>

namespace
{
/** GetControlName() asks for names for this kind of control surface, and of at most so many bytes. */
constexpr auto plainControllerType = fourCC ("PcTL");
constexpr std::int32_t plainNameLength = 31;

/** What MapControlValToString() takes off lengths that are no smaller. */
constexpr std::int32_t lengthOffset = 100;

/** What a control that there is not says of its type. */
constexpr std::int32_t defaultControlType = 1;

template <typename Value>
std::int32_t giveResult (Value* place, Value value) noexcept
{
    if (place != nullptr)
        *place = value;

    return ficSuccess;
}
} // namespace

std::int32_t CProcess::GetNumControls (std::int32_t* numControls)
{
    return giveResult (numControls, controls.GetNumControls());
}

std::int32_t CProcess::IsControlAutomatable (std::int32_t control, unsigned char* automatable)
{
    const bool isAutomatable =
        IsValidControlIndex (control) && controls.GetControl (control)->IsAutomatable();
    return giveResult<unsigned char> (automatable, isAutomatable);
}

std::int32_t CProcess::GetNumControlSteps (std::int32_t control, std::int32_t* numSteps)
{
    return giveResult (numSteps,
                       IsValidControlIndex (control) ? controls.GetControl (control)->GetNumSteps() : 0);
}

std::int32_t CProcess::ConvertStringToValue (std::int32_t control, const char* text, std::int32_t* value)
{
    giveResult (value, 0);

    try
    {
        if (IsValidControlIndex (control) && text != nullptr)
            giveResult (value, controls.GetControl (control)->ConvertStringToValue (text));
    }
    catch (const CDAEError& error)
    {
        return error.GetErrorCode();
    }

    return ficSuccess;
}

std::int32_t CProcess::IsKeyValid (std::int32_t control, std::int32_t key, unsigned char* valid)
{
    const bool isValid = IsValidControlIndex (control) && controls.GetControl (control)->IsKeyValid (key);
    return giveResult<unsigned char> (valid, isValid);
}

/** Empty for a control that there is not. */
std::string CProcess::ValueText (std::int32_t control, std::int32_t value, std::int32_t length) const
{
    if (! IsValidControlIndex (control))
        return {};

    std::array<char, maxPascalLength + 1> text {};
    controls.GetControl (control)->GetValueString (
        text.data(), std::clamp<std::int32_t> (length, 0, maxPascalLength), value);
    text.back() = 0;
    return text.data();
}

std::int32_t CProcess::GetValueString (std::int32_t control,
                                       std::int32_t value,
                                       unsigned char* text,
                                       std::int32_t length)
{
    copyPascalText (text, ValueText (control, value, length), length);
    return ficSuccess;
}

std::int32_t CProcess::MapControlValToString (std::int32_t control,
                                              std::int32_t value,
                                              char* text,
                                              std::int32_t length)
{
    const auto maxLength = length >= lengthOffset ? length - lengthOffset : length;
    copyHostText (text, ValueText (control, value, maxLength), maxLength);
    return ficSuccess;
}

std::int32_t CProcess::GetControlName (std::int32_t control, char* name)
{
    return GetControlNameOfLength (control, name, plainNameLength, plainControllerType, nullptr);
}

std::int32_t CProcess::GetControlNameOfLength (std::int32_t control,
                                               char* name,
                                               std::int32_t length,
                                               std::uint32_t controllerType,
                                               std::int16_t* requiredLength)
{
    giveResult<std::int16_t> (requiredLength, 0);

    if (name == nullptr || length < 0)
        return ficSuccess;

    if (IsValidControlIndex (control))
        controls.GetControl (control)->GetNameOfLength (name, length, controllerType);
    else
        *name = 0;

    return ficSuccess;
}

std::int32_t CProcess::GetProcessControlSDSName (std::int32_t control, char* name)
{
    return GetControlName (control, name);
}

std::int32_t CProcess::GetControlPriority (std::int32_t control, std::int32_t* priority)
{
    return giveResult (priority,
                       IsValidControlIndex (control) ? controls.GetControl (control)->GetPriority() : 0);
}

std::int32_t CProcess::GetControlType (std::int32_t control, std::int32_t* controlType)
{
    return giveResult (controlType,
                       IsValidControlIndex (control) ? controls.GetControl (control)->GetControlType()
                                                     : defaultControlType);
}

std::int32_t CProcess::GetControlOrientation (std::int32_t control, std::int32_t* orientation)
{
    return giveResult (orientation,
                       IsValidControlIndex (control) ? controls.GetControl (control)->GetOrientation() : 0);
}

/** Views name the sub-view of a control as the control itself. */
std::int32_t CProcess::GetProcessControlViewId (std::int32_t control, std::uint32_t* viewID)
{
    return giveResult<std::uint32_t> (
        viewID, IsValidControlIndex (control) ? controls.GetControl (control)->GetID() : 0);
}

std::int32_t CProcess::GetControlValue (std::int32_t control, std::int32_t* value)
{
    return giveResult (value, IsValidControlIndex (control) ? controls.GetControl (control)->GetValue() : 0);
}

std::int32_t CProcess::GetControlDefaultValue (std::int32_t control, std::int32_t* value)
{
    if (! IsValidControlIndex (control))
        return GetControlValue (control, value);

    return giveResult (value, controls.GetControl (control)->GetDefaultValue());
}

std::int32_t CProcess::SetControlDefaultValue (std::int32_t control, std::int32_t value)
{
    if (IsValidControlIndex (control))
        controls.GetControl (control)->SetDefaultValue (value);

    return ficSuccess;
}

std::int32_t CProcess::RelativeValue (std::int32_t control, std::int32_t delta)
{
    std::int32_t value = 0;
    GetControlValue (control, &value);
    return static_cast<std::int32_t> (
        std::clamp<std::int64_t> (std::int64_t { value } + delta, longControlBottom, longControlTop));
}

std::int32_t CProcess::SetControlRelative (std::int32_t control, std::int32_t delta)
{
    return SetControlValue (control, RelativeValue (control, delta));
}

std::int32_t CProcess::UpdateControlRelative (std::int32_t control, std::int32_t delta)
{
    return UpdateControlValue (control, RelativeValue (control, delta));
}

std::int32_t CProcess::UpdateControlValueInAlgorithm (std::int32_t)
{
    return ficSuccess;
}

std::int32_t CProcess::UpdateHighlight (std::int32_t, const TokenHighlight&)
{
    return ficSuccess;
}
