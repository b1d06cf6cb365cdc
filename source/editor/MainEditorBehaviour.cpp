// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// How the user's actions reach the processor.

#include "MainEditorComponent.h"
#include "PanelTables.h"
#include "engine/WideLoomAudioProcessor.h"

namespace
{
JUCE_BEGIN_IGNORE_WARNINGS_GCC_LIKE ("-Wdeprecated-declarations")
// Index-based calls are deprecated in JUCE but are what this effect's table needs.
void tellHostThatGestureBegins (juce::AudioProcessor& processor, int index)
{
    processor.beginParameterChangeGesture (index);
}

void tellHostThatGestureEnds (juce::AudioProcessor& processor, int index)
{
    processor.endParameterChangeGesture (index);
}
JUCE_END_IGNORE_WARNINGS_GCC_LIKE

/** The parameter index that a slider drives; -1 for none. */
int parameterIndexOf (juce::Slider* slider)
{
    const auto* knob = dynamic_cast<CrzRotarySlider*> (slider);
    const auto* parameter = knob != nullptr ? knob->getParameter() : nullptr;
    return parameter != nullptr ? parameter->getIndex() : -1;
}
} // namespace

//==================================================================================================
// Buttons

void MainEditorComponent::buttonClicked (juce::Button* button)
{
    if (! handleCommand (button) && ! handleChoice (button))
        handleSwitch (button);
}

bool MainEditorComponent::handleCommand (juce::Button* button)
{
    if (button == nextButton.get())
    {
        processor->loadNextPreset();
        updateAll();
    }
    else if (button == prevButton.get())
    {
        processor->loadPrevPreset();
        updateAll();
    }
    else if (button == undoButton.get())
    {
        processor->undoLastParameterChange();
        updateAll();
    }
    else if (button == redoButton.get())
    {
        processor->redoLastParameterChange();
        updateAll();
    }
    else if (button == &saveButton)
    {
        showManagePresetsComponent();
    }
    else if (button == settingsPopupButton.get())
    {
        createAndShowSettingsPopupMenu();
    }
    else if (button == &easyModeButton || button == &expertModeButton)
    {
        // The button of the pair that goes off reports a click too.
        if (button->getToggleState())
            applyExpertMode (button == &expertModeButton);
    }
    else
    {
        return false;
    }

    return true;
}

bool MainEditorComponent::handleChoice (juce::Button* button)
{
    for (const auto& row : PanelTables::toggles)
    {
        if (button == &(this->*row.toggle))
        {
            // The choice that goes off reports a click before the new one does; sending it would write the
            // old value once more.
            if (button->getToggleState())
                processor->setParamAndNotifyHost (rowOf (row.parameter).name, row.value, true);

            return true;
        }
    }

    return false;
}

bool MainEditorComponent::handleSwitch (juce::Button* button)
{
    for (const auto& row : PanelTables::switches)
    {
        if (button != row.button (*this))
            continue;

        const bool isOn = button->getToggleState();

        if (row.parameter == ParameterId::muteMid)
            toggleMuteMid();
        else if (row.parameter == ParameterId::muteSide)
            toggleMuteSide();
        else
            processor->setParamAndNotifyHost (rowOf (row.parameter).name, isOn ? 1.0f : 0.0f, true);

        if (row.isWrittenAlone && row.setState != nullptr)
            (this->*row.setState) (isOn);

        return true;
    }

    return false;
}

void MainEditorComponent::applyExpertMode (bool isExpert)
{
    expertMode = isExpert;
    processor->setExpertMode (isExpert);
    updateVisibilityOfExpertOptions();
}

void MainEditorComponent::toggleMuteMid()
{
    const bool isOn = muteMidButton.getToggleState();
    processor->setMuteMsOption (isOn ? MuteMsOption::muteMidOnly : MuteMsOption::muteNothing);
    setMuteMidState (isOn);
    muteSideButton.setToggleState (false, juce::dontSendNotification);
}

void MainEditorComponent::toggleMuteSide()
{
    const bool isOn = muteSideButton.getToggleState();
    processor->setMuteMsOption (isOn ? MuteMsOption::muteSideOnly : MuteMsOption::muteNothing);

    if (muteMidButton.getToggleState())
    {
        muteMidButton.setToggleState (false, juce::dontSendNotification);
        setMuteMidState (false);
    }
}

//==================================================================================================
// Knobs

void MainEditorComponent::sliderValueChanged (juce::Slider* slider)
{
    for (const auto& row : PanelTables::sliders)
    {
        if (slider != (this->*row.slider).get())
            continue;

        const auto value = static_cast<float> (slider->getValue());
        processor->setParamAndNotifyHost (rowOf (row.parameter).name, value, false);

        if (row.parameter == ParameterId::stereoWidth)
            setNewStereoWidth (value);
        else if (row.parameter == ParameterId::pan)
            setNewPan (value);
        else if (row.parameter == ParameterId::safeBassFreq)
            safeBassFreq = value;

        return;
    }
}

void MainEditorComponent::sliderDragStarted (juce::Slider* slider)
{
    const auto index = parameterIndexOf (slider);

    if (index < 0 || index >= numParameters || openGestures.test (static_cast<size_t> (index)))
        return;

    openGestures.set (static_cast<size_t> (index));
    tellHostThatGestureBegins (*processor, index);
}

void MainEditorComponent::sliderDragEnded (juce::Slider* slider)
{
    endGesture (parameterIndexOf (slider));
}

void MainEditorComponent::endGesture (int parameterIndex)
{
    if (parameterIndex < 0 || parameterIndex >= numParameters
        || ! openGestures.test (static_cast<size_t> (parameterIndex)))
        return;

    openGestures.reset (static_cast<size_t> (parameterIndex));
    tellHostThatGestureEnds (*processor, parameterIndex);
    processor->beginNewTransaction();
}

void MainEditorComponent::endOpenGestures()
{
    for (int index = 0; index < numParameters; ++index)
        endGesture (index);
}

//==================================================================================================
// Labels

void MainEditorComponent::labelTextChanged (juce::Label* label)
{
    const auto text = label->getText().trim();

    if (label == channelNameLabel.get())
        setChannelName (text);
    else if (label == presetNameLabel.get())
        presetNameTyped (text);
    else if (label == stereoWidthLabel.get())
        valueTyped (ParameterId::stereoWidth, text);
    else if (label == panLabel.get())
        valueTyped (ParameterId::pan, text);
}

void MainEditorComponent::presetNameTyped (const juce::String& text)
{
    const auto clean = presetNameLabel->nameFrom (text);

    if (clean.isEmpty())
    {
        setNewInfoText ("PRESET NAME: new preset name not accepted !!!", true);
        presetNameLabel->setText (processor->getProgramName (0), juce::dontSendNotification);
        return;
    }

    processor->setCurrentPresetNameUndoable (clean);
    presetNameLabel->setText (clean, juce::dontSendNotification);
}

void MainEditorComponent::valueTyped (ParameterId id, const juce::String& text)
{
    const auto* parameter = parameterManager->getParameter (rowOf (id).name);
    const auto* mapper = parameter != nullptr ? parameter->getValueMapper() : nullptr;
    auto* slider = id == ParameterId::pan ? panSlider.get() : stereoWidthSlider.get();

    if (mapper == nullptr || slider == nullptr)
        return;

    const auto value = mapper->string2normedValueAsFloat (text);
    slider->setValue (value, juce::sendNotificationSync);

    if (id == ParameterId::pan)
        setNewPan (value);
    else
        setNewStereoWidth (value);

    processor->beginNewTransaction();
}

void MainEditorComponent::editorShown (juce::Label* label, juce::TextEditor& textEditor)
{
    if (label != channelNameLabel.get())
        return;

    const auto font = textEditor.getFont().withHeight (static_cast<float> (label->getHeight()));
    textEditor.setFont (font);
    textEditor.applyFontToAllText (font);
}
