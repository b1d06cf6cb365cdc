// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Asks a processor of its own, so that presets work here as they do in a host.

#include "PresetDesk.h"

#include "NearestName.h"
#include "PresetInput.h"
#include "engine/WideLoomAudioProcessor.h"

#include <algorithm>
#include <filesystem>

namespace
{
juce::String textOf (const std::string& bytes)
{
    return juce::String::fromUTF8 (bytes.c_str());
}

/** The name that a file gets, which never has the mark of a modified preset. */
juce::String savedName (const std::string& name)
{
    return textOf (name).removeCharacters ("*");
}
} // namespace

PresetDesk::PresetDesk()
    : processor (std::make_unique<WideLoomAudioProcessor>())
{
}

PresetDesk::~PresetDesk() = default;

std::vector<RingPreset> PresetDesk::getRing() const
{
    std::vector<RingPreset> ring;
    int position = 0;

    for (const auto& name : processor->getAllFactoryPresetNames())
    {
        ring.push_back ({ true, position, name, processor->getFactoryPresetTree (position) });
        ++position;
    }

    position = 0;

    for (const auto& name : processor->getAllUserPresetNames())
    {
        // One that has gone since the folder was read is left out like one that went before.
        UserPresetFile::Contents contents;

        if (! readPresetFile (pathOf (name), contents))
            ring.push_back ({ false, position++, name, contents.tree });
    }

    return ring;
}

std::string PresetDesk::pathOf (const juce::String& name) const
{
    const auto folder = processor->getUserPresetsFolder().getFullPathName().toStdString();
    return folder + "/" + name.toStdString() + UserPresetFile::extension;
}

bool PresetDesk::isFactoryPreset (const std::string& name) const
{
    return processor->getAllFactoryPresetNames().contains (textOf (name));
}

Problem PresetDesk::loadPreset (const std::string& name)
{
    const auto wanted = textOf (name);

    if (const int id = processor->getAllFactoryPresetNames().indexOf (wanted); id >= 0)
    {
        processor->loadFactoryPresetUndoableWithID (id);
        return {};
    }

    std::error_code error;

    if (! UserPresetFile::isFileName (wanted) || ! std::filesystem::exists (pathOf (wanted), error))
        return unknownPreset (name);

    UserPresetFile::Contents contents;

    if (auto problem = readPresetFile (pathOf (wanted), contents))
        return "the user preset '" + name + "' cannot be loaded: " + *problem;

    if (auto problem = findEmptiness (contents.tree))
        return "the user preset '" + name + "' cannot be used: " + *problem;

    if (! processor->loadUserPresetUndoableWithName (wanted))
        return "the user preset '" + name + "' cannot be loaded: it has changed meanwhile";

    // As from the menu: the file's name wins over the one inside it, and sessions find the preset by it.
    processor->changeProgramName (0, wanted);
    return {};
}

Problem PresetDesk::unknownPreset (const std::string& name) const
{
    auto names = processor->getAllFactoryPresetNames();
    names.addArray (processor->getAllUserPresetNames());
    const auto nearest =
        std::min_element (names.begin(),
                          names.end(),
                          [&name] (const juce::String& a, const juce::String& b) {
                              return unlikeness (name, a.toStdString()) < unlikeness (name, b.toStdString());
                          });

    return "there is no preset '" + name + "'; did you mean '" + nearest->toStdString()
           + "'? 'wideloom presets' lists them all";
}

Problem PresetDesk::loadPresetFile (const std::string& path)
{
    UserPresetFile::Contents contents;

    if (auto problem = readPresetFile (path, contents))
        return problem;

    if (auto problem = findEmptiness (contents.tree))
        return "'" + path + "': " + *problem;

    processor->copyAllPresetValuesFromValueTree (contents.tree);
    processor->recallAllParamsFromValueTree (&contents.tree);
    return {};
}

void PresetDesk::loadState (const juce::MemoryBlock& block)
{
    processor->setStateInformation (block.getData(), static_cast<int> (block.getSize()));
}

void PresetDesk::setParameter (const ParameterSetting& setting)
{
    processor->setParamAndNotifyHost (
        parameterTable[static_cast<std::size_t> (setting.index)].name, setting.value, true);
}

juce::MemoryBlock PresetDesk::getState() const
{
    juce::MemoryBlock block;
    processor->getStateInformation (block);
    return block;
}

Problem PresetDesk::findSavedBefore (const std::string& name, bool mayReplace) const
{
    std::error_code error;

    if (mayReplace || ! std::filesystem::exists (pathOf (savedName (name)), error))
        return {};

    return "there is a user preset '" + savedName (name).toStdString() + "' already; --force replaces it";
}

Problem PresetDesk::savePreset (const std::string& name, bool mayReplace, double sampleRate)
{
    if (auto problem = findSavedBefore (name, mayReplace))
        return problem;

    // The processor knows channels and rate from the host and its latest block, even an empty one.
    juce::AudioBuffer<float> nothing (2, 0);
    juce::MidiBuffer noMidi;
    processor->setPlayConfigDetails (2, 2, sampleRate, 1);
    processor->processBlock (nothing, noMidi);

    const auto saved = processor->saveCurrentPresetFromValueTreeToDisk (textOf (name), false);

    if (saved.failed())
        return "the preset '" + name + "' was not saved: " + saved.getErrorMessage().toStdString();

    return {};
}
