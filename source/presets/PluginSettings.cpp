// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the processor keeps in the settings file: the default editor height and the presets folder.

#include "DisplayHeight.h"
#include "PluginSettingsFile.h"

#include <engine/WideLoomAudioProcessor.h>

#include <cmath>

namespace
{
constexpr auto ratioKey = "DefaultEditorDesktopHeightRatio";
constexpr auto folderKey = "Presets Folder";
constexpr float ratioAtFirst = 0.5f;

constexpr auto vendorFolder = "QUORVEXDSP";
constexpr auto presetsFolderName = "WideLoom Presets";

/** The least and the most that an editor's height, in pixels, comes to for any ratio. */
constexpr float minEditorHeight = 1.0f, maxEditorHeight = 10000.0f;

juce::String textOf (float ratio)
{
    return juce::var (static_cast<double> (ratio)).toString();
}

bool isGoodRatio (float ratio)
{
    return std::isfinite (ratio) && ratio > 0.0f;
}
} // namespace

void WideLoomAudioProcessor::initPropertiesFile()
{
    settingsFileOptions.applicationName = "WideLoom";
    settingsFileOptions.filenameSuffix = "q7properties";
    settingsFileOptions.folderName = vendorFolder;
    settingsFileOptions.osxLibrarySubFolder = "Application Support";
    settingsFileOptions.commonToAllUsers = false;
    settingsFileOptions.storageFormat = juce::PropertiesFile::storeAsXML;

    settingsFile = std::make_unique<PluginSettingsFile> (settingsFileOptions);

    if (! settingsFile->getFile().exists())
    {
        settingsFile->getFile().create();
        settingsFile->setValue (ratioKey, textOf (ratioAtFirst));
    }
}

float WideLoomAudioProcessor::getDefaultEditorDesktopHeightRatioFromPropertiesFile() const
{
    const float ratio = settingsFile->getValue (ratioKey).getFloatValue();
    return isGoodRatio (ratio) ? ratio : ratioAtFirst;
}

void WideLoomAudioProcessor::updateDefaultEditorSizes()
{
    const auto displayHeight = static_cast<float> (getMainDisplayUserHeight());
    defaultEditorHeight = juce::roundToInt (
        juce::jlimit (minEditorHeight, maxEditorHeight, displayHeight * defaultEditorDesktopHeightRatio));

    // A ratio that the file has already is none that this instance sets: others may have changed it since.
    if (const auto text = textOf (defaultEditorDesktopHeightRatio); settingsFile->getValue (ratioKey) != text)
        settingsFile->setValue (ratioKey, text);
}

void WideLoomAudioProcessor::storeDefaultEditorDesktopHeightRatio (float newRatio)
{
    defaultEditorDesktopHeightRatio = isGoodRatio (newRatio) ? newRatio : ratioAtFirst;

    // The user's choice, to be stored even if it is what this instance has last seen there.
    settingsFile->setValue (ratioKey, textOf (defaultEditorDesktopHeightRatio));
    updateDefaultEditorSizes();
}

void WideLoomAudioProcessor::resetDefaultEditorDesktopHeightRatio()
{
    storeDefaultEditorDesktopHeightRatio (ratioAtFirst);
}

void WideLoomAudioProcessor::setCurrentAsDefaultEditorDesktopHeightRatio()
{
    storeDefaultEditorDesktopHeightRatio (static_cast<float> (lastEditorHeight)
                                          / static_cast<float> (getMainDisplayUserHeight()));
}

std::unique_ptr<juce::File> WideLoomAudioProcessor::getPresetsFolderFromPropertiesFile() const
{
    using juce::File;
    const auto separator = File::getSeparatorString();
    const auto defaultPath = File::getSpecialLocation (File::userApplicationDataDirectory).getFullPathName()
                             + separator + vendorFolder + separator + presetsFolderName + separator;
    auto path = settingsFile->getValue (folderKey);

    if (path.isEmpty())
    {
        path = defaultPath;
        settingsFile->setValue (folderKey, path);
    }

    // One that is no absolute path is left in the file, for whoever wrote it to see.
    auto folder = std::make_unique<File> (File::isAbsolutePath (path) ? path : defaultPath);

    // "~name" without such a user stays as it is, which is a place in the working directory.
    if (! folder->getFullPathName().startsWith (separator))
        *folder = File (defaultPath);

    // A folder that cannot be made leaves the list of presets empty, and saving says so.
    if (! folder->isDirectory())
        folder->createDirectory();

    return folder;
}
