// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Undo and redo, and the one way in which the editor changes a parameter.

#include "PresetKeys.h"

#include <engine/WideLoomAudioProcessor.h>

void WideLoomAudioProcessor::setParamAndNotifyHost (const juce::String& name,
                                                    float value,
                                                    bool beginTransaction)
{
    const int index = parameterManager->getParameterIndex (name);

    if (index < 0)
        return;

    sendParameterToHost (index, value);

    // Exactly equal: whatever the user can see as a change is one.
    if (getParamValueFromValueTree (currentPresetValueTree.get(), index) == value)
        return;

    setParameterInValueTree (currentPresetValueTree.get(), index, value);
    presetWasModified = true;

    if (beginTransaction)
        beginNewTransaction();
}

void WideLoomAudioProcessor::clearUndoHistory()
{
    if (undoManager != nullptr)
        undoManager->clearUndoHistory();
}

bool WideLoomAudioProcessor::canUndo() const
{
    return undoManager->canUndo();
}

bool WideLoomAudioProcessor::canRedo() const
{
    return undoManager->canRedo();
}

void WideLoomAudioProcessor::beginNewTransaction()
{
    if (undoManager != nullptr)
        undoManager->beginNewTransaction();
}

void WideLoomAudioProcessor::setCurrentPresetNameUndoable (const juce::String& name)
{
    changeProgramName (0, name);
    beginNewTransaction();
}

void WideLoomAudioProcessor::undoLastParameterChange()
{
    if (undoManager == nullptr)
        return;

    const auto nameBefore = storedPresetName();
    undoManager->undo();
    replayAfterHistoryStep (nameBefore);
}

void WideLoomAudioProcessor::redoLastParameterChange()
{
    if (undoManager == nullptr)
        return;

    const auto nameBefore = storedPresetName();
    undoManager->redo();
    replayAfterHistoryStep (nameBefore);
}

void WideLoomAudioProcessor::restorePresetAfterUndoOrRedo()
{
    recallAllParamsFromValueTree (currentPresetValueTree.get());
}

void WideLoomAudioProcessor::replayAfterHistoryStep (const juce::String& nameBefore)
{
    restorePresetAfterUndoOrRedo();

    // Which list and position the preset has is no part of the history, so it follows the name.
    if (storedPresetName() != nameBefore)
        findIdentityAnew();
}

void WideLoomAudioProcessor::findIdentityAnew()
{
    updateAllUserPresetNames();

    const auto name = storedPresetName();
    const bool userFirst =
        currentPresetValueTree->getProperty (presetKey::presetType).toString() == presetType::user;

    for (const bool inFactoryList : { ! userFirst, userFirst })
    {
        const int position = (inFactoryList ? factoryPresetNames : userPresetNames).indexOf (name);

        if (position >= 0)
        {
            stepFactoryPresets = inFactoryList;
            currentPresetID = position;
            return;
        }
    }

    const int size = (stepFactoryPresets ? factoryPresetNames : userPresetNames).size();
    currentPresetID = juce::jlimit (0, juce::jmax (0, size - 1), currentPresetID);
}
