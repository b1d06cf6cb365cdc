// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Builds the menu from the processor's state, and turns a choice into a call of the panel.

#include "SettingsMenu.h"

#include "CrzQ7Colours.h"
#include "MainEditorComponent.h"

#include "engine/WideLoomAudioProcessor.h"

namespace
{
constexpr float darkBrightness = 0.0f;

/** One item per name. The current preset is ticked while nothing in it was changed. */
juce::PopupMenu presetMenu (const juce::StringArray& names,
                            int firstItem,
                            bool holdsCurrent,
                            int currentIndex,
                            const juce::String& currentName)
{
    juce::PopupMenu menu;

    for (int index = 0; index < names.size(); ++index)
        menu.addItem (firstItem + index,
                      names[index],
                      true,
                      holdsCurrent && index == currentIndex && names[index] == currentName);

    return menu;
}

/** JUCE greys out a sub-menu that is empty; here none is ever out of use. */
void addSubMenu (juce::PopupMenu& menu, const char* name, juce::PopupMenu subMenu)
{
    juce::PopupMenu::Item item (name);
    item.subMenu = std::make_unique<juce::PopupMenu> (std::move (subMenu));
    menu.addItem (std::move (item));
}

juce::PopupMenu colourSchemeMenu (bool isDark)
{
    juce::PopupMenu menu;
    menu.addItem (SettingsMenuItem::classicDark, "Classic Dark", ! isDark, isDark);
    menu.addItem (SettingsMenuItem::brightEyes, "Bright Eyes", isDark, ! isDark);
    return menu;
}
} // namespace

juce::PopupMenu buildSettingsMenu (WideLoomAudioProcessor& processor, const juce::String& versionLine)
{
    const bool isModified = processor.currentPresetWasModified();
    const bool isFactory = processor.currentPresetIsFactory();
    const int index = processor.getCurrentPresetID();
    const auto name = processor.getCurrentPresetName();
    const auto factoryNames = processor.getAllFactoryPresetNames();
    const auto userNames = processor.getAllUserPresetNames();

    juce::PopupMenu menu;
    menu.addItem (SettingsMenuItem::resizeToDefault,
                  "Resize To Default",
                  processor.getEditorHeight() != processor.getDefaultEditorHeight());
    menu.addSeparator();
    addSubMenu (
        menu,
        "Factory Presets",
        presetMenu (
            factoryNames, SettingsMenuItem::firstFactoryPreset, isFactory && ! isModified, index, name));
    addSubMenu (
        menu,
        "User Presets",
        presetMenu (userNames, SettingsMenuItem::firstUserPreset, ! isFactory && ! isModified, index, name));
    menu.addSeparator();
    menu.addItem (SettingsMenuItem::savePreset, "Save Current Preset As ...");
    menu.addItem (SettingsMenuItem::revealPresetsFolder, "Reveal User Presets Folder");
    menu.addSeparator();
    addSubMenu (menu,
                "Colour Scheme",
                colourSchemeMenu (processor.getCurrentColourSchemeBrightness() == darkBrightness));
    menu.addItem (SettingsMenuItem::showInfo, "Show Info / Settings Screen");
    menu.addSeparator();
    menu.addItem (SettingsMenuItem::version, versionLine, false);
    return menu;
}

void dressSettingsMenu (juce::PopupMenu& menu, juce::LookAndFeel& lookAndFeel)
{
    lookAndFeel.setColour (juce::PopupMenu::highlightedBackgroundColourId, CrzQ7Colours::q7complementColourA);
    menu.setLookAndFeel (&lookAndFeel);
}

//==================================================================================================

PopupCallbackReceiver::PopupCallbackReceiver (MainEditorComponent* panel)
    : mainEditor (panel)
{
}

void PopupCallbackReceiver::modalStateFinished (int returnValue)
{
    if (mainEditor == nullptr)
        return;

    if (returnValue >= SettingsMenuItem::firstUserPreset)
        mainEditor->loadUserPresetWithID (returnValue - SettingsMenuItem::firstUserPreset);
    else if (returnValue >= SettingsMenuItem::firstFactoryPreset)
        mainEditor->loadFactoryPresetWithID (returnValue - SettingsMenuItem::firstFactoryPreset);
    else
        switch (returnValue)
        {
            case SettingsMenuItem::resizeToDefault:
                mainEditor->resizeToDefault();
                break;
            case SettingsMenuItem::showInfo:
                mainEditor->showInfoComponent();
                break;
            case SettingsMenuItem::classicDark:
                mainEditor->useDarkClassicColourScheme();
                break;
            case SettingsMenuItem::brightEyes:
                mainEditor->useBrightEyesColourScheme();
                break;
            case SettingsMenuItem::savePreset:
                mainEditor->showManagePresetsComponent();
                break;
            case SettingsMenuItem::revealPresetsFolder:
                mainEditor->revealUserPresetsFolder();
                break;
            default:
                break;
        }

    // A choice that the host answers by closing the editor ends here.
    if (mainEditor != nullptr)
        mainEditor->setSettingsPopupMenuIsActive (false);
}

void showSettingsMenu (juce::PopupMenu& menu, std::unique_ptr<PopupCallbackReceiver> receiver)
{
    if (juce::Desktop::getInstance().isHeadless())
        receiver->modalStateFinished (0);
    else
        menu.showMenuAsync (juce::PopupMenu::Options(), receiver.release());
}
