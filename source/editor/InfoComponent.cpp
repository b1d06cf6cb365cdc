// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Tables of the info screen's buttons and texts, and the painting of all of it.

#include "InfoComponent.h"

#include "CrzQ7Colours.h"
#include "InfoTexts.h"
#include "MainEditorComponent.h"

#include "engine/WideLoomAudioProcessor.h"
#include <BinaryData.h>

namespace
{
constexpr float aspectRatio = 1.5f;
constexpr float buttonBrightening = 0.3f;
constexpr float defaultHeightRatio = 0.5f; ///< of the display; what "RESET DEFAULT SIZE" goes back to

// In heights of the component.
constexpr float creditsFontHeight = 0.07f;
constexpr float smallFontHeight = 0.055f;
constexpr float frameCornerSize = 0.05f;
constexpr float frameThickness = frameCornerSize * 0.3f;

constexpr float frameBrightening = 0.5f;
constexpr float minimumTextScale = 0.7f;

/** x and width in widths of the component, y and height in its heights. */
struct RelativeBounds
{
    float x, y, width, height;

    juce::Rectangle<int> inPixels (float panelHeight) const
    {
        const float panelWidth = panelHeight * aspectRatio;
        return { static_cast<int> (x * panelWidth),
                 static_cast<int> (y * panelHeight),
                 static_cast<int> (width * panelWidth),
                 static_cast<int> (height * panelHeight) };
    }
};

constexpr RelativeBounds creditsBounds { 0.22f, 0.05f, 0.6f, 0.7f };
constexpr RelativeBounds legalBounds { 0.22f, 0.7f, 0.6f, 0.26f };
constexpr RelativeBounds frameBounds { 0.2f, 0.03f, 0.6f, 0.87f };
constexpr RelativeBounds logoBounds { 0.64f, 0.06f, 0.15f, 0.2f };

void place (juce::Component& component, const RelativeBounds& bounds)
{
    component.setBoundsRelative (bounds.x, bounds.y, bounds.width, bounds.height);
}

/** The columns of texts at the two edges. */
struct TextColumn
{
    float x, width, height;
    int justification;
};

constexpr TextColumn sizes { 0.035f, 0.13f, 0.05f, juce::Justification::centred };
constexpr TextColumn facts { 0.82f, 0.18f, 0.02f, juce::Justification::left };

juce::String sizeText (float width, int height)
{
    return juce::String (juce::roundToInt (width)) + "," + juce::String (height);
}

bool heightDiffersFromDefault (const WideLoomAudioProcessor& processor)
{
    return processor.getEditorHeight() != processor.getDefaultEditorHeight();
}
} // namespace

//==================================================================================================

struct InfoComponent::ButtonRow
{
    std::unique_ptr<juce::TextButton> InfoComponent::*button;
    const char* caption;
    RelativeBounds bounds;
    bool (*isEnabled) (const WideLoomAudioProcessor& processor);
    void (*click) (InfoComponent& screen);
};

const InfoComponent::ButtonRow InfoComponent::buttonTable[] = {
    { &InfoComponent::resizeToDefaultButton,
      "RESIZE TO DEFAULT",
      { 0.013f, 0.03f, 0.168f, 0.07f },
      heightDiffersFromDefault,
      [] (InfoComponent& screen)
      {
          screen.mainEditor->resizeToDefault();
          screen.updateAllButtons();
      } },
    { &InfoComponent::setCurrentAsDefaultButton,
      "SET CURRENT AS DEFAULT",
      { 0.013f, 0.26f, 0.168f, 0.14f },
      heightDiffersFromDefault,
      [] (InfoComponent& screen)
      {
          screen.processor->setCurrentAsDefaultEditorDesktopHeightRatio();
          screen.updateAllButtons();
          screen.repaint();
      } },
    { &InfoComponent::resetDefaultSizeButton,
      "RESET DEFAULT SIZE",
      { 0.013f, 0.56f, 0.168f, 0.14f },
      [] (const WideLoomAudioProcessor& processor)
      { return processor.getDefaultEditorDesktopHeightRatio() != defaultHeightRatio; },
      [] (InfoComponent& screen)
      {
          screen.processor->resetDefaultEditorDesktopHeightRatio();
          screen.updateAllButtons();
          screen.repaint();
      } },
    { &InfoComponent::clearUndoHistoryButton,
      "CLEAR UNDO HISTORY",
      { 0.817f, 0.76f, 0.168f, 0.14f },
      [] (const WideLoomAudioProcessor& processor) { return processor.canUndoOrRedo(); },
      [] (InfoComponent& screen)
      {
          screen.processor->clearUndoHistory();
          screen.updateAllButtons();
          screen.mainEditor->updateUndoButtons();
      } },
    { &InfoComponent::closeButton,
      "CLOSE",
      { 0.416f, 0.92f, 0.168f, 0.07f },
      [] (const WideLoomAudioProcessor&) { return true; },
      [] (InfoComponent& screen) { screen.mainEditor->hideInfoComponent(); } },
};

struct InfoComponent::TextRow
{
    float y;
    const TextColumn& column;
    juce::String (*text) (const InfoComponent& screen);
};

const InfoComponent::TextRow InfoComponent::textTable[] = {
    { 0.13f, sizes, [] (const InfoComponent&) -> juce::String { return "CURRENT SIZE:"; } },
    { 0.18f,
      sizes,
      [] (const InfoComponent& screen)
      { return sizeText (screen.panelHeight * aspectRatio, juce::roundToInt (screen.panelHeight)); } },
    { 0.43f, sizes, [] (const InfoComponent&) -> juce::String { return "DEFAULT SIZE:"; } },
    { 0.48f,
      sizes,
      [] (const InfoComponent& screen)
      {
          const int height = screen.processor->getDefaultEditorHeight();
          return sizeText (static_cast<float> (height) * aspectRatio, height);
      } },
    { 0.03f, facts, [] (const InfoComponent&) -> juce::String { return "SAMPLERATE:"; } },
    { 0.08f,
      facts,
      [] (const InfoComponent& screen) { return screen.processor->getLastSampleRateString(); } },
    { 0.18f, facts, [] (const InfoComponent&) { return juce::SystemStats::getOperatingSystemName(); } },
    { 0.23f,
      facts,
      [] (const InfoComponent&) -> juce::String
      { return juce::SystemStats::isOperatingSystem64Bit() ? "64 bit" : "32 bit"; } },
    { 0.33f, facts, [] (const InfoComponent&) -> juce::String { return "Host / DAW :"; } },
    { 0.38f,
      facts,
      [] (const InfoComponent&) -> juce::String { return juce::PluginHostType().getHostDescription(); } },
    { 0.48f, facts, [] (const InfoComponent&) -> juce::String { return "In / Out :"; } },
    { 0.53f,
      facts,
      [] (const InfoComponent& screen)
      {
          return juce::String (screen.processor->getTotalNumInputChannels()) + " / "
                 + juce::String (screen.processor->getTotalNumOutputChannels());
      } },
};

//==================================================================================================

InfoComponent::InfoComponent (WideLoomAudioProcessor* owner, MainEditorComponent* panel, juce::Font* font)
    : processor (owner),
      mainEditor (panel),
      panelFont (font),
      logo (juce::Drawable::createFromImageData (BinaryData::LOGO_QUORVEXDSP_01_svg,
                                                 BinaryData::LOGO_QUORVEXDSP_01_svgSize))
{
    const auto format = pluginFormatTextsFor (processor->wrapperType);
    setUpText (creditsText, creditsTextFor (format));
    setUpText (legalText, legalTextFor (format));

    for (const auto& row : buttonTable)
    {
        auto& button = this->*row.button;
        button = std::make_unique<juce::TextButton> (row.caption);
        button->setColour (juce::TextButton::buttonColourId,
                           CrzQ7Colours::q7darkGrey.brighter (buttonBrightening));
        button->setColour (juce::TextButton::buttonOnColourId, CrzQ7Colours::q7complementColourA);
        button->addListener (this);
        addAndMakeVisible (button.get());
    }

    updateAllButtons();
}

void InfoComponent::setUpText (juce::TextEditor& area, const juce::String& text)
{
    area.setMultiLine (true);
    area.setCaretVisible (false);
    area.setReadOnly (true);
    area.setFont (*panelFont);
    area.setColour (juce::TextEditor::backgroundColourId, juce::Colours::white.withAlpha (0.0f));
    area.setColour (juce::TextEditor::highlightColourId, CrzQ7Colours::q7complementColourA);
    area.setText (text, false);
    addAndMakeVisible (area);
}

void InfoComponent::updateAllButtons()
{
    for (const auto& row : buttonTable)
        (this->*row.button)->setEnabled (row.isEnabled (*processor));
}

void InfoComponent::buttonClicked (juce::Button* button)
{
    for (const auto& row : buttonTable)
        if ((this->*row.button).get() == button)
            return row.click (*this);
}

void InfoComponent::resized()
{
    panelHeight = static_cast<float> (getHeight());

    for (const auto& row : buttonTable)
        place (*(this->*row.button), row.bounds);

    place (creditsText, creditsBounds);
    place (legalText, legalBounds);
    creditsText.applyFontToAllText (creditsText.getFont().withHeight (panelHeight * creditsFontHeight));
    legalText.applyFontToAllText (legalText.getFont().withHeight (panelHeight * smallFontHeight));

    updateAllButtons();
}

void InfoComponent::paint (juce::Graphics& g)
{
    panelFont->setHeight (panelHeight * smallFontHeight);
    g.setFont (*panelFont);

    g.fillAll (CrzQ7Colours::q7complementColourA);

    const auto frame = frameBounds.inPixels (panelHeight).toFloat();
    g.setColour (juce::Colours::lightgrey);
    g.fillRoundedRectangle (frame, frameCornerSize * panelHeight);
    g.setColour (juce::Colours::black.brighter (frameBrightening));
    g.drawRoundedRectangle (frame, frameCornerSize * panelHeight, frameThickness * panelHeight);

    drawTexts (g);

    if (logo != nullptr)
        logo->drawWithin (
            g, logoBounds.inPixels (panelHeight).toFloat(), juce::RectanglePlacement::centred, 1.0f);
}

void InfoComponent::drawTexts (juce::Graphics& g) const
{
    g.setColour (juce::Colours::black);

    for (const auto& row : textTable)
    {
        const RelativeBounds bounds { row.column.x, row.y, row.column.width, row.column.height };
        g.drawFittedText (
            row.text (*this), bounds.inPixels (panelHeight), row.column.justification, 1, minimumTextScale);
    }
}
