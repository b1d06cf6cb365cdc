// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The buttons and toggles of the look and feel.

#include "CrzQ7Colours.h"
#include "CrzQ7LookAndFeelV1.h"

namespace
{
namespace ButtonShape
{
constexpr float fontShare = 0.8f;   // of the button's height
constexpr float halfPixel = 0.5f;   // the outline runs through pixel centres
constexpr float cornerSize = 4.0f;  // pixels
constexpr float strokeWidth = 1.0f; // pixels
constexpr float bevelInset = 1.6f;  // pixels that the light edge is lower than the outline
constexpr float edgeAlpha = 0.4f;
constexpr float pressedDarkening = 0.4f;
constexpr float topBrightening = 0.2f;
constexpr float bottomDarkening = 0.25f;
} // namespace ButtonShape

namespace ToggleShape
{
constexpr float boxShare = 0.8f;    // of the button's height
constexpr float sphereShare = 0.7f; // of the box
constexpr float sphereOutline = 1.1f;
constexpr float offBrightening = 0.65f;
constexpr int textMargin = 2; // pixels
} // namespace ToggleShape

/** The button's outline. A corner is rounded unless the button is joined to another at a side that meets
 * there.
 */
juce::Path outlineOf (const juce::Button& button, float width, float height)
{
    using namespace ButtonShape;

    const bool left = button.isConnectedOnLeft(), right = button.isConnectedOnRight();
    const bool top = button.isConnectedOnTop(), bottom = button.isConnectedOnBottom();

    juce::Path outline;
    outline.addRoundedRectangle (halfPixel,
                                 halfPixel,
                                 width,
                                 height,
                                 cornerSize,
                                 cornerSize,
                                 ! (left || top),
                                 ! (right || top),
                                 ! (left || bottom),
                                 ! (right || bottom));
    return outline;
}
} // namespace

juce::Font CrzQ7LookAndFeelV1::getTextButtonFont (juce::TextButton&, int buttonHeight)
{
    return defaultFont.withHeight (static_cast<float> (buttonHeight) * ButtonShape::fontShare);
}

void CrzQ7LookAndFeelV1::drawButtonBackground (
    juce::Graphics& g, juce::Button& button, const juce::Colour& backgroundColour, bool, bool isButtonDown)
{
    using namespace ButtonShape;

    const auto colour = isButtonDown ? backgroundColour.darker (pressedDarkening) : backgroundColour;
    const auto width = static_cast<float> (button.getWidth()) - strokeWidth;
    const auto height = static_cast<float> (button.getHeight()) - strokeWidth;

    if (! (width > 0.0f && height > 0.0f))
        return;

    const auto outline = outlineOf (button, width, height);
    const float brightness = colour.getBrightness();
    const float alpha = colour.getFloatAlpha();
    const juce::PathStrokeType stroke (strokeWidth);

    g.setGradientFill ({ colour.brighter (topBrightening),
                         0.0f,
                         0.0f,
                         colour.darker (bottomDarkening),
                         0.0f,
                         height,
                         false });
    g.fillPath (outline);

    g.setColour (juce::Colours::white.withAlpha (edgeAlpha * alpha * brightness * brightness));
    g.strokePath (
        outline,
        stroke,
        juce::AffineTransform::translation (0.0f, 1.0f).scaled (1.0f, (height - bevelInset) / height));

    g.setColour (juce::Colours::black.withAlpha (edgeAlpha * alpha));
    g.strokePath (outline, stroke);
}

void CrzQ7LookAndFeelV1::drawToggleButton (juce::Graphics& g, juce::ToggleButton& button, bool, bool)
{
    using namespace ToggleShape;

    const auto height = static_cast<float> (button.getHeight());
    const float boxSize = boxShare * height;

    drawRadioTickBox (g, button, 0.0f, (height - boxSize) * 0.5f, boxSize, boxSize, button.getToggleState());

    const int textLeft = static_cast<int> (boxSize);
    g.setColour (juce::Colours::black);
    g.setFont (defaultFont.withHeight (height));
    g.drawText (button.getButtonText(),
                textLeft,
                0,
                button.getWidth() - textMargin - textLeft,
                button.getHeight(),
                juce::Justification::centredLeft,
                false);
}

void CrzQ7LookAndFeelV1::drawRadioTickBox (
    juce::Graphics& g, juce::Component&, float x, float y, float width, float height, bool ticked)
{
    using namespace ToggleShape;

    const float diameter = sphereShare * width;
    const auto colour =
        ticked ? CrzQ7Colours::q7complementColourA : CrzQ7Colours::q7darkGrey.brighter (offBrightening);

    drawGlassSphere (g, x, y + (height - diameter) * 0.5f, diameter, colour, sphereOutline);
}
