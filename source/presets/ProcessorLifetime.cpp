// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Builds and releases the processor, which owns classes of this folder.

#include "PluginSettingsFile.h"
#include "UserPresetList.h"

#include <engine/WideLoomAudioProcessor.h>

namespace
{
constexpr int maxUndoUnits = 30000;
constexpr int minUndoTransactions = 30;
} // namespace

WideLoomAudioProcessor::WideLoomAudioProcessor()
{
    initPropertiesFile();

    defaultEditorDesktopHeightRatio = getDefaultEditorDesktopHeightRatioFromPropertiesFile();
    updateDefaultEditorSizes();
    lastEditorHeight = defaultEditorHeight;

    initAllParameters();
    currentPresetValueTree = createValueTreeForAllParameters();
    initFactoryPresets();
    initUserPresets();

    // What had to be filled in goes to the file now: once others have set it, it must not be written over.
    settingsFile->saveIfNeeded();

    // Last, so that nothing above is undoable.
    undoManager = std::make_unique<juce::UndoManager> (maxUndoUnits, minUndoTransactions);
    undoManager->beginNewTransaction();
}

WideLoomAudioProcessor::~WideLoomAudioProcessor() = default;
