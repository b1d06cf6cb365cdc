// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Builds the parameter table and takes parameter writes; rendering and presets have files of their own.

#include "WideLoomAudioProcessor.h"

#include <utility>

void WideLoomAudioProcessor::initAllParameters()
{
    parameterManager = std::make_unique<CrzParameterManager> (this);

    for (const auto& row : parameterTable)
        addParameter (row.name, row.defaultValue, row.mapping);

    // No sample rate is known yet, so the Safe Bass coefficients come with the first block.
}

int WideLoomAudioProcessor::addParameter (const juce::String& name,
                                          float defaultValue,
                                          CrzParameterValueMapper::CrzMappingENUM mapping)
{
    auto parameter = std::make_unique<CrzParameter> (parameterManager.get(), mapping);
    parameter->setName (name);
    parameter->setValue (defaultValue);
    parameter->setDefaultValue (defaultValue);
    return parameterManager->addParameter (parameter.release());
}

void WideLoomAudioProcessor::setParameter (int index, float value)
{
    if (index >= parameterManager->getNumberOfParameters())
        return;

    parameterManager->setParameterValue (index, value);

    if (index == indexOf (ParameterId::outputGain))
        outputGainLinear.store (linearGain (valueOf (ParameterId::outputGain)), std::memory_order_relaxed);
    else if (index == indexOf (ParameterId::inputGain))
        inputGainLinear.store (linearGain (valueOf (ParameterId::inputGain)), std::memory_order_relaxed);
    else if (index == indexOf (ParameterId::safeBassFreq))
        updateSafeBassFilterCoefficients();
}

JUCE_BEGIN_IGNORE_WARNINGS_GCC_LIKE ("-Wdeprecated-declarations")
void WideLoomAudioProcessor::sendParameterToHost (int index, float value)
{
    // Index-based calls are deprecated in JUCE but are what this effect's table needs.
    setParameterNotifyingHost (index, value);
}
JUCE_END_IGNORE_WARNINGS_GCC_LIKE

void WideLoomAudioProcessor::setMuteMsOption (MuteMsOption option)
{
    switch (option)
    {
        case MuteMsOption::muteNothing:
        case MuteMsOption::muteMidOnly:
        case MuteMsOption::muteSideOnly:
            setParamAndNotifyHost (
                rowOf (ParameterId::muteMid).name, option == MuteMsOption::muteMidOnly ? 1.0f : 0.0f, false);
            setParamAndNotifyHost (rowOf (ParameterId::muteSide).name,
                                   option == MuteMsOption::muteSideOnly ? 1.0f : 0.0f,
                                   false);
            break;
    }

    beginNewTransaction();
}

const juce::String WideLoomAudioProcessor::getParameterText (int index)
{
    return parameterManager->getParameterValueAsText (index);
}

float WideLoomAudioProcessor::getParameterDefaultValue (int index)
{
    const auto* parameter = parameterManager->getParameter (index);
    return parameter != nullptr ? parameter->getDefaultValue() : 0.0f;
}

juce::String WideLoomAudioProcessor::getLastSampleRateString() const
{
    const double rate = lastSampleRate.load (std::memory_order_relaxed);
    return rate == 0.0 ? juce::String ("(unknown)") : juce::String (juce::roundToInt (rate)) + " Hz";
}

juce::String WideLoomAudioProcessor::getAllowedCharsForPresetNames() const
{
    return "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ1234567890 _-!+#%&";
}

juce::AudioProcessor* createPluginFilter()
{
    return std::make_unique<WideLoomAudioProcessor>().release();
}
