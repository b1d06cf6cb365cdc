// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The small panel where the user names a preset and saves it.

#include "ManagePresetsComponent.h"

#include "CrzQ7Colours.h"
#include <engine/WideLoomAudioProcessor.h>

namespace
{
constexpr int maxPresetNameLength = 39; ///< characters

constexpr float buttonBrightness = 0.3f;
constexpr float frameAlpha = 0.1f;
constexpr float cornerSize = 0.01f; ///< of the parent's height

// Shares of this component's height.
constexpr float fontHeight = 0.2f * 0.7f;
constexpr float frameInset = 0.05f;

// Shares of this component's width, vertical ones too.
constexpr float captionX = 0.05f;
constexpr float captionY = 0.04f;
constexpr float captionWidth = 0.9f;
constexpr float captionHeight = 0.2f;
} // namespace

ManagePresetsComponent::ManagePresetsComponent (WideLoomAudioProcessor* processorToUse,
                                                Owner* owner,
                                                juce::Font* font)
    : processor (processorToUse),
      mainEditor (owner),
      panelFont (font)
{
    initPresetName();
    addAndMakeVisible (nameEditor);
    setUpNameEditor();

    saveButton = makeButton ("SAVE", "SAVE: click to save this as a user preset");
    cancelButton = makeButton ("CANCEL", "CANCEL: DO NOT SAVE this preset and close dialog");
}

ManagePresetsComponent::~ManagePresetsComponent()
{
    nameEditor.removeListener (this);
}

void ManagePresetsComponent::setUpNameEditor()
{
    if (panelFont != nullptr)
        nameEditor.setFont (*panelFont);

    nameEditor.setEscapeAndReturnKeysConsumed (false);
    nameEditor.setMultiLine (false);
    nameEditor.setPopupMenuEnabled (false);
    nameEditor.setSelectAllWhenFocused (true);
    nameEditor.setJustification (juce::Justification::centredLeft);
    nameEditor.setColour (juce::TextEditor::outlineColourId, juce::Colours::darkgrey);
    nameEditor.setColour (juce::TextEditor::focusedOutlineColourId, CrzQ7Colours::q7complementColourA);
    nameEditor.setColour (juce::TextEditor::highlightColourId, CrzQ7Colours::q7complementColourA);
    nameEditor.setInputRestrictions (maxPresetNameLength, processor->getAllowedCharsForPresetNames());
    nameEditor.addListener (this);
}

std::unique_ptr<juce::TextButton> ManagePresetsComponent::makeButton (const juce::String& caption,
                                                                      const juce::String& tooltip)
{
    auto button = std::make_unique<juce::TextButton> (caption, tooltip);
    button->setColour (juce::TextButton::buttonColourId,
                       CrzQ7Colours::q7darkGrey.brighter (buttonBrightness));
    button->addListener (this);
    addAndMakeVisible (*button);
    return button;
}

void ManagePresetsComponent::show()
{
    initPresetName();
    setVisible (true);
    focusNameEditor();
}

void ManagePresetsComponent::hide()
{
    setVisible (false);
}

void ManagePresetsComponent::focusNameEditor()
{
    if (nameEditor.isShowing())
        nameEditor.grabKeyboardFocus();
}

void ManagePresetsComponent::initPresetName()
{
    presetName = processor->getProgramName (processor->getCurrentProgram());

    const auto plainName = presetName.removeCharacters ("*");
    nameEditor.setText (plainName, false);
    nameEditor.setHighlightedRegion ({ 0, plainName.length() });
}

juce::String ManagePresetsComponent::getPresetName()
{
    if (! nameEditor.isEmpty())
        presetName = nameEditor.getText();

    return presetName;
}

void ManagePresetsComponent::textEditorReturnKeyPressed (juce::TextEditor&)
{
    // The key arrives by a message: a second one can still be on its way when the panel has closed.
    if (isVisible() && mainEditor != nullptr)
        mainEditor->saveUserPreset();
}

void ManagePresetsComponent::textEditorEscapeKeyPressed (juce::TextEditor&)
{
    initPresetName();
    focusNameEditor();
}

void ManagePresetsComponent::buttonClicked (juce::Button* button)
{
    if (mainEditor == nullptr)
        return;

    if (button == saveButton.get())
        mainEditor->saveUserPreset();
    else if (button == cancelButton.get())
        mainEditor->cancelUserPresetSaving();
}

/** A copy: whoever else paints with the shared font sets it to a height of their own. */
juce::Font ManagePresetsComponent::fontAtCurrentHeight() const
{
    return (panelFont != nullptr ? *panelFont : juce::Font()).withHeight (fontHeight * panelHeight);
}

void ManagePresetsComponent::resized()
{
    panelWidth = static_cast<float> (getWidth());
    panelHeight = static_cast<float> (getHeight());

    nameEditor.applyFontToAllText (fontAtCurrentHeight());
    nameEditor.setBoundsRelative (0.05f, 0.25f, 0.9f, 0.22f);
    saveButton->setBoundsRelative (0.05f, 0.7f, 0.425f, 0.2f);
    cancelButton->setBoundsRelative (0.525f, 0.7f, 0.425f, 0.2f);
}

void ManagePresetsComponent::paint (juce::Graphics& g)
{
    // Without a parent JUCE would ask the display, which need not exist.
    const auto* parent = getParentComponent();
    const float corner = parent != nullptr ? cornerSize * static_cast<float> (parent->getHeight()) : 0.0f;
    const auto area = getLocalBounds().toFloat();

    g.setFont (fontAtCurrentHeight());
    g.setColour (juce::Colours::black);
    g.fillRoundedRectangle (area, corner);
    g.setColour (juce::Colours::white.withAlpha (frameAlpha));
    g.fillRoundedRectangle (area.reduced (frameInset * panelHeight), corner);

    g.setColour (juce::Colours::darkgrey);
    g.drawFittedText ("Preset Name:",
                      juce::Rectangle<float> (captionX * panelWidth,
                                              captionY * panelWidth,
                                              captionWidth * panelWidth,
                                              captionHeight * panelWidth)
                          .toNearestInt(),
                      juce::Justification::topLeft,
                      1,
                      1.0f);
}
