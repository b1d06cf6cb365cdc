// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The processor's operations on user presets.

#include "PresetFileAccess.h"
#include "PresetKeys.h"
#include "UserPresetFile.h"
#include "UserPresetList.h"

#include <engine/WideLoomAudioProcessor.h>

void WideLoomAudioProcessor::initUserPresets()
{
    userPresetsFolder = getPresetsFolderFromPropertiesFile();
    userPresetList = std::make_unique<UserPresetList>();
    updateAllUserPresetNames();
}

void WideLoomAudioProcessor::updateAllUserPresetNames()
{
    userPresetNames = userPresetList->readNames (*userPresetsFolder);
}

juce::StringArray WideLoomAudioProcessor::getAllUserPresetNames()
{
    updateAllUserPresetNames();
    return userPresetNames;
}

void WideLoomAudioProcessor::revealUserPresetsFolder() const
{
    userPresetsFolder->revealToUser();
}

juce::File WideLoomAudioProcessor::userPresetFile (const juce::String& name) const
{
    // As one text: getChildFile() would take a name that starts with "~" for a path of its own.
    return juce::File (juce::File::addTrailingSeparator (userPresetsFolder->getFullPathName()) + name
                       + UserPresetFile::extension);
}

juce::String WideLoomAudioProcessor::rzReadString (juce::InputStream& stream)
{
    const auto header = UserPresetFile::readHeader (stream);
    const auto size = static_cast<int> (header.size());

    return juce::CharPointer_UTF8::isValidString (header.data(), size)
               ? juce::String::fromUTF8 (header.data(), size)
               : juce::String::createStringFromData (header.data(), size);
}

juce::ValueTree WideLoomAudioProcessor::loadUserPresetAsValueTree (const juce::File& file)
{
    const auto bytes = readFileStart (file, UserPresetFile::maxBytes);
    return bytes.has_value() ? UserPresetFile::read (*bytes).tree : juce::ValueTree();
}

juce::Result WideLoomAudioProcessor::saveCurrentPresetFromValueTreeToDisk (juce::String name, bool compressed)
{
    name = name.removeCharacters ("*");

    if (! UserPresetFile::isFileName (name))
        return juce::Result::fail ("\"" + name + "\" cannot be the name of a file");

    if (! hasValidPresetTree())
        return juce::Result::fail ("there is no current preset");

    // A copy is stamped and written, so that a save that fails leaves the current tree alone.
    auto copy = currentPresetValueTree->createCopy();
    copy.setProperty (presetKey::presetName, name, nullptr);
    addAdditionalInfosToValueTree (&copy);

    const auto bytes = UserPresetFile::write (copy, compressed);

    // An unreadable file must not take the place of a good one.
    if (const std::string_view written (static_cast<const char*> (bytes.getData()), bytes.getSize());
        ! UserPresetFile::read (written).tree.isValid())
        return juce::Result::fail ("the preset is too large for a file");

    if (const auto replaced = replaceFile (userPresetFile (name), bytes); replaced.failed())
        return replaced;

    changeProgramName (0, name);

    // The stamps of the file and not new ones: loading it must find no difference that could be undone.
    for (int i = 0; i < copy.getNumProperties(); ++i)
        if (const auto key = copy.getPropertyName (i); key != juce::Identifier (presetKey::presetName))
            currentPresetValueTree->setProperty (key, copy[key], nullptr);

    updateAllUserPresetNames();
    loadUserPresetUndoableWithName (name);
    return juce::Result::ok();
}

bool WideLoomAudioProcessor::loadUserPresetUndoableWithName (const juce::String& name)
{
    if (! UserPresetFile::isFileName (name))
        return false;

    const auto preset = loadUserPresetAsValueTree (userPresetFile (name));

    if (! preset.isValid())
        return false;

    makeUserPresetCurrent (preset, name);
    return true;
}

bool WideLoomAudioProcessor::loadUserPresetUndoableWithID (int presetID)
{
    updateAllUserPresetNames();

    if (! juce::isPositiveAndBelow (presetID, userPresetNames.size()))
        return false;

    const auto name = userPresetNames[presetID];

    // Before the undo step is closed: a preset that went bad since the listing changes nothing.
    const auto preset = loadUserPresetAsValueTree (userPresetFile (name));

    if (! preset.isValid())
        return false;

    beginNewTransaction();
    makeUserPresetCurrent (preset, name);

    auto& tree = *currentPresetValueTree;
    tree.setProperty (presetKey::presetName, name, undoManager.get());
    tree.setProperty (presetKey::presetID, presetID, undoManager.get());
    tree.setProperty (presetKey::presetType, presetType::user, undoManager.get());

    presetWasModified = false;
    beginNewTransaction();
    return true;
}

void WideLoomAudioProcessor::makeUserPresetCurrent (const juce::ValueTree& preset, const juce::String& name)
{
    copyAllPresetValuesFromValueTree (preset);
    recallAllParamsFromValueTree (currentPresetValueTree.get());

    updateAllUserPresetNames();
    currentPresetID = userPresetNames.indexOf (name);
    presetWasModified = false;
    stepFactoryPresets = false;
}
