// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The knobs and linear sliders of the look and feel.

#include "CrzQ7Colours.h"
#include "CrzQ7LookAndFeelV1.h"

namespace
{
/** Lengths are shares of the knob's radius, which is half the width it is given. */
namespace KnobShape
{
constexpr float margin = 0.2f; // from the outside of the track to the face
constexpr float shadowRadius = 0.2f;
constexpr float shadowOffset = 0.13f;
constexpr float arcInset = 0.03f; // of the value arc inside the track
constexpr float rimInset = 0.25f;
constexpr float rimThickness = 0.05f;
constexpr float pointerStart = -0.15f;
constexpr float pointerTip = -0.6f;

constexpr float arcInnerProportion = 0.7f;
constexpr float trackTint = 0.05f; // alpha of the accent over black
constexpr float faceContrast = 1.0f;
constexpr float rimBrightening = 0.4f;
constexpr float pointerThicknessPerHeight = 1.0f / 25.0f;
} // namespace KnobShape

namespace LinearShape
{
constexpr int trackNarrowing = 2;        // pixels that the track is narrower than the thumb's radius
constexpr float cornerSize = 5.0f;       // pixels
constexpr float outlineThickness = 0.5f; // pixels
constexpr float outlineContrast = 0.5f;
constexpr float thumbShare = 0.2f; // of the slider's height

// What lies over the track's colour at its two edges, as alpha, red, green and blue.
constexpr juce::uint32 nearShade = 0x13000000;
constexpr juce::uint32 nearShadeDisabled = 0x09000000;
constexpr juce::uint32 farShade = 0x06000000;
} // namespace LinearShape

void drawPointer (juce::Graphics& g, juce::Point<float> centre, float radius, float angle, float thickness)
{
    juce::Path pointer;
    pointer.startNewSubPath (0.0f, KnobShape::pointerStart * radius);
    pointer.lineTo (0.0f, KnobShape::pointerTip * radius);

    g.setColour (juce::Colours::white);
    g.strokePath (
        pointer,
        juce::PathStrokeType (thickness, juce::PathStrokeType::curved, juce::PathStrokeType::rounded),
        juce::AffineTransform::rotation (angle).translated (centre));
}
} // namespace

void CrzQ7LookAndFeelV1::drawRotarySlider (juce::Graphics& g,
                                           int x,
                                           int y,
                                           int width,
                                           int height,
                                           float sliderPos,
                                           float startAngle,
                                           float endAngle,
                                           juce::Slider& slider)
{
    using namespace KnobShape;

    // The width alone gives the size, so the whole knob lies in a square.
    const auto w = static_cast<float> (width);
    const float radius = 0.5f * w;
    const juce::Rectangle<float> square (static_cast<float> (x), static_cast<float> (y), w, w);
    const float angle = startAngle + sliderPos * (endAngle - startAngle);
    const auto fill = slider.findColour (juce::Slider::backgroundColourId);
    const auto accent = CrzQ7Colours::q7complementColourA;

    juce::Path knob;
    knob.addEllipse (square.reduced (margin * radius));

    if (slider.isEnabled())
    {
        const int offset = static_cast<int> (shadowOffset * radius);
        const int blur = juce::jmax (1, static_cast<int> (shadowRadius * radius)); // 0 is no shadow to JUCE
        juce::DropShadow (juce::Colours::black, blur, { offset, offset }).drawForPath (g, knob);
    }

    juce::Path track;
    track.addPieSegment (square, startAngle, endAngle, arcInnerProportion);
    g.setColour (juce::Colours::black.overlaidWith (accent.withAlpha (trackTint)));
    g.fillPath (track);

    juce::Path arc;
    arc.addPieSegment (square.reduced (arcInset * radius), startAngle, angle, arcInnerProportion);
    g.setColour (accent);
    g.fillPath (arc);

    g.setGradientFill ({ fill.brighter (faceContrast),
                         square.getTopLeft(),
                         fill.darker (faceContrast),
                         square.getBottomRight(),
                         false });
    g.fillPath (knob);

    g.setColour (fill.brighter (rimBrightening).withAlpha (1.0f));
    g.drawEllipse (square.reduced (rimInset * radius), rimThickness * radius);

    if (slider.isEnabled())
        drawPointer (
            g, square.getCentre(), radius, angle, static_cast<float> (height) * pointerThicknessPerHeight);
}

void CrzQ7LookAndFeelV1::drawLinearSlider (juce::Graphics& g,
                                           int x,
                                           int y,
                                           int width,
                                           int height,
                                           float sliderPos,
                                           float minSliderPos,
                                           float maxSliderPos,
                                           juce::Slider::SliderStyle style,
                                           juce::Slider& slider)
{
    drawLinearSliderBackground (g, x, y, width, height, sliderPos, minSliderPos, maxSliderPos, style, slider);
    drawLinearSliderThumb (g, x, y, width, height, sliderPos, minSliderPos, maxSliderPos, style, slider);
}

void CrzQ7LookAndFeelV1::drawLinearSliderBackground (juce::Graphics& g,
                                                     int x,
                                                     int y,
                                                     int width,
                                                     int height,
                                                     float,
                                                     float,
                                                     float,
                                                     juce::Slider::SliderStyle,
                                                     juce::Slider& slider)
{
    using namespace LinearShape;

    const juce::Rectangle<float> area (juce::Rectangle<int> (x, y, width, height).toFloat());
    const auto thickness = static_cast<float> (getSliderThumbRadius (slider) - trackNarrowing);
    const auto trackColour = slider.findColour (juce::Slider::trackColourId);
    const auto nearColour =
        trackColour.overlaidWith (juce::Colour (slider.isEnabled() ? nearShade : nearShadeDisabled));
    const auto farColour = trackColour.overlaidWith (juce::Colour (farShade));

    juce::Rectangle<float> track;

    if (slider.isHorizontal())
    {
        track = { area.getX() - 0.5f * thickness,
                  area.getY() + 0.5f * area.getHeight() - 0.5f * thickness,
                  area.getWidth() + thickness,
                  thickness };
        g.setGradientFill ({ nearColour, 0.0f, track.getY(), farColour, 0.0f, track.getBottom(), false });
    }
    else
    {
        track = { area.getX() + 0.5f * area.getWidth() - 0.5f * thickness,
                  area.getY() - 0.5f * thickness,
                  thickness,
                  area.getHeight() + thickness };
        g.setGradientFill ({ nearColour, track.getX(), 0.0f, farColour, track.getRight(), 0.0f, false });
    }

    juce::Path outline;
    outline.addRoundedRectangle (track, cornerSize);
    g.fillPath (outline);

    g.setColour (trackColour.contrasting (outlineContrast));
    g.strokePath (outline, juce::PathStrokeType (outlineThickness));
}

void CrzQ7LookAndFeelV1::drawLinearSliderThumb (juce::Graphics& g,
                                                int x,
                                                int,
                                                int width,
                                                int height,
                                                float sliderPos,
                                                float,
                                                float,
                                                juce::Slider::SliderStyle,
                                                juce::Slider&)
{
    using namespace LinearShape;

    const auto left = static_cast<float> (x);
    const auto right = static_cast<float> (x + width);
    const float thickness = thumbShare * static_cast<float> (height);

    g.setColour (juce::Colours::white);
    g.fillRoundedRectangle (left, sliderPos - 0.5f * thickness, right - left, thickness, cornerSize);

    g.setColour (juce::Colours::black);
    g.drawHorizontalLine (static_cast<int> (sliderPos), left, right);
}
