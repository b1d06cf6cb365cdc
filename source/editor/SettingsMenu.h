// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The settings menu: what stands in it, and what its choices do.

#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

#include <memory>

class MainEditorComponent;
class WideLoomAudioProcessor;

/** What a choice gives back. 0 is a menu that was dismissed. */
namespace SettingsMenuItem
{
inline constexpr int version = -1;
inline constexpr int resizeToDefault = 1;
inline constexpr int showInfo = 2;
inline constexpr int classicDark = 3;
inline constexpr int brightEyes = 4;
inline constexpr int savePreset = 5;
inline constexpr int revealPresetsFolder = 6;
inline constexpr int firstFactoryPreset = 100;
inline constexpr int firstUserPreset = 200; ///< and all above
} // namespace SettingsMenuItem

/** [message] The menu for the processor's present state. Reads the folder of user presets afresh. */
juce::PopupMenu buildSettingsMenu (WideLoomAudioProcessor& processor, const juce::String& versionLine);

/** [message] Gives the menu the editor's look, and that look the colour of the row under the mouse. */
void dressSettingsMenu (juce::PopupMenu& menu, juce::LookAndFeel& lookAndFeel);

/** [message] Carries out what was chosen. The modal manager owns it and calls it from the message loop, when
   the editor may be gone: then it does nothing. */
class PopupCallbackReceiver : public juce::ModalComponentManager::Callback
{
public:
    explicit PopupCallbackReceiver (MainEditorComponent* panel);

    void modalStateFinished (int returnValue) override;

private:
    juce::Component::SafePointer<MainEditorComponent> mainEditor;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (PopupCallbackReceiver)
};

/** [message] Shows the menu and gives the receiver to the modal manager. Without a display there is no menu
   to show: the receiver is told at once that nothing was chosen, and is deleted. */
void showSettingsMenu (juce::PopupMenu& menu, std::unique_ptr<PopupCallbackReceiver> receiver);
