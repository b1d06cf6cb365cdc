// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Makes the factory presets, and makes one of them current.

#include "FactoryPresets.h"

#include "PresetKeys.h"

#include <engine/WideLoomAudioProcessor.h>

void WideLoomAudioProcessor::initFactoryPresets()
{
    int presetID = 0;

    for (const auto& row : factoryPresetTable)
        addFactoryPreset (presetID++, row.name, row.stereoWidth, row.safeBass, row.safeBassFreq);
}

void WideLoomAudioProcessor::addFactoryPreset (
    int presetID, const juce::String& name, float stereoWidth, float safeBass, float safeBassFreq)
{
    auto tree = createValueTreeForAllParameters();
    tree->setProperty (presetKey::presetName, name, nullptr);
    tree->setProperty (presetKey::presetID, presetID, nullptr);
    tree->setProperty (presetKey::presetType, presetType::factory, nullptr);

    setParameterInValueTree (tree.get(), rowOf (ParameterId::stereoWidth).name, stereoWidth);
    setParameterInValueTree (tree.get(), rowOf (ParameterId::safeBass).name, safeBass);
    setParameterInValueTree (tree.get(), rowOf (ParameterId::safeBassFreq).name, safeBassFreq);

    factoryPresetTrees.add (tree.release());
    factoryPresetNames.add (name);
}

juce::ValueTree WideLoomAudioProcessor::getFactoryPresetTree (int presetID) const
{
    const auto* tree = factoryPresetTrees[presetID];
    return tree != nullptr ? tree->createCopy() : juce::ValueTree();
}

bool WideLoomAudioProcessor::loadFactoryPresetUndoableWithID (int presetID)
{
    const auto* tree = factoryPresetTrees[presetID];

    if (tree == nullptr)
        return false;

    beginNewTransaction();
    recallAllParamsFromValueTree (tree);
    presetWasModified = false;
    beginNewTransaction();

    stepFactoryPresets = true;
    currentPresetID = presetID;
    return true;
}
