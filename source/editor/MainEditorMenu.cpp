// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// How the main panel opens its settings menu.

#include "CrzQ7LookAndFeelV1.h"
#include "MainEditorComponent.h"
#include "SettingsMenu.h"
#include "WideLoomAudioProcessorEditor.h"

void MainEditorComponent::createAndShowSettingsPopupMenu()
{
    auto menu = buildSettingsMenu (*processor, versionText);

    if (editor != nullptr && editor->getLookAndFeel() != nullptr)
        dressSettingsMenu (menu, *editor->getLookAndFeel());

    settingsPopupCheckTime = juce::Time::getCurrentTime();
    settingsPopupMenuIsActive = true;
    setNewInfoText ("choose from popup menu ...", false);

    auto receiver = std::make_unique<PopupCallbackReceiver> (this);
    settingsPopupCallback = receiver.get();
    showSettingsMenu (menu, std::move (receiver));
}
