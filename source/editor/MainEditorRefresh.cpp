// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// How the processor's state reaches the controls.

#include "InfoComponent.h"
#include "MainEditorComponent.h"
#include "PanelTables.h"
#include "engine/WideLoomAudioProcessor.h"

#include <cmath>

namespace
{
constexpr double menuWatchSeconds = 1.0;

constexpr bool isSwitchedOn (float value) noexcept
{
    constexpr float threshold = 0.5f;
    return value > threshold;
}

/** The rows of a choice parameter stand by value: each but the last holds below the next row's value. */
bool standsFor (const PanelTables::ToggleRow& row, const PanelTables::ToggleRow* next, float value)
{
    const bool isFirst = row.value == choice::first;
    const bool isLast = next == nullptr || next->parameter != row.parameter;
    return (isFirst || value >= row.value) && (isLast || value < next->value);
}

bool isTypedInto (const juce::Slider& slider)
{
    for (auto* child : slider.getChildren())
        if (auto* label = dynamic_cast<juce::Label*> (child); label != nullptr && label->isBeingEdited())
            return true;

    return false;
}

/** Sets a knob by way of another value, so that its text is made anew. A text that is being typed stays open
    as long as the knob shows the value already. */
void setByWayOfAnotherValue (juce::Slider& slider, float value)
{
    if (isTypedInto (slider)
        && std::abs (slider.getValue() - static_cast<double> (value)) < slider.getInterval())
        return;

    slider.setValue (1.0f - value, juce::dontSendNotification);
    slider.setValue (value, juce::dontSendNotification);
}
} // namespace

//==================================================================================================
// The poll

void MainEditorComponent::timerCallback()
{
    poll (juce::Time::getCurrentTime());
}

void MainEditorComponent::poll (juce::Time now)
{
    if (parameterManager != nullptr)
    {
        if (parameterManager->getParameterNeedsToBeUpdatedInEditor())
            for (int index = 0; index < parameterManager->getNumberOfParameters(); ++index)
                if (parameterManager->getParameter (index)->hasFlagChanged())
                    setEditorParameterValue (index, parameterManager->getParameterValue (index));

        if (parameterManager->getSampleRateNeedsToBeUpdatedInEditor() && infoComponent->isVisible())
            infoComponent->repaint();

        if (parameterManager->getPresetNameNeedsToBeUpdatedInEditor() || presetNameIsStale)
            updatePresetNameFromPluginProcessor();

        if (parameterManager->getUndoButtonsNeedToBeUpdatedInEditor())
            updateUndoButtons();
    }

    if (! isResizing)
    {
        infoLine.tick (now);
        showInfoText();
    }

    watchSettingsPopupMenu (now);
}

void MainEditorComponent::setNewInfoText (const juce::String& text, bool important)
{
    infoLine.setText (text, important, juce::Time::getCurrentTime());
    showInfoText();
}

void MainEditorComponent::showInfoText()
{
    bottomInfoLabel->setText (infoLine.getText(), juce::dontSendNotification);
}

void MainEditorComponent::watchSettingsPopupMenu (juce::Time now)
{
    if (! settingsPopupMenuIsActive
        || now <= settingsPopupCheckTime + juce::RelativeTime::seconds (menuWatchSeconds))
        return;

    if (componentUnderMouseIsOK())
    {
        settingsPopupCheckTime = now;
    }
    else
    {
        juce::PopupMenu::dismissAllActiveMenus();
        settingsPopupMenuIsActive = false;
    }
}

bool MainEditorComponent::componentUnderMouseIsOK() const
{
    return belongsToMenu (juce::Desktop::getInstance().findComponentAt (juce::Desktop::getMousePosition()));
}

bool MainEditorComponent::belongsToMenu (const juce::Component* component)
{
    while (component != nullptr && component->getName().isEmpty()
           && component->getParentComponent() != nullptr)
        component = component->getParentComponent();

    // JUCE gives this name to the window of every menu and sub-menu.
    return component != nullptr && component->getName() == "menu";
}

//==================================================================================================
// Parameters

void MainEditorComponent::setEditorParameterValue (int index, float value)
{
    if (index < 0 || index >= numParameters)
        return;

    const auto id = static_cast<ParameterId> (index);

    for (const auto& row : PanelTables::switches)
    {
        if (row.parameter == id)
        {
            const bool isOn = isSwitchedOn (value);
            row.button (*this)->setToggleState (isOn, juce::dontSendNotification);

            if (row.setState != nullptr)
                (this->*row.setState) (isOn);

            return;
        }
    }

    if (rowOf (id).shape == ParameterShape::continuous)
        showContinuousValue (id, value);
    else
        showChoice (id, value);
}

void MainEditorComponent::showChoice (ParameterId id, float value)
{
    const auto& rows = PanelTables::toggles;

    // All go off first, since a radio button cannot be switched off by another's silent setting.
    for (const auto& row : rows)
        if (row.parameter == id)
            (this->*row.toggle).setToggleState (false, juce::dontSendNotification);

    for (size_t i = 0; i < rows.size(); ++i)
        if (rows[i].parameter == id
            && standsFor (rows[i], i + 1 < rows.size() ? &rows[i + 1] : nullptr, value))
            (this->*rows[i].toggle).setToggleState (true, juce::dontSendNotification);
}

void MainEditorComponent::showContinuousValue (ParameterId id, float value)
{
    switch (id)
    {
        case ParameterId::stereoWidth:
            stereoWidth = value;

            if (! monoOn)
            {
                stereoWidthSlider->setValue (value, juce::dontSendNotification);
                setNewStereoWidth (value);
            }
            break;

        case ParameterId::pan:
            panSlider->setValue (value, juce::dontSendNotification);
            setNewPan (value);
            break;

        case ParameterId::inputGain:
            setByWayOfAnotherValue (*inputGainSlider, value);
            break;

        case ParameterId::outputGain:
            setByWayOfAnotherValue (*outputGainSlider, value);
            break;

        case ParameterId::safeBassFreq:
            safeBassFreq = value;

            if (safeBassOn)
                setByWayOfAnotherValue (*safeBassFreqSlider, value);
            break;

        default:
            break;
    }
}

void MainEditorComponent::updateAllParameters()
{
    if (parameterManager != nullptr)
        for (int index = 0; index < parameterManager->getNumberOfParameters(); ++index)
            setEditorParameterValue (index, parameterManager->getParameterValue (index));
}

void MainEditorComponent::updateAll()
{
    updateAllParameters();
    updatePresetNameFromPluginProcessor();
    setChannelName (processor->getChannelName());
    updateExpertModeFromPluginProcessor();
    setColourSchemeBrightness (processor->getCurrentColourSchemeBrightness());
    isStereoConfig = processor->checkInputOutputConfig();
    repaint();
    updateVisibilityOfAllComponents();
    updateUndoButtons();
}
