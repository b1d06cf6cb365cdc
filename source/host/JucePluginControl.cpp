// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Asks the processor for what the host wants to know of a parameter.

#include "JucePluginControl.h"

#include "ParameterScale.h"

namespace
{
constexpr std::int32_t invertedOrientation = 19;

/** Writes at most `maxLength` bytes of whole characters and a terminator. */
void copyText (const juce::String& text, char* out, std::int32_t maxLength)
{
    if (out != nullptr && maxLength >= 0)
        text.copyToUTF8 (out, static_cast<std::size_t> (maxLength) + 1);
}
} // namespace

// The processor has no parameter objects, only numbers, which JUCE would rather not see any more.
JUCE_BEGIN_IGNORE_WARNINGS_GCC_LIKE ("-Wdeprecated-declarations")

JucePlugInProcess::JucePluginControl::JucePluginControl (juce::AudioProcessor& processor,
                                                         int parameterIndex) noexcept
    : filter (processor),
      index (parameterIndex)
{
}

std::uint32_t JucePlugInProcess::JucePluginControl::GetID() const
{
    return static_cast<std::uint32_t> (index + 1);
}

std::int32_t JucePlugInProcess::JucePluginControl::GetDefaultValue() const
{
    return longFromParameter (filter.getParameterDefaultValue (index));
}

std::int32_t JucePlugInProcess::JucePluginControl::GetNumSteps() const
{
    return filter.getParameterNumSteps (index);
}

std::int32_t JucePlugInProcess::JucePluginControl::ConvertStringToValue (const char* text)
{
    return longFromParameter (juce::String::fromUTF8 (text).getFloatValue());
}

bool JucePlugInProcess::JucePluginControl::IsKeyValid (std::int32_t)
{
    return true;
}

void JucePlugInProcess::JucePluginControl::GetNameOfLength (char* name, std::int32_t maxLength, std::uint32_t)
{
    copyText (filter.getParameterName (index, maxLength), name, maxLength);
}

std::int32_t JucePlugInProcess::JucePluginControl::GetPriority() const
{
    return 0;
}

std::int32_t JucePlugInProcess::JucePluginControl::GetOrientation() const
{
    return filter.isParameterOrientationInverted (index) ? invertedOrientation : 0;
}

std::int32_t JucePlugInProcess::JucePluginControl::GetControlType() const
{
    return 1;
}

void JucePlugInProcess::JucePluginControl::GetValueString (char* text, std::int32_t maxLength, std::int32_t)
{
    copyText (filter.getParameterText (index, maxLength), text, maxLength);
}

bool JucePlugInProcess::JucePluginControl::IsAutomatable() const
{
    return filter.isParameterAutomatable (index);
}

JUCE_END_IGNORE_WARNINGS_GCC_LIKE
