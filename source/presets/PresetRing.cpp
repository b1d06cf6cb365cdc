// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Which preset is current, its name, and the steps round the ring of all presets.

#include "PresetKeys.h"

#include <engine/WideLoomAudioProcessor.h>

namespace
{
/** Marks the name of a preset that was modified. */
constexpr auto modifiedMark = "*";
} // namespace

bool WideLoomAudioProcessor::hasValidPresetTree() const
{
    return currentPresetValueTree != nullptr && currentPresetValueTree->isValid();
}

juce::String WideLoomAudioProcessor::storedPresetName() const
{
    return hasValidPresetTree()
               ? currentPresetValueTree->getProperty (presetKey::presetName, initialPresetName).toString()
               : juce::String (initialPresetName);
}

juce::String WideLoomAudioProcessor::getCurrentPresetName() const
{
    const auto name = storedPresetName();
    return presetWasModified ? name.removeCharacters (modifiedMark) + modifiedMark : name;
}

void WideLoomAudioProcessor::changeProgramName (int, const juce::String& name)
{
    if (! hasValidPresetTree())
        return;

    currentPresetValueTree->setProperty (presetKey::presetName, name, undoManager.get());
    updateHostDisplay();
}

void WideLoomAudioProcessor::updateCurrentPresetID()
{
    const auto& list = stepFactoryPresets ? factoryPresetNames : userPresetNames;

    if (const int position = list.indexOf (getCurrentPresetName()); position >= 0)
        currentPresetID = position;
}

void WideLoomAudioProcessor::loadNextPreset()
{
    updateAllUserPresetNames();

    const int next = currentPresetID + 1;
    const int size = (stepFactoryPresets ? factoryPresetNames : userPresetNames).size();

    if (next < size)
    {
        if (stepFactoryPresets)
            loadFactoryPresetUndoableWithID (next);
        else
            loadUserPresetUndoableWithID (next);
    }
    else if (stepFactoryPresets && ! userPresetNames.isEmpty())
        loadUserPresetUndoableWithID (0);
    else
        loadFactoryPresetUndoableWithID (0);
}

void WideLoomAudioProcessor::loadPrevPreset()
{
    updateAllUserPresetNames();

    const int previous = currentPresetID - 1;
    const int lastFactory = factoryPresetNames.size() - 1;

    if (stepFactoryPresets)
    {
        if (previous < 0 && ! userPresetNames.isEmpty())
            loadUserPresetUndoableWithID (userPresetNames.size() - 1);
        else if (previous < 0)
            loadFactoryPresetUndoableWithID (lastFactory);
        else // A restored session can leave a position past the list.
            loadFactoryPresetUndoableWithID (juce::jmin (previous, lastFactory));
    }
    else if (previous >= userPresetNames.size()) // The folder has shrunk.
        loadFactoryPresetUndoableWithID (0);
    else if (previous < 0)
        loadFactoryPresetUndoableWithID (lastFactory);
    else
        loadUserPresetUndoableWithID (previous);
}
