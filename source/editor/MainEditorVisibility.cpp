// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Which controls show in which state, and where they lie.

#include "InfoComponent.h"
#include "MainEditorComponent.h"
#include "PanelTables.h"
#include "presets/DisplayHeight.h"

namespace
{
/** Places a component in fractions of its parent. */
void place (juce::Component& component, const RelativeBounds& bounds)
{
    const auto& [x, y, width, height] = bounds;
    component.setBoundsRelative (x, y, width, height);
}

constexpr float bodyFontHeight = 0.06f; // of the panel's height

// The value text below a knob.
constexpr float textBoxWidth = 0.2f;   // of the panel's width
constexpr float textBoxHeight = 0.06f; // of the panel's height
} // namespace

bool MainEditorComponent::isShown (ShownWhen when) const
{
    if (when == ShownWhen::always)
        return true;

    const bool notResizing = isStereoConfig && ! isResizing;
    const bool notSaving = notResizing && ! isSavingPreset;
    const bool notBypassed = notSaving && ! bypassOn;
    const bool fullyOn = notBypassed && ! muteAllOn;

    switch (when)
    {
        case ShownWhen::notResizing:
            return notResizing;
        case ShownWhen::notSaving:
            return notSaving;
        case ShownWhen::notBypassed:
            return notBypassed;
        case ShownWhen::fullyOn:
            return fullyOn;
        case ShownWhen::midIsMuted:
            return fullyOn && muteMidOn;
        case ShownWhen::inExpertMode:
            return fullyOn && expertMode;
        case ShownWhen::always:
            break;
    }

    return true;
}

void MainEditorComponent::applyVisibility (juce::Component* component, ShownWhen when)
{
    if (component != nullptr && when != ShownWhen::always)
        component->setVisible (isShown (when));
}

void MainEditorComponent::updateVisibilityOfAllComponents()
{
    using Tables = PanelTables;

    for (const auto& row : Tables::displays)
        applyVisibility (row.component (*this), row.shown);

    // The saving panel has its own say in all other states.
    if (isResizing || (isSavingPreset && isStereoConfig))
        managePresetsComponent->setVisible (! isResizing);

    for (const auto& row : Tables::textButtons)
        applyVisibility (&(this->*row.button), row.shown);

    for (const auto& row : Tables::imageButtons)
        applyVisibility ((this->*row.button).get(), row.shown);

    applyVisibility (settingsPopupButton.get(), Tables::settingsPopupButton.shown);

    for (const auto& row : Tables::sliders)
        applyVisibility ((this->*row.slider).get(), row.shown);

    for (const auto& row : Tables::labels)
        applyVisibility (row.label (*this), row.shown);

    channelNameLabel->setEditable (isShown (ShownWhen::notSaving), false, false);
    updatePhaseAlignSideSignalButton();
    updateVisibilityOfExpertOptions();
}

void MainEditorComponent::updatePhaseAlignSideSignalButton()
{
    applyVisibility (&alignPhaseButton, PanelTables::alignPhaseButton.shown);
}

void MainEditorComponent::updateVisibilityOfExpertOptions()
{
    easyModeButton.setToggleState (! expertMode, juce::dontSendNotification);
    expertModeButton.setToggleState (expertMode, juce::dontSendNotification);

    for (const auto& row : PanelTables::groups)
        applyVisibility (&(this->*row.group), ShownWhen::inExpertMode);

    repaintIfPictureChanged();
}

void MainEditorComponent::setStereoConfig (bool canBeProcessed)
{
    isStereoConfig = canBeProcessed;
    updateVisibilityOfAllComponents();
}

MainEditorComponent::Picture MainEditorComponent::currentPicture() const
{
    return { isStereoConfig, isResizing, isSavingPreset, bypassOn,      muteAllOn,
             expertMode,     monoOn,     safeBassOn,     hasChannelName };
}

void MainEditorComponent::repaintIfPictureChanged()
{
    // Every poll in which any parameter moved comes through here.
    if (const auto picture = currentPicture(); picture != shownPicture)
    {
        shownPicture = picture;
        repaint();
    }
}

void MainEditorComponent::resized()
{
    desktopHeight = getMainDisplayUserHeight();
    panelHeight = static_cast<float> (getHeight());
    panelScale = 2.0f * panelHeight / static_cast<float> (desktopHeight);
    mainFont->setHeight (bodyFontHeight * panelHeight);

    infoComponent->setBounds (getLocalBounds());
    place (*settingsPopupButton, PanelTables::settingsPopupButton.bounds);

    for (const auto& row : PanelTables::labels)
        place (*row.label (*this), row.bounds);

    for (const auto& row : PanelTables::displays)
        place (*row.component (*this), row.bounds);

    place (*managePresetsComponent, PanelTables::managePresetsBounds);

    if (layoutManager != nullptr)
        layoutManager->setNewHeightAndUpdateAllComponentBounds (panelHeight);

    for (const auto& row : PanelTables::groups)
        place (this->*row.group, row.bounds);

    for (const auto& row : PanelTables::toggles)
        place (this->*row.toggle, row.bounds);

    place (alignPhaseButton, PanelTables::alignPhaseButton.bounds);

    for (const auto& row : PanelTables::sliders)
    {
        auto* slider = (this->*row.slider).get();

        if (slider == nullptr)
            continue;

        place (*slider, row.bounds);

        if (row.textBox != juce::Slider::NoTextBox)
            setKnobTextBox (*slider, row.parameter == ParameterId::safeBassFreq && ! safeBassOn);
    }
}

void MainEditorComponent::setKnobTextBox (CrzRotarySlider& slider, bool isReadOnly)
{
    slider.setTextBoxStyle (juce::Slider::TextBoxBelow,
                            isReadOnly,
                            static_cast<int> (panelWidth() * textBoxWidth),
                            static_cast<int> (textBoxHeight * panelHeight));
}

float MainEditorComponent::panelWidth() const noexcept
{
    return panelAspectRatio * panelHeight;
}
