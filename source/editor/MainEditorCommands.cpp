// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the mouse, the window, the menu and the panels above ask of the main panel.

#include "InfoComponent.h"
#include "MainEditorComponent.h"
#include "PanelTables.h"
#include "WideLoomAudioProcessorEditor.h"
#include "engine/WideLoomAudioProcessor.h"

//==================================================================================================
// The mouse over the panel and its descendants

void MainEditorComponent::mouseMove (const juce::MouseEvent& event)
{
    updateInfoTextLabel (event);
}

void MainEditorComponent::mouseDown (const juce::MouseEvent& event)
{
    componentPressed (event.source.getComponentUnderMouse());
}

void MainEditorComponent::updateInfoTextLabel (const juce::MouseEvent& event)
{
    componentHovered (event.source.getComponentUnderMouse());
}

void MainEditorComponent::componentHovered (juce::Component* component)
{
    if (component == this)
        setNewInfoText ({}, false);
    else if (auto* client = dynamic_cast<juce::SettableTooltipClient*> (component))
        setNewInfoText (client->getTooltip(), false);
}

void MainEditorComponent::componentPressed (juce::Component* component)
{
    if (component != nullptr && component == titleLabel.get())
        showInfoComponent();
}

//==================================================================================================
// Presets

void MainEditorComponent::showManagePresetsComponent()
{
    isSavingPreset = true;
    managePresetsComponent->show();
    updateVisibilityOfAllComponents();
}

void MainEditorComponent::saveUserPreset()
{
    isSavingPreset = false;
    updateVisibilityOfAllComponents();
    managePresetsComponent->hide();

    const auto result =
        processor->saveCurrentPresetFromValueTreeToDisk (managePresetsComponent->getPresetName(), true);
    updatePresetNameFromPluginProcessor();
    setNewInfoText (result.wasOk() ? "SAVE: OK, user preset was saved !"
                                   : "SAVE: FAILED, user preset was NOT saved !",
                    true);
}

void MainEditorComponent::cancelUserPresetSaving()
{
    isSavingPreset = false;
    updateVisibilityOfAllComponents();
    managePresetsComponent->hide();
    setNewInfoText ("CANCEL: preset was NOT saved ...", true);
}

void MainEditorComponent::loadFactoryPresetWithID (int index)
{
    processor->loadFactoryPresetUndoableWithID (index);
    updateAll();
}

void MainEditorComponent::loadUserPresetWithID (int index)
{
    processor->loadUserPresetUndoableWithID (index);
    updateAll();
}

void MainEditorComponent::revealUserPresetsFolder() const
{
    processor->revealUserPresetsFolder();
}

//==================================================================================================
// Window, info screen and menu

void MainEditorComponent::resizingStarted()
{
    isResizing = true;
    setOpaque (false);
    updateVisibilityOfAllComponents();
    setNewInfoText ({}, false);
}

void MainEditorComponent::resizingStopped()
{
    isResizing = false;
    setOpaque (true);
    setNewInfoText (
        "Resizer: NEW SIZE set to " + juce::String (getWidth()) + "x" + juce::String (getHeight()), false);
    updateVisibilityOfAllComponents();
}

void MainEditorComponent::resizeToDefault()
{
    processor->setEditorHeight (processor->getDefaultEditorHeight());

    if (editor != nullptr)
        editor->updateEditorSize();
}

void MainEditorComponent::showInfoComponent()
{
    infoComponent->setVisible (true);
}

void MainEditorComponent::hideInfoComponent()
{
    infoComponent->setVisible (false);
}

void MainEditorComponent::setSettingsPopupMenuIsActive (bool isActive)
{
    settingsPopupMenuIsActive = isActive;
}

void MainEditorComponent::useDarkClassicColourScheme()
{
    setColourSchemeBrightness (0.0f);
}

void MainEditorComponent::useBrightEyesColourScheme()
{
    constexpr float brightEyes = 0.3f;
    setColourSchemeBrightness (brightEyes);
}
