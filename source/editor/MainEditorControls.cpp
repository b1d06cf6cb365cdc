// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Building the panel: every control, in the order in which they lie above each other.

#include "CrzQ7Colours.h"
#include "CrzQ7LookAndFeelV1.h"
#include "InfoComponent.h"
#include "InfoTexts.h"
#include "MainEditorComponent.h"
#include "PanelTables.h"
#include "WideLoomAudioProcessorEditor.h"
#include "engine/WideLoomAudioProcessor.h"

#include <BinaryData.h>

namespace
{
constexpr int pollIntervalMs = 70;
constexpr int longestPresetName = 39;    // characters
constexpr float sliderStep = 0.0001f;    // normalised
constexpr float imageButtonLight = 0.3f; // of buttons that look the same in both colour schemes
constexpr float fullMeterLevel = 1.0f;   // linear
constexpr float meterGroundAlpha = 0.07f;

std::unique_ptr<juce::Font> makeFont (const char* data, int size)
{
    return std::make_unique<juce::Font> (
        juce::Typeface::createSystemTypefaceFor (data, static_cast<size_t> (size)));
}

std::unique_ptr<juce::Drawable> makeImage (const char* data, int size)
{
    return juce::Drawable::createFromImageData (data, static_cast<size_t> (size));
}

std::unique_ptr<juce::DrawableButton> makeImageButton (const juce::String& name, const juce::Drawable& image)
{
    auto button =
        std::make_unique<juce::DrawableButton> (name, juce::DrawableButton::ImageOnButtonBackground);
    button->setImages (&image);
    button->setColour (juce::TextButton::buttonColourId,
                       CrzQ7Colours::q7darkGrey.brighter (imageButtonLight));
    return button;
}

void setNameEntryColours (juce::Label& label)
{
    label.setColour (juce::TextEditor::backgroundColourId, juce::Colours::white);
    label.setColour (juce::TextEditor::highlightColourId, CrzQ7Colours::q7complementColourA);
    label.setColour (juce::TextEditor::outlineColourId, juce::Colours::black);
    label.setColour (juce::TextEditor::focusedOutlineColourId, juce::Colours::black);
}
} // namespace

MainEditorComponent::MainEditorComponent (WideLoomAudioProcessor* ownerProcessor,
                                          WideLoomAudioProcessorEditor* shell)
    : processor (ownerProcessor),
      editor (shell),
      versionText (versionLineText()),
      infoLine (versionText)
{
    setName ("MainEditorComponent");
    setOpaque (true);
    addMouseListener (this, true);

    if (editor != nullptr)
        layoutManager = editor->getLayoutManager();

    parameterManager = processor->getParameterManager();

    initFonts();
    initSvgElements();
    addSettingsPopupButton();
    addMainLabels();
    addAllTextButtons();
    addAllRadioButtons();
    addLevelMeters();
    addAllSliders();
    addStereoComponent();
    addAllDrawableButtons();
    addManagePresetsComponent();
    addInfoComponent();

    startTimer (pollIntervalMs);
    updateAllParameters();
    setChannelName (processor->getChannelName());
    updateExpertModeFromPluginProcessor();
    setColourSchemeBrightness (processor->getCurrentColourSchemeBrightness());
    isStereoConfig = processor->checkInputOutputConfig();
    updateVisibilityOfAllComponents();
}

MainEditorComponent::~MainEditorComponent()
{
    stopTimer();
    removeMouseListener (this);

    // A knob that dies in mid-drag still reports the end of the drag, but no longer as the knob that it was.
    for (const auto& row : PanelTables::sliders)
        if (auto* slider = (this->*row.slider).get())
            slider->removeListener (this);

    // A text entry that is still open must not report to a panel that is half gone.
    for (const auto& row : PanelTables::labels)
    {
        auto& label = *row.label (*this);
        label.removeListener (this);
        label.hideEditor (true);
    }

    endOpenGestures();
}

void MainEditorComponent::initFonts()
{
    mainFont = makeFont (BinaryData::kenyan_coffee_rg_ttf, BinaryData::kenyan_coffee_rg_ttfSize);
    italicFont = makeFont (BinaryData::kenyan_coffee_rg_it_ttf, BinaryData::kenyan_coffee_rg_it_ttfSize);
}

void MainEditorComponent::initSvgElements()
{
    using namespace BinaryData;
    dorianVellLogo = makeImage (LOGO_Dorian_Vell_ACTUAL_svg, LOGO_Dorian_Vell_ACTUAL_svgSize);
    undoImage = makeImage (UndoCurvedArrow_svg, UndoCurvedArrow_svgSize);
    redoImage = makeImage (RedoCurvedArrow_svg, RedoCurvedArrow_svgSize);
    dropDownImage = makeImage (DropDownArrow_svg, DropDownArrow_svgSize);
    quorvexLogo = makeImage (LOGO_QUORVEXDSP_ONLY_Q7_01_svg, LOGO_QUORVEXDSP_ONLY_Q7_01_svgSize);
    nextImage = makeImage (PlayButton_svg, PlayButton_svgSize);
    prevImage = makeImage (PlayButtonRotated180_svg, PlayButtonRotated180_svgSize);
}

void MainEditorComponent::addSettingsPopupButton()
{
    settingsPopupButton = makeImageButton ("SettingsPopupButton", *dropDownImage);
    settingsPopupButton->setComponentID (PanelTables::settingsPopupButton.id);
    settingsPopupButton->setTooltip ("click to open the popup menu !");
    settingsPopupButton->addListener (this);
    addAndMakeVisible (*settingsPopupButton);
}

void MainEditorComponent::addMainLabels()
{
    presetNameLabel = std::make_unique<CrzPresetNameLabel> (
        longestPresetName, juce::String(), juce::String(), processor->getAllowedCharsForPresetNames());

    for (auto* label : { &titleLabel, &bottomInfoLabel, &channelNameLabel, &stereoWidthLabel, &panLabel })
        *label = std::make_unique<juce::Label>();

    for (const auto& row : PanelTables::labels)
    {
        auto& label = *row.label (*this);
        label.setComponentID (row.id);
        label.setName (row.name);
        label.setText (row.text != nullptr ? juce::String (row.text) : versionText,
                       juce::dontSendNotification);
        label.setTooltip (row.tooltip != nullptr ? juce::String (row.tooltip)
                                                 : versionText + " : Click for more infos !");
        label.setJustificationType (row.justification);
        label.setEditable (row.editOnSingleClick, row.editOnDoubleClick, row.lossOfFocusDiscards);
        addAndMakeVisible (label);
    }

    setNameEntryColours (*channelNameLabel);
    setNameEntryColours (*presetNameLabel);
    presetNameLabel->setColour (juce::Label::textColourId, juce::Colours::darkgrey);
    channelNameLabel->addListener (this);
    presetNameLabel->addListener (this);

    addSliderLabel (stereoWidthLabel.get());
    addSliderLabel (panLabel.get());
    stereoWidthTooltip = stereoWidthLabel->getTooltip();

    updatePresetNameFromPluginProcessor();
}

void MainEditorComponent::addAllTextButtons()
{
    for (const auto& row : PanelTables::textButtons)
    {
        auto& button = this->*row.button;
        const auto& [x, y, width, height] = row.bounds;
        addButton (&button, x, y, width, height, row.align);
        button.setComponentID (row.id);
        button.setButtonText (row.caption);
        button.setTooltip (row.tooltip);

        if (row.radioGroup != 0)
            button.setRadioGroupId (row.radioGroup, juce::dontSendNotification);
    }

    saveButton.setClickingTogglesState (false);
}

void MainEditorComponent::addAllRadioButtons()
{
    for (const auto& row : PanelTables::groups)
    {
        auto& group = this->*row.group;
        group.setComponentID (row.id);
        addAndMakeVisible (group);
    }

    for (const auto& row : PanelTables::toggles)
    {
        auto& toggle = this->*row.toggle;
        toggle.setComponentID (row.id);
        toggle.setButtonText (row.caption);
        toggle.setTooltip (row.tooltip);
        toggle.setClickingTogglesState (true);
        (this->*row.group).addAndMakeVisible (toggle);
        toggle.setRadioGroupId (row.radioGroup);
        toggle.setToggleState (row.startsOn, juce::dontSendNotification);
        toggle.addListener (this);
    }

    alignPhaseButton.setComponentID (PanelTables::alignPhaseButton.id);
    alignPhaseButton.setButtonText ("align phase");
    alignPhaseButton.setTooltip ("ALIGN PHASE: phase alignment for SIDE signal while MID is muted");
    alignPhaseButton.setClickingTogglesState (true);
    alignPhaseButton.addListener (this);
    addAndMakeVisible (alignPhaseButton);
}

void MainEditorComponent::addLevelMeters()
{
    for (auto* meter : { &inputVuMeter, &outputVuMeter })
    {
        *meter = std::make_unique<CrzQ7StereoVuMeterComponent> (
            fullMeterLevel, juce::Colours::black.withAlpha (meterGroundAlpha));
        addAndMakeVisible (**meter);
    }
}

void MainEditorComponent::addAllSliders()
{
    for (const auto& row : PanelTables::sliders)
    {
        if (auto* parameter = parameterManager->getParameter (rowOf (row.parameter).name))
        {
            auto& slider = this->*row.slider;
            slider = addRotarySlider (parameter, row.textBox, row.tooltip);
            slider->setComponentID (row.id);
        }
    }
}

void MainEditorComponent::addStereoComponent()
{
    const auto mapperOf = [this] (ParameterId id)
    {
        auto* parameter = parameterManager->getParameter (rowOf (id).name);
        return parameter != nullptr ? parameter->getValueMapper() : nullptr;
    };

    stereoComponent = std::make_unique<StereoComponent> (
        mainFont.get(), mapperOf (ParameterId::stereoWidth), mapperOf (ParameterId::pan));
    stereoComponent->setTooltip ("this shows the stereo field");

    // At the back: the numbers behind two of its captions are labels of the panel, to be read and clicked.
    constexpr int furthestBack = 0;
    addAndMakeVisible (*stereoComponent, furthestBack);

    for (const auto& row : PanelTables::displays)
        row.component (*this)->setComponentID (row.id);
}

void MainEditorComponent::addAllDrawableButtons()
{
    for (const auto& row : PanelTables::imageButtons)
    {
        auto& button = this->*row.button;
        button = makeImageButton (row.name, *(this->*row.image));
        button->setComponentID (row.id);
        button->setTooltip (row.tooltip);
        button->addListener (this);
        addAndMakeVisible (*button);

        if (layoutManager != nullptr)
        {
            const auto& [x, y, width, height] = row.bounds;
            layoutManager->addComponent (button.get(), x, y, width, height, row.align);
        }
    }

    setUndoButtons (false, false);
}

void MainEditorComponent::addManagePresetsComponent()
{
    managePresetsComponent = std::make_unique<ManagePresetsComponent> (processor, this, mainFont.get());
    managePresetsComponent->setComponentID ("managePresetsComponent");
    addChildComponent (*managePresetsComponent);
}

void MainEditorComponent::addInfoComponent()
{
    infoComponent = std::make_unique<InfoComponent> (processor, this, mainFont.get());
    infoComponent->setComponentID ("infoComponent");
    addChildComponent (*infoComponent);
}

void MainEditorComponent::addButton (
    juce::Button* button, float x, float y, float width, float height, CrzLayoutManager::Align align)
{
    addAndMakeVisible (button);
    button->setClickingTogglesState (true);
    button->setColour (juce::TextButton::buttonColourId,
                       CrzQ7Colours::q7darkGrey.brighter (colourSchemeBrightness));
    button->setColour (juce::TextButton::buttonOnColourId, CrzQ7Colours::q7complementColourA);
    button->addListener (this);

    if (layoutManager != nullptr)
        layoutManager->addComponent (button, x, y, width, height, align);
}

std::unique_ptr<CrzRotarySlider> MainEditorComponent::addRotarySlider (
    CrzParameter* parameter, juce::Slider::TextEntryBoxPosition textBoxPosition, const juce::String& tooltip)
{
    auto slider = std::make_unique<CrzRotarySlider> (parameter);

    // Without modifiers, since JUCE would else reset on an Alt-click too.
    slider->setDoubleClickReturnValue (true, parameter->getDefaultValue(), juce::ModifierKeys());
    slider->setTextBoxStyle (textBoxPosition, true, 0, 0);
    slider->setRange (0.0, 1.0, sliderStep);
    slider->setTooltip (tooltip);
    slider->setValue (parameter->getValue(), juce::dontSendNotification);
    slider->setColour (juce::Slider::textBoxBackgroundColourId, juce::Colours::white);
    slider->setColour (juce::Slider::textBoxHighlightColourId, CrzQ7Colours::q7complementColourA);
    slider->addListener (this);
    addAndMakeVisible (*slider);
    return slider;
}

void MainEditorComponent::addSliderLabel (juce::Label* label)
{
    label->setColour (juce::Label::textColourId, CrzQ7Colours::q7complementColourA);
    label->setColour (juce::Label::textWhenEditingColourId, juce::Colours::black);
    label->setColour (juce::Label::outlineWhenEditingColourId, CrzQ7Colours::q7complementColourA);
    label->setColour (juce::TextEditor::backgroundColourId, juce::Colours::white);
    label->setColour (juce::TextEditor::highlightColourId, CrzQ7Colours::q7complementColourA);
    label->setColour (juce::TextEditor::focusedOutlineColourId, CrzQ7Colours::q7complementColourA);
    label->setEditable (false, true, true);
    label->addListener (this);
    addAndMakeVisible (label);
}
