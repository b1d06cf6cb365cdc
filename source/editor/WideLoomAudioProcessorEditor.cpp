// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Puts panel and corner handle together, limits the sizes, and paints what shows during a drag.

#include "WideLoomAudioProcessorEditor.h"

#include "CrzLayoutManager.h"
#include "CrzQ7Colours.h"
#include "CrzQ7LookAndFeelV1.h"

#include "MainEditorComponent.h"
#include "ResizerForEditor.h"

#include "engine/WideLoomAudioProcessor.h"
#include "presets/DisplayHeight.h"

#include <BinaryData.h>

#include <array>

namespace
{
constexpr float aspectRatio = 1.5f;

// Shares of the display's usable height.
constexpr float layoutHeightRatio = 0.5f;
constexpr float maximumHeightRatio = 0.8f;
constexpr float minimumHeightRatio = 0.25f;

constexpr int meterIntervalMs = 70;

/** The corner handle, in shares of the window. */
struct HandleBounds
{
    static constexpr float x = 0.9393333f, y = 0.909f, width = 0.05f, height = 0.075f;
};

/** One arrow of the picture that shows during a drag; x in window widths, y in window heights. */
struct ArrowRow
{
    float startX, startY, tipX, tipY;
};

constexpr auto arrowTable = std::to_array<ArrowRow> ({
    { 0.4f, 0.4f, 0.2f, 0.2f },
    { 0.6f, 0.4f, 0.8f, 0.2f },
    { 0.4f, 0.6f, 0.2f, 0.8f },
    { 0.6f, 0.6f, 0.8f, 0.8f },
});

// In window heights.
constexpr float arrowLineThickness = 0.1f;
constexpr float arrowheadSize = 0.2f;

/** The word between the arrows; a box of 0.2 window widths by 0.2 window heights. */
struct ResizingText
{
    static constexpr float x = 0.4f, y = 0.4f, width = 0.2f, height = 0.2f;
    static constexpr float fontHeightInBoxes = 0.5f;
    static constexpr float minimumScale = 0.7f;
};

int widthForHeight (int height)
{
    return juce::roundToInt (static_cast<float> (height) * aspectRatio);
}
} // namespace

WideLoomAudioProcessorEditor::WideLoomAudioProcessorEditor (WideLoomAudioProcessor* owner)
    : juce::AudioProcessorEditor (owner),
      processor (owner)
{
    const int displayHeight = getMainDisplayUserHeight();

    layoutManager = std::make_unique<CrzLayoutManager> (displayHeight, layoutHeightRatio, aspectRatio);
    resizingFont = std::make_unique<juce::Font> (juce::Typeface::createSystemTypefaceFor (
        BinaryData::kenyan_coffee_rg_ttf, BinaryData::kenyan_coffee_rg_ttfSize));
    lookAndFeel = std::make_unique<CrzQ7LookAndFeelV1>();
    setLookAndFeel (lookAndFeel.get());

    mainEditor = std::make_unique<MainEditorComponent> (processor, this);
    addAndMakeVisible (mainEditor.get());

    const int maximumHeight = static_cast<int> (maximumHeightRatio * static_cast<float> (displayHeight));
    const int minimumHeight = static_cast<int> (minimumHeightRatio * static_cast<float> (displayHeight));
    constrainer = std::make_unique<juce::ComponentBoundsConstrainer>();
    constrainer->setFixedAspectRatio (aspectRatio);
    constrainer->setSizeLimits (static_cast<int> (static_cast<float> (minimumHeight) * aspectRatio),
                                minimumHeight,
                                static_cast<int> (static_cast<float> (maximumHeight) * aspectRatio),
                                maximumHeight);

    resizer = std::make_unique<ResizerForEditor> (this, constrainer.get(), mainEditor.get());
    addAndMakeVisible (resizer.get());

    startTimer (meterIntervalMs);

    editorHeight = processor->getEditorHeight();
    setSize (widthForHeight (editorHeight), editorHeight);
}

WideLoomAudioProcessorEditor::~WideLoomAudioProcessorEditor()
{
    stopTimer();

    // A menu that is still open draws with the look and feel that is about to go. Its result comes later,
    // from the message loop, and finds nobody.
    juce::PopupMenu::dismissAllActiveMenus();

    // The panel goes before the look and feel that draws it; cleared the other way round, every control would
    // be rebuilt once more only to be deleted.
    mainEditor.reset();
    setLookAndFeel (nullptr);
    lookAndFeel.reset();
}

void WideLoomAudioProcessorEditor::updateEditorSize()
{
    editorHeight = processor->getEditorHeight();
    const int width = widthForHeight (editorHeight);
    setBounds (0, 0, width, editorHeight);
    repaint (0, 0, width, editorHeight);
}

void WideLoomAudioProcessorEditor::paint (juce::Graphics& g)
{
    const auto height = static_cast<float> (editorHeight);
    const auto width = static_cast<float> (widthForHeight (editorHeight));

    g.fillAll (CrzQ7Colours::q7darkGrey.brighter (processor->getCurrentColourSchemeBrightness()));

    juce::Path arrows;

    for (const auto& row : arrowTable)
        arrows.addArrow ({ row.startX * width, row.startY * height, row.tipX * width, row.tipY * height },
                         arrowLineThickness * height,
                         arrowheadSize * height,
                         arrowheadSize * height);

    g.setColour (juce::Colours::black);
    g.fillPath (arrows);

    resizingFont->setHeight (ResizingText::height * height * ResizingText::fontHeightInBoxes);
    g.setFont (*resizingFont);
    g.drawFittedText ("RESIZING",
                      static_cast<int> (ResizingText::x * width),
                      static_cast<int> (ResizingText::y * height),
                      static_cast<int> (ResizingText::width * width),
                      static_cast<int> (ResizingText::height * height),
                      juce::Justification::centred,
                      1,
                      ResizingText::minimumScale);
}

void WideLoomAudioProcessorEditor::resized()
{
    mainEditor->setBounds (getLocalBounds());

    editorHeight = getHeight();
    processor->setEditorHeight (editorHeight);

    resizer->setBoundsRelative (HandleBounds::x, HandleBounds::y, HandleBounds::width, HandleBounds::height);

    // The info screen was laid out before the processor knew the new height, and which of its buttons make
    // sense hangs on that height.
    mainEditor->updateUndoButtons();
}

void WideLoomAudioProcessorEditor::timerCallback()
{
    if (mainEditor == nullptr)
        return;

    mainEditor->setInputVuMeterVisuals (processor->getInputVuMeterVisuals());
    mainEditor->setOutputVuMeterVisuals (processor->getOutputVuMeterVisuals());
}
