// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Brings an editor into the state that was asked for and paints it, with the menu beside it or alone.

#include "EditorPicture.h"

#include "MenuPicture.h"

#include <editor/CrzQ7LookAndFeelV1.h>
#include <editor/InfoTexts.h>
#include <editor/MainEditorComponent.h>
#include <editor/SettingsMenu.h>
#include <editor/WideLoomAudioProcessorEditor.h>
#include <engine/WideLoomAudioProcessor.h>

namespace
{
constexpr float darkBrightness = 0.0f;
constexpr float brightBrightness = 0.3f;

constexpr double sampleRate = 48000.0; // Hz
constexpr int blockSize = 512;         // frames

void bringUp (EditorPanel panel, MainEditorComponent& editor)
{
    switch (panel)
    {
        case EditorPanel::save:
            editor.showManagePresetsComponent();
            break;
        case EditorPanel::info:
            editor.showInfoComponent();
            break;
        case EditorPanel::resizing:
            editor.resizingStarted();
            break;
        case EditorPanel::warning:
            editor.setStereoConfig (false);
            break;
        case EditorPanel::menu:
        case EditorPanel::main:
            break;
    }
}

juce::Image paintedAlone (juce::Component& component)
{
    juce::Image image (juce::Image::ARGB, component.getWidth(), component.getHeight(), true);
    juce::Graphics g (image);
    component.paintEntireComponent (g, true);
    return image;
}

/** The editor with the settings menu hanging below its button, and the factory presets open beside it. */
juce::Image paintedWithMenu (WideLoomAudioProcessorEditor& editor, WideLoomAudioProcessor& processor)
{
    auto& lookAndFeel = *editor.getLookAndFeel();
    auto menu = buildSettingsMenu (processor, versionLineText());
    dressSettingsMenu (menu, lookAndFeel);

    const juce::PopupMenu* subMenu = nullptr;
    juce::String subMenuName;

    for (juce::PopupMenu::MenuItemIterator it (menu); subMenu == nullptr && it.next();)
    {
        subMenu = it.getItem().subMenu.get();
        subMenuName = it.getItem().text;
    }

    // Down from the button, with its right edge at the window's.
    const auto menuSize = menuPictureSize (menu, lookAndFeel);
    const auto subMenuSize = menuPictureSize (*subMenu, lookAndFeel);
    constexpr float topInWindows = 0.08f;
    const juce::Point<int> menuAt (
        juce::jmax (subMenuSize.getWidth(), editor.getWidth() - menuSize.getWidth()),
        juce::roundToInt (topInWindows * static_cast<float> (editor.getHeight())));

    juce::Image image (juce::Image::ARGB,
                       juce::jmax (editor.getWidth(), menuAt.x + menuSize.getWidth()),
                       juce::jmax (editor.getHeight(),
                                   menuAt.y + juce::jmax (menuSize.getHeight(), 2 * subMenuSize.getHeight())),
                       true);
    juce::Graphics g (image);
    editor.paintEntireComponent (g, true);

    const auto row = drawMenuPicture (g, menu, lookAndFeel, menuAt, subMenuName);
    const juce::Point<int> subMenuAt (menuAt.x - subMenuSize.getWidth(), row.getY());
    drawMenuPicture (g, *subMenu, lookAndFeel, subMenuAt);

    const int used = juce::jmax (
        editor.getHeight(), menuAt.y + menuSize.getHeight(), subMenuAt.y + subMenuSize.getHeight());
    return image.getClippedImage ({ image.getWidth(), used }).createCopy();
}

/** As a host does that plays stereo. The processor learns its sample rate from the first block. */
void playSilence (WideLoomAudioProcessor& processor)
{
    constexpr int stereo = 2; // channels
    processor.setPlayConfigDetails (stereo, stereo, sampleRate, blockSize);
    processor.prepareToPlay (sampleRate, blockSize);

    juce::AudioBuffer<float> silence (stereo, blockSize);
    silence.clear();
    juce::MidiBuffer noMidi;
    processor.processBlock (silence, noMidi);
}
} // namespace

juce::Image paintEditorPicture (WideLoomAudioProcessor& processor, const EditorPictureRequest& request)
{
    playSilence (processor);

    processor.setEditorHeight (request.height);
    processor.setCurrentColourSchemeBrightness (request.isDark ? darkBrightness : brightBrightness);
    processor.setExpertMode (request.isExpert);

    WideLoomAudioProcessorEditor editor (&processor);
    auto& panel = *editor.getMainEditor();
    panel.updateAll();
    bringUp (request.panel, panel);
    panel.poll (juce::Time::getCurrentTime());

    if (request.meters.has_value())
    {
        panel.setInputVuMeterVisuals ({ request.meters->left, request.meters->right });
        panel.setOutputVuMeterVisuals ({ request.meters->left, request.meters->right });
    }

    return request.panel == EditorPanel::menu ? paintedWithMenu (editor, processor) : paintedAlone (editor);
}
