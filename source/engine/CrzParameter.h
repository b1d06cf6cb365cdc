// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// One row of the live parameter table.

#pragma once

#include "CrzParameterValueMapper.h"
#include "RealTime.h"

#include <juce_core/juce_core.h>

#include <memory>

class CrzParameterManager;

/** A named normalised value. Reading and writing the value is safe from any thread; the rest is set up once,
    before any other thread knows of the row. */
class CrzParameter
{
public:
    /** `manager` is not owned and may be null. Kind 0 makes a row without a mapper. */
    CrzParameter (CrzParameterManager* manager, CrzParameterValueMapper::CrzMappingENUM mapping);

    CrzParameterManager* getParameterManager() const noexcept { return parameterManager; }
    CrzParameterValueMapper* getValueMapper() const noexcept { return valueMapper.get(); }

    /** The position in the manager's table; -1 until added. */
    int getIndex() const noexcept { return index; }
    void setIndex (int newIndex) noexcept { index = newIndex; }

    const juce::String& getName() const noexcept { return name; }
    void setName (const juce::String& newName) { name = newName; }

    float getDefaultValue() const noexcept { return defaultValue; }
    void setDefaultValue (float newDefault) noexcept { defaultValue = newDefault; }

    /** [any] */
    float getValue() const noexcept { return value.load (std::memory_order_relaxed); }

    /** [any] Stores the value as given, without limits, and marks the row as changed. */
    void setValue (float newValue) noexcept
    {
        value.store (newValue, std::memory_order_relaxed);
        changedFlag.store (true, std::memory_order_relaxed);
    }

    /** [any] Whether setValue() ever ran. Nothing clears it, so every row of a table that stands has it. */
    bool hasFlagChanged() const noexcept { return changedFlag.load (std::memory_order_relaxed); }

    /** [message] Without a mapper the bare number. A value that is not finite reads as 0.0 does. */
    juce::String getValueAsText() const;

private:
    int index = -1;
    std::atomic<float> value { 0.0f };
    float defaultValue = 0.0f;
    juce::String name { "reserved" };
    std::atomic<bool> changedFlag { false };
    CrzParameterManager* parameterManager;
    std::unique_ptr<CrzParameterValueMapper> valueMapper;

    JUCE_DECLARE_NON_COPYABLE (CrzParameter)
};
