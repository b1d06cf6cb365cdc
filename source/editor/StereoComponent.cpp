// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The picture of the stereo field.

#include "StereoComponent.h"

#include "CrzQ7Colours.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace
{
// Shares of the component's height.
constexpr float captionHeight = 0.1f;
constexpr float wordHeight = 0.35f;
constexpr float frameInset = 0.05f;
constexpr float fieldInset = 0.1f;
constexpr float dashLength = 0.03f;
constexpr float dashGap = 0.015f;
constexpr float triangleThickness = 0.02f;

constexpr float cornerSize = 0.01f; ///< of the parent's height
constexpr float frameAlpha = 0.1f;
constexpr float centreLineThickness = 1.0f; ///< pixels

// The box of the word, in shares of width and height.
constexpr float wordBoxWidth = 0.8f;
constexpr float wordBoxHeight = 0.7f;

/** Squeezes a caption into its box rather than cutting it. */
constexpr float narrowestText = 0.4f;

/** Keeps the triangle from closing completely. */
constexpr float narrowestTriangle = 0.01f;

/** How far down the field the corners stand at full width. */
constexpr float lowestCorners = 0.5f * 1.2f;

/** Up to here, 100 % of width, the triangle is grey. */
constexpr float normalWidth = 0.5f;

/** Full pan is a quarter turn. */
constexpr float radiansPerPan = 3.1415927f;

struct Caption
{
    const char* text;
    float x, y, width, height; ///< shares of the component's width and height
    int justification;
};

constexpr Caption captions[] = {
    { "LEFT", 0.05f, 0.8f, 0.2f, 0.1f, juce::Justification::left },
    { "RIGHT", 0.75f, 0.8f, 0.2f, 0.1f, juce::Justification::right },
    { "STEREO WIDTH:", 0.05f, 0.07f, 0.28f, 0.1f, juce::Justification::left },
    { "PAN:", 0.65f, 0.07f, 0.3f, 0.1f, juce::Justification::right },
};

/** 0.01..1 for a normalised width. */
float spreadOf (float stereoWidth) noexcept
{
    return stereoWidth * (1.0f - narrowestTriangle) + narrowestTriangle;
}

float limited (float value) noexcept
{
    return std::isfinite (value) ? juce::jlimit (0.0f, 1.0f, value) : 0.0f;
}
} // namespace

StereoComponent::StereoComponent (juce::Font* fontToUse,
                                  CrzParameterValueMapper* widthMapper,
                                  CrzParameterValueMapper* mapperOfPan)
    : font (fontToUse),
      stereoWidthMapper (widthMapper),
      panMapper (mapperOfPan)
{
}

/** The panel sets everything again after any change; only a difference costs a repaint. */
template <typename Value>
void StereoComponent::change (Value& member, Value newValue)
{
    if (std::exchange (member, newValue) != newValue)
        repaint();
}

void StereoComponent::setStereoWidth (float newStereoWidth)
{
    change (stereoWidth, limited (newStereoWidth));
}

void StereoComponent::setPan (float newPan)
{
    change (pan, limited (newPan));
}

void StereoComponent::setBypassState (bool isBypassed)
{
    change (bypassState, isBypassed);
}

void StereoComponent::setMuteAllState (bool isMuted)
{
    change (muteAllState, isMuted);
}

std::array<juce::Point<float>, 3> StereoComponent::triangleIn (juce::Rectangle<float> field,
                                                               float stereoWidth,
                                                               float pan)
{
    const float spread = spreadOf (stereoWidth);
    const float halfWidth = field.getWidth() * 0.5f;
    const juce::Point<float> listener { field.getX() + halfWidth, field.getBottom() };
    const float y = field.getY() + field.getHeight() * lowestCorners * spread;
    const auto tilt = juce::AffineTransform::rotation ((pan - 0.5f) * radiansPerPan, listener.x, listener.y);

    const auto corner = [&] (float x)
    {
        const auto tilted = juce::Point<float> (x, y).transformedBy (tilt);
        return juce::Point<float> (juce::jlimit (field.getX(), field.getRight(), tilted.x),
                                   std::min (tilted.y, field.getBottom()));
    };

    return { corner (field.getX() + (1.0f - spread) * halfWidth),
             corner (field.getX() + spread * halfWidth + halfWidth),
             listener };
}

void StereoComponent::paint (juce::Graphics& g)
{
    if (font != nullptr)
        g.setFont (font->withHeight (captionHeight * componentHeight));

    drawGround (g);

    if (bypassState)
    {
        drawWord (g, "BYPASS", CrzQ7Colours::q7mainColour);
    }
    else if (muteAllState)
    {
        drawWord (g, "MUTE ALL", CrzQ7Colours::q7complementColourA);
    }
    else
    {
        drawField (g);
        drawCaptions (g);
    }
}

void StereoComponent::drawGround (juce::Graphics& g) const
{
    // Without a parent JUCE would ask the display, which need not exist.
    const auto* parent = getParentComponent();
    const float corner = parent != nullptr ? cornerSize * static_cast<float> (parent->getHeight()) : 0.0f;
    const auto area = getLocalBounds().toFloat();

    g.setColour (juce::Colours::black);
    g.fillRoundedRectangle (area, corner);
    g.setColour (juce::Colours::white.withAlpha (frameAlpha));
    g.fillRoundedRectangle (area.reduced (frameInset * componentHeight), corner);
}

void StereoComponent::drawWord (juce::Graphics& g, const char* word, juce::Colour colour) const
{
    const auto area = getLocalBounds().toFloat();
    const auto box =
        area.withSizeKeepingCentre (wordBoxWidth * area.getWidth(), wordBoxHeight * area.getHeight());

    g.setFont (wordHeight * componentHeight);
    g.setColour (colour);
    g.drawFittedText (word, box.toNearestInt(), juce::Justification::centred, 1, narrowestText);
}

void StereoComponent::drawField (juce::Graphics& g) const
{
    const auto field = getLocalBounds().toFloat().reduced (fieldInset * componentHeight);
    const float dashes[] { dashLength * componentHeight, dashGap * componentHeight };

    g.setColour (juce::Colours::darkgrey);
    g.drawDashedLine ({ field.getCentreX(), field.getY(), field.getCentreX(), field.getBottom() },
                      dashes,
                      juce::numElementsInArray (dashes),
                      centreLineThickness);

    const float spread = spreadOf (stereoWidth);
    auto colour = juce::Colours::grey;

    if (spread > normalWidth)
    {
        const float alpha = std::min (1.0f, (spread - normalWidth) * 2.0f);
        colour = colour.overlaidWith (CrzQ7Colours::q7complementColourA.withAlpha (alpha));
    }

    const auto [first, second, listener] = triangleIn (field, stereoWidth, pan);
    juce::Path triangle;
    triangle.addTriangle (first, second, listener);
    g.setColour (colour);
    g.strokePath (triangle,
                  juce::PathStrokeType (triangleThickness * componentHeight,
                                        juce::PathStrokeType::curved,
                                        juce::PathStrokeType::rounded));
}

void StereoComponent::drawCaptions (juce::Graphics& g) const
{
    g.setColour (juce::Colours::darkgrey);

    for (const auto& caption : captions)
    {
        const juce::Rectangle<float> box { caption.x * componentWidth,
                                           caption.y * componentHeight,
                                           caption.width * componentWidth,
                                           caption.height * componentHeight };
        g.drawFittedText (caption.text, box.toNearestInt(), caption.justification, 1, narrowestText);
    }
}

void StereoComponent::resized()
{
    componentWidth = static_cast<float> (getWidth());
    componentHeight = static_cast<float> (getHeight());
}
