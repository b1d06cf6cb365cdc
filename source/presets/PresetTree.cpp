// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// How the processor writes and reads preset trees.

#include "PresetKeys.h"

#include <engine/WideLoomAudioProcessor.h>

#include <array>
#include <clocale>
#include <string>
#include <utility>

namespace
{
constexpr auto storedPluginName = "WideLoom";
constexpr auto storedPluginVersion = "1.1";

/** Asking JUCE for language and region leaves the whole process, the host's, in the environment's locale. */
class ScopedLocale
{
public:
    ScopedLocale() = default;
    ~ScopedLocale() { std::setlocale (LC_ALL, previous.c_str()); }

    ScopedLocale (const ScopedLocale&) = delete;
    ScopedLocale& operator= (const ScopedLocale&) = delete;

private:
    const std::string previous { std::setlocale (LC_ALL, nullptr) };
};

bool isUsable (const juce::ValueTree* tree)
{
    return tree != nullptr && tree->isValid();
}

juce::ValueTree childFor (const juce::ValueTree& tree, const juce::String& parameterName)
{
    return tree.getChildWithProperty (presetKey::parameterName, parameterName);
}

juce::String describeDevice()
{
    return juce::SystemStats::getCpuVendor() + " "
           + juce::String (juce::SystemStats::getCpuSpeedInMegahertz()) + "MHz "
           + juce::String (juce::SystemStats::getNumCpus()) + " CPU cores / "
           + juce::String (juce::SystemStats::getMemorySizeInMegabytes()) + "MB Memory";
}
} // namespace

std::unique_ptr<juce::ValueTree> WideLoomAudioProcessor::createValueTreeForAllParameters() const
{
    const auto name = getCurrentPresetName();
    auto tree = std::make_unique<juce::ValueTree> (presetKey::root);
    tree->setProperty (presetKey::pluginName, storedPluginName, nullptr);
    tree->setProperty (presetKey::presetName, name, nullptr);
    fillValueTreeWithAllParams (tree.get());
    return tree;
}

void WideLoomAudioProcessor::fillValueTreeWithAllParams (juce::ValueTree* tree) const
{
    for (int index = 0; index < parameterManager->getNumberOfParameters(); ++index)
        setParameterInValueTree (tree, index, parameterManager->getParameterValue (index));
}

void WideLoomAudioProcessor::setParameterInValueTree (juce::ValueTree* tree,
                                                      const juce::String& name,
                                                      float value) const
{
    if (! isUsable (tree))
        return;

    const auto storedValue = static_cast<double> (value);

    if (auto child = childFor (*tree, name); child.isValid())
    {
        child.setProperty (presetKey::value, storedValue, undoManager.get());
        return;
    }

    juce::ValueTree child (presetKey::parameter);
    child.setProperty (presetKey::parameterName, name, nullptr);
    child.setProperty (presetKey::value, storedValue, nullptr);
    tree->appendChild (child, nullptr);
}

void WideLoomAudioProcessor::setParameterInValueTree (juce::ValueTree* tree, int index, float value) const
{
    setParameterInValueTree (tree, parameterManager->getParameterName (index), value);
}

float WideLoomAudioProcessor::getParamValueFromValueTree (juce::ValueTree* tree, int index) const
{
    if (! isUsable (tree))
        return -1.0f;

    return childFor (*tree, parameterManager->getParameterName (index)).getProperty (presetKey::value);
}

void WideLoomAudioProcessor::recallAllParamsFromValueTree (const juce::ValueTree* tree)
{
    if (! isUsable (tree))
        return;

    if (const auto name = tree->getProperty (presetKey::presetName).toString(); name.isNotEmpty())
        changeProgramName (0, name);

    std::array<bool, numParameters> alreadyRecalled {};

    // By position and with the count read anew, because the tree may be the current one, which grows when it
    // lacks a parameter.
    for (int position = 0; position < tree->getNumChildren(); ++position)
    {
        const auto child = tree->getChild (position);
        const int index =
            parameterManager->getParameterIndex (child.getProperty (presetKey::parameterName).toString());

        if (index < 0 || std::exchange (alreadyRecalled[static_cast<std::size_t> (index)], true))
            continue;

        const float value = child.getProperty (presetKey::value);
        sendParameterToHost (index, value);
        setParameterInValueTree (currentPresetValueTree.get(), index, value);
    }
}

void WideLoomAudioProcessor::copyAllPresetValuesFromValueTree (const juce::ValueTree& source)
{
    if (! source.isValid() || ! hasValidPresetTree())
        return;

    currentPresetValueTree->copyPropertiesFrom (source, undoManager.get());

    for (auto child : *currentPresetValueTree)
    {
        const auto name = child.getProperty (presetKey::parameterName).toString();
        child.copyPropertiesFrom (childFor (source, name), undoManager.get());
    }
}

void WideLoomAudioProcessor::addAdditionalInfosToValueTree (juce::ValueTree* tree)
{
    if (! isUsable (tree))
        return;

    const ScopedLocale keepLocale;
    using juce::String;
    using juce::SystemStats;
    const auto stamp = [tree] (const char* key, const String& text)
    { tree->setProperty (key, text, nullptr); };

    stamp ("PluginVersion", storedPluginVersion);
    stamp (presetKey::presetType, presetType::user);
    stamp ("LastSaved", juce::Time::getCurrentTime().toString (true, true, true, false));
    stamp ("Host", juce::PluginHostType().getHostDescription());
    stamp ("InOutChannelConfig",
           String (getTotalNumInputChannels()) + " / " + String (getTotalNumOutputChannels()));
    stamp ("SampleRate", String (lastSampleRate.load (std::memory_order_relaxed)) + " Hz");
    stamp ("OS",
           SystemStats::getOperatingSystemName() + " / "
               + (SystemStats::isOperatingSystem64Bit() ? "64bit" : "32bit"));
    stamp ("Language", SystemStats::getUserLanguage() + " / " + SystemStats::getDisplayLanguage());
    stamp ("Region", SystemStats::getUserRegion());
    stamp ("User", SystemStats::getFullUserName() + " / " + SystemStats::getLogonName());
    stamp ("Device", describeDevice());
}
