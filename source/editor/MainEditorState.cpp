// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// What changes on the panel together with a parameter, a name, the history or the colour scheme.

#include "CrzQ7Colours.h"
#include "CrzQ7LookAndFeelV1.h"
#include "InfoComponent.h"
#include "MainEditorComponent.h"
#include "PanelTables.h"
#include "WideLoomAudioProcessorEditor.h"
#include "engine/WideLoomAudioProcessor.h"

namespace
{
constexpr const char* noChannelName = "No Channel Name";
constexpr float unnamedChannelShade = 0.2f;

/** juce::Label closes an open text entry whatever it is given; the same text again is no reason to. */
void setTextIfNew (juce::Label& label, const juce::String& text)
{
    if (label.getText() != text)
        label.setText (text, juce::dontSendNotification);
}
} // namespace

//==================================================================================================
// What follows a parameter

void MainEditorComponent::setMonoState (bool isOn)
{
    monoOn = isOn;
    stereoWidthSlider->setEnabled (! isOn);
    stereoWidthLabel->setEnabled (! isOn);
    stereoWidthLabel->setEditable (false, ! isOn, true);

    const auto shownWidth = isOn ? 0.0f : stereoWidth;
    stereoWidthSlider->setValue (shownWidth, juce::dontSendNotification);
    stereoComponent->setStereoWidth (shownWidth);
    setNewStereoWidthLabelValue (shownWidth);
    stereoWidthLabel->setTooltip (isOn ? juce::String ("STEREO WIDTH: is 0%, because MONO is on ...")
                                       : stereoWidthTooltip);
    repaintIfPictureChanged();
}

void MainEditorComponent::setNewStereoWidth (float value)
{
    stereoWidth = value;
    stereoComponent->setStereoWidth (value);

    if (! monoOn)
        setNewStereoWidthLabelValue (value);
}

void MainEditorComponent::setNewStereoWidthLabelValue (float value)
{
    showValueText (ParameterId::stereoWidth, value, *stereoWidthLabel);
}

void MainEditorComponent::setNewPan (float value)
{
    stereoComponent->setPan (value);
    showValueText (ParameterId::pan, value, *panLabel);
}

void MainEditorComponent::showValueText (ParameterId id, float value, juce::Label& label)
{
    if (parameterManager == nullptr)
        return;

    const auto* parameter = parameterManager->getParameter (rowOf (id).name);

    if (const auto* mapper = parameter != nullptr ? parameter->getValueMapper() : nullptr)
        setTextIfNew (label, mapper->normed2RealValueAsString (value));
}

void MainEditorComponent::setSafeBassState (bool isOn)
{
    safeBassOn = isOn;

    // In this order: enabling a slider makes its text box take single clicks, and setting the style undoes
    // that.
    safeBassFreqSlider->setEnabled (isOn);
    setKnobTextBox (*safeBassFreqSlider, ! isOn);

    safeBassFreqSlider->setValue (isOn ? safeBassFreq : 0.0f, juce::dontSendNotification);
    repaintIfPictureChanged();
}

void MainEditorComponent::setBypassState (bool isOn)
{
    bypassOn = isOn;

    if (stereoComponent != nullptr)
        stereoComponent->setBypassState (isOn);

    updateVisibilityOfAllComponents();
}

void MainEditorComponent::setMuteAllState (bool isOn)
{
    muteAllOn = isOn;

    if (stereoComponent != nullptr)
        stereoComponent->setMuteAllState (isOn);

    updateVisibilityOfAllComponents();
}

void MainEditorComponent::setMuteMidState (bool isOn)
{
    muteMidOn = isOn;
    updatePhaseAlignSideSignalButton();
}

//==================================================================================================
// Names, undo, expert mode and colours

void MainEditorComponent::setChannelName (const juce::String& name)
{
    hasChannelName = name.isNotEmpty() && name != noChannelName;

    const auto shownName = hasChannelName ? name : juce::String (noChannelName);
    processor->setChannelName (shownName);
    setTextIfNew (*channelNameLabel, shownName);
    channelNameLabel->setColour (juce::Label::textColourId, channelNameColour());
    repaintIfPictureChanged();
}

juce::Colour MainEditorComponent::channelNameColour() const
{
    return hasChannelName ? juce::Colours::black : CrzQ7Colours::q7mainColour.darker (unnamedChannelShade);
}

void MainEditorComponent::updatePresetNameFromPluginProcessor()
{
    // Refreshing would throw away what the user is typing; the poll comes back to it.
    presetNameIsStale = presetNameLabel->isBeingEdited();

    if (! presetNameIsStale)
        presetNameLabel->setText (processor->getCurrentPresetName(), juce::dontSendNotification);
}

void MainEditorComponent::setUndoButtons (bool canUndo, bool canRedo)
{
    undoButton->setEnabled (canUndo);
    redoButton->setEnabled (canRedo);

    if (infoComponent != nullptr)
        infoComponent->updateAllButtons();
}

void MainEditorComponent::updateUndoButtons()
{
    setUndoButtons (processor->canUndo(), processor->canRedo());
}

void MainEditorComponent::updateExpertModeFromPluginProcessor()
{
    applyExpertMode (processor->getExpertMode());
}

void MainEditorComponent::setInputVuMeterVisuals (CrzStereoVuVisuals reading)
{
    inputVuMeter->setStereoVuVisuals (reading);
}

void MainEditorComponent::setOutputVuMeterVisuals (CrzStereoVuVisuals reading)
{
    outputVuMeter->setStereoVuVisuals (reading);
}

void MainEditorComponent::setColourSchemeBrightness (float brightness)
{
    colourSchemeBrightness = brightness;
    lightGrey = juce::Colours::darkgrey.brighter (brightness);

    if (editor != nullptr)
        if (auto* look = editor->getLookAndFeel())
            look->setCurrentLightGrey (lightGrey);

    const auto buttonColour = CrzQ7Colours::q7darkGrey.brighter (brightness);

    for (const auto& row : PanelTables::textButtons)
        changeButtonNormalColour (&(this->*row.button), buttonColour);

    changeButtonNormalColour (nextButton.get(), buttonColour);
    changeButtonNormalColour (prevButton.get(), buttonColour);

    const auto knobColour = brightness == 0.0f ? juce::Colours::black : CrzQ7Colours::q7darkGrey;

    for (const auto& row : PanelTables::sliders)
        if (auto* slider = (this->*row.slider).get())
            slider->setColour (juce::Slider::backgroundColourId, knobColour);

    processor->setCurrentColourSchemeBrightness (brightness);
    repaint();
}

void MainEditorComponent::changeButtonNormalColour (juce::Button* button, juce::Colour colour)
{
    if (button != nullptr)
        button->setColour (juce::TextButton::buttonColourId, colour);
}
