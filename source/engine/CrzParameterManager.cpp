// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Finds, reads and writes the rows of the live table.

#include "CrzParameterManager.h"

int CrzParameterManager::addParameter (CrzParameter* newParameter)
{
    newParameter->setIndex (parameters.size());
    return parameters.add (newParameter)->getIndex();
}

CrzParameter* CrzParameterManager::getParameter (const juce::String& name) const
{
    return getParameter (getParameterIndex (name));
}

int CrzParameterManager::getParameterIndex (const juce::String& name) const
{
    for (const auto* parameter : parameters)
        if (parameter->getName() == name)
            return parameter->getIndex();

    return -1;
}

juce::String CrzParameterManager::getParameterName (int index) const
{
    if (const auto* parameter = getParameter (index))
        return parameter->getName();

    return index < 0 ? "invalid parameter" : "reserved";
}

juce::String CrzParameterManager::getParameterValueAsText (int index) const
{
    const auto* parameter = getParameter (index);
    return parameter != nullptr ? parameter->getValueAsText() : juce::String();
}

float CrzParameterManager::getParameterValue (int index) const noexcept
{
    const auto* parameter = getParameter (index);
    return parameter != nullptr ? parameter->getValue() : 0.0f;
}

float CrzParameterManager::getParameterValue (const juce::String& name) const
{
    return getParameterValue (getParameterIndex (name));
}

void CrzParameterManager::setParameterValue (int index, float value) noexcept
{
    auto* parameter = getParameter (index);

    if (parameter == nullptr)
        return;

    parameter->setValue (value);
    parameterNeedsToBeUpdatedInEditor.store (true, std::memory_order_relaxed);
    presetNameNeedsToBeUpdatedInEditor.store (true, std::memory_order_relaxed);
    undoButtonsNeedToBeUpdatedInEditor.store (true, std::memory_order_relaxed);
}
