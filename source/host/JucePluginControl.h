// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// One parameter of the processor as a control of the host's.

#pragma once

#include "CPluginControl.h"
#include "JucePlugInProcess.h"

/** The processor answers for everything but the value, which is the last one that the host set. */
class JucePlugInProcess::JucePluginControl : public CPluginControl
{
public:
    /** The processor outlives the control. */
    JucePluginControl (juce::AudioProcessor& processor, int parameterIndex) noexcept;

    std::uint32_t GetID() const override;
    std::int32_t GetDefaultValue() const override;
    std::int32_t GetNumSteps() const override;

    /** The text is a normalised value. */
    std::int32_t ConvertStringToValue (const char* text) override;
    bool IsKeyValid (std::int32_t key) override;
    void GetNameOfLength (char* name, std::int32_t maxLength, std::uint32_t controllerType) override;
    std::int32_t GetPriority() const override;
    std::int32_t GetOrientation() const override;
    std::int32_t GetControlType() const override;

    /** Shows the processor's present value, whatever value is given. */
    void GetValueString (char* text, std::int32_t maxLength, std::int32_t valueToShow) override;
    bool IsAutomatable() const override;

private:
    juce::AudioProcessor& filter;
    const int index;
};
