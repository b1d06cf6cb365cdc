// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The fonts, labels, text boxes and the resizer of the look and feel.

#include "CrzQ7LookAndFeelV1.h"

#include "CrzQ7Colours.h"

#include <presets/DisplayHeight.h>

#include <BinaryData.h>

namespace
{
constexpr float defaultFontHeight = 40.0f; // pixels

constexpr float labelFontShare = 0.9f;
constexpr float popupMenuFontShare = 0.025f; // of the main display's height
constexpr float lowestPopupMenuFont = 27.0f; // pixels

/** A label's colour and the slider's colour that it takes. */
struct TextBoxColour
{
    int label, slider;
};

constexpr TextBoxColour textBoxColours[] = {
    { juce::Label::textColourId, juce::Slider::textBoxTextColourId },
    { juce::TextEditor::textColourId, juce::Slider::textBoxTextColourId },
    { juce::TextEditor::backgroundColourId, juce::Slider::textBoxBackgroundColourId },
    { juce::Label::outlineColourId, juce::Slider::textBoxOutlineColourId },
    { juce::Label::outlineWhenEditingColourId, juce::Slider::textBoxOutlineColourId },
    { juce::TextEditor::outlineColourId, juce::Slider::textBoxOutlineColourId },
    { juce::TextEditor::highlightColourId, juce::Slider::textBoxHighlightColourId },
};

/** The two arrows of the resizer, as shares of its width and, where named so, of its height. */
namespace ResizerShape
{
constexpr float lineThickness = 0.24f;
constexpr float headSize = 0.44f;
constexpr float margin = 0.1f;
constexpr float outwardStart = 0.585f;
constexpr float inwardStart = 0.59f;
constexpr float inwardTipPerHeight = 0.2f;
constexpr float darkening = 0.4f;
} // namespace ResizerShape
} // namespace

CrzQ7LookAndFeelV1::CrzQ7LookAndFeelV1()
    : defaultFont (juce::Typeface::createSystemTypefaceFor (BinaryData::kenyan_coffee_rg_ttf,
                                                            BinaryData::kenyan_coffee_rg_ttfSize))
{
    defaultFont.setHeight (defaultFontHeight);
}

CrzQ7LookAndFeelV1::~CrzQ7LookAndFeelV1() = default;

void CrzQ7LookAndFeelV1::setCurrentLightGrey (const juce::Colour& newLightGrey)
{
    currentLightGrey = newLightGrey;
}

juce::Font CrzQ7LookAndFeelV1::getPopupMenuFont()
{
    const auto displayHeight = static_cast<float> (getMainDisplayUserHeight());
    const auto share = static_cast<float> (juce::roundToInt (displayHeight * popupMenuFontShare));
    return defaultFont.withHeight (juce::jmax (lowestPopupMenuFont, share));
}

juce::Font CrzQ7LookAndFeelV1::getLabelFont (juce::Label& label)
{
    return defaultFont.withHeight (static_cast<float> (label.getHeight()) * labelFontShare);
}

void CrzQ7LookAndFeelV1::drawLabel (juce::Graphics& g, juce::Label& label)
{
    const auto area = label.getLocalBounds();
    const auto height = static_cast<float> (area.getHeight());
    const auto font = getLabelFont (label);
    const int numLines = juce::jmax (1, static_cast<int> (height / font.getHeight()));

    g.setFont (font);
    g.setFont (height);
    g.setColour (label.findColour (juce::Label::textColourId));
    g.drawFittedText (
        label.getText(), area, label.getJustificationType(), numLines, label.getMinimumHorizontalScale());
}

juce::Label* CrzQ7LookAndFeelV1::createSliderTextBox (juce::Slider& slider)
{
    auto textBox = std::make_unique<juce::Label>();
    textBox->setJustificationType (juce::Justification::centred);
    textBox->setEditable (false, true, true);

    for (const auto& [labelColour, sliderColour] : textBoxColours)
        textBox->setColour (labelColour, slider.findColour (sliderColour));

    return textBox.release();
}

void CrzQ7LookAndFeelV1::drawCornerResizer (
    juce::Graphics& g, int w, int h, bool isMouseOver, bool isMouseDragging)
{
    using namespace ResizerShape;

    const auto width = static_cast<float> (w);
    const auto height = static_cast<float> (h);
    const float edge = margin * width;
    const float inwardTip = edge + inwardTipPerHeight * height;

    juce::Path arrows;

    const auto addArrow = [&arrows, width] (const juce::Line<float>& line)
    { arrows.addArrow (line, lineThickness * width, headSize * width, headSize * width); };

    addArrow ({ outwardStart * width, outwardStart * height, width - edge, height - edge });
    addArrow ({ inwardStart * width, inwardStart * height, inwardTip, inwardTip });

    auto colour = currentLightGrey.darker (darkening);

    if (isMouseOver)
        colour = CrzQ7Colours::q7mainColour;

    if (isMouseDragging)
        colour = juce::Colours::black;

    g.setColour (colour);
    g.fillPath (arrows);
}
