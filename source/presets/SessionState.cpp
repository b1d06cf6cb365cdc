// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The block in which the host keeps an instance in its session.

#include "SessionBlock.h"

#include <engine/WideLoomAudioProcessor.h>

#include <charconv>
#include <cmath>
#include <limits>

namespace
{
namespace sessionKey
{
constexpr auto defaultEditorHeight = "defaultEditorHeight";
constexpr auto lastEditorHeight = "lastEditorHeight";
constexpr auto colourSchemeBrightness = "colourSchemeBrightnessAsDouble";
constexpr auto programName = "programName";
constexpr auto channelName = "channelName";
constexpr auto expertMode = "expertModeAsDouble";
constexpr auto stepFactoryPresets = "stepFactoryPresets";
} // namespace sessionKey

constexpr auto nameOfUnnamed = "(NO NAME)";

constexpr int minEditorHeight = 1, maxEditorHeight = 10000; // pixels

/** A height that no screen has counts as missing. */
int readHeight (const juce::XmlElement& xml, const char* key, int heightIfMissing)
{
    const auto text = xml.getStringAttribute (key).trim().toStdString();
    int height = 0;

    // Not getIntAttribute(), which wraps long numbers round into the range.
    const auto [end, error] = std::from_chars (text.data(), text.data() + text.size(), height);
    juce::ignoreUnused (end);

    return error == std::errc() && height >= minEditorHeight && height <= maxEditorHeight ? height
                                                                                          : heightIfMissing;
}

/** 0.0 for a missing number and for one that is not finite. */
double readNumber (const juce::XmlElement& xml, const juce::String& key)
{
    const double number = xml.getDoubleAttribute (key, 0.0);
    return std::isfinite (number) ? number : 0.0;
}

float narrowed (double number)
{
    constexpr double largest = std::numeric_limits<float>::max();
    return static_cast<float> (juce::jlimit (-largest, largest, number));
}
} // namespace

void WideLoomAudioProcessor::getStateInformation (juce::MemoryBlock& destData)
{
    juce::XmlElement xml (sessionTag);
    xml.setAttribute (sessionKey::defaultEditorHeight, defaultEditorHeight);
    xml.setAttribute (sessionKey::lastEditorHeight, lastEditorHeight);
    xml.setAttribute (sessionKey::colourSchemeBrightness, static_cast<double> (colourSchemeBrightness));
    xml.setAttribute (sessionKey::programName, getCurrentPresetName());
    xml.setAttribute (sessionKey::channelName, channelName);
    xml.setAttribute (sessionKey::expertMode, expertModeAsDouble);
    xml.setAttribute (sessionKey::stepFactoryPresets, stepFactoryPresets ? 1 : 0);

    for (int index = 0; index < parameterManager->getNumberOfParameters(); ++index)
        xml.setAttribute (parameterManager->getParameterName (index),
                          static_cast<double> (parameterManager->getParameterValue (index)));

    // Not copyXmlToBinary(), which puts an XML header line in front.
    const auto text = xml.toString (juce::XmlElement::TextFormat().singleLine().withoutHeader());
    writeSessionBlock (text, destData);
}

void WideLoomAudioProcessor::setStateInformation (const void* data, int sizeInBytes)
{
    const auto parsed = readSessionBlock (data, sizeInBytes);

    if (parsed.element == nullptr)
        return;

    const auto& xml = *parsed.element;

    defaultEditorHeight = readHeight (xml, sessionKey::defaultEditorHeight, defaultEditorHeight);
    lastEditorHeight = readHeight (xml, sessionKey::lastEditorHeight, defaultEditorHeight);
    colourSchemeBrightness = narrowed (readNumber (xml, sessionKey::colourSchemeBrightness));

    // The name before the list, because the preset's position is found by its name.
    changeProgramName (0, xml.getStringAttribute (sessionKey::programName, nameOfUnnamed));
    channelName = xml.getStringAttribute (sessionKey::channelName, channelName);
    expertModeAsDouble = readNumber (xml, sessionKey::expertMode);

    constexpr int missing = -1;
    const int list = xml.getIntAttribute (sessionKey::stepFactoryPresets, missing);
    stepFactoryPresets = list == 1;

    if (list != missing)
        updateCurrentPresetID();

    // Through the manager and not the host, since it is the host that restores.
    for (int index = 0; index < parameterManager->getNumberOfParameters(); ++index)
    {
        const double value = readNumber (xml, parameterManager->getParameterName (index));
        parameterManager->setParameterValue (index, static_cast<float> (juce::jlimit (0.0, 1.0, value)));
    }

    fillValueTreeWithAllParams (currentPresetValueTree.get());
}
