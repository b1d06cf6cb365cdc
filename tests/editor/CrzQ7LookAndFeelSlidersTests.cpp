// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The look of knobs and linear sliders, by their pixels.

#include <editor/CrzQ7Colours.h>
#include <editor/CrzQ7LookAndFeelV1.h>

#include <gtest/gtest.h>
#include <support/NamedRows.h>
#include <support/Painting.h>

#include <cmath>

namespace
{
using juce::Colour;
using juce::Slider;
using juce::Colours::black;
using juce::Colours::white;

constexpr int rounding = 2; // of 255, for colours that went through a gradient or an overlay

const Colour accent { 8, 111, 161 };
const Colour trackColour { 0, 6, 8 }; // the accent at 0.05 over black

// The knob: a square of 200 pixels, so that a hundredth of its radius is a pixel.

constexpr int knobSize = 200;
constexpr int knobMargin = 20;
constexpr int canvasSize = knobSize + 2 * knobMargin;
constexpr float knobRadius = 100.0f;
constexpr float startAngle = 3.7699112f; // 1.2 pi
constexpr float endAngle = 8.7964594f;   // 2.8 pi

struct Knob
{
    float position = 0.0f;
    bool enabled = true;
    Colour fill = CrzQ7Colours::q7darkGrey;
    int height = knobSize;
};

juce::Image paintKnob (const Knob& knob)
{
    CrzQ7LookAndFeelV1 lookAndFeel;
    Slider slider;
    slider.setEnabled (knob.enabled);
    slider.setColour (Slider::backgroundColourId, knob.fill);

    return painted (canvasSize,
                    canvasSize,
                    white,
                    [&] (juce::Graphics& g)
                    {
                        lookAndFeel.drawRotarySlider (g,
                                                      knobMargin,
                                                      knobMargin,
                                                      knobSize,
                                                      knob.height,
                                                      knob.position,
                                                      startAngle,
                                                      endAngle,
                                                      slider);
                    });
}

/** The pixel at a share of the radius, in the direction of a position of the knob. */
juce::Point<int> knobPixel (float share, float position)
{
    const float angle = startAngle + position * (endAngle - startAngle);
    const float centre = knobMargin + knobRadius;
    return { static_cast<int> (centre + share * knobRadius * std::sin (angle)),
             static_cast<int> (centre - share * knobRadius * std::cos (angle)) };
}

constexpr float bottomOfKnob = -0.125f; // as a position: between the two ends of the track

struct ArcCase
{
    const char* name;
    float position;
    bool enabled;
    Colour fill;
};

class KnobArc : public testing::TestWithParam<ArcCase>
{
};

TEST_P (KnobArc, RunsFromTheStartToTheValueInsideTheTrack)
{
    const auto& row = GetParam();
    const auto image = paintKnob ({ row.position, row.enabled, row.fill });

    for (const float place : { 0.02f, 0.2f, 0.45f, 0.55f, 0.8f, 0.98f })
    {
        const auto expected = place < row.position ? accent : trackColour;
        EXPECT_TRUE (pixelIsNear (image, knobPixel (0.9f, place), expected, rounding)) << place;
        EXPECT_TRUE (pixelIsNear (image, knobPixel (0.985f, place), trackColour, rounding)) << place;
    }
}

INSTANTIATE_TEST_SUITE_P (Positions,
                          KnobArc,
                          testing::Values (ArcCase { "Lowest", 0.0f, true, CrzQ7Colours::q7darkGrey },
                                           ArcCase { "Quarter", 0.25f, true, black },
                                           ArcCase { "Middle", 0.5f, true, CrzQ7Colours::q7darkGrey },
                                           ArcCase { "ThreeQuartersDisabled", 0.75f, false, black },
                                           ArcCase { "Highest", 1.0f, true, CrzQ7Colours::q7darkGrey }),
                          rowName<ArcCase>);

TEST (CrzQ7LookAndFeelKnob, ShowsShadowAndPointerOnlyWhileEnabled)
{
    const auto enabled = paintKnob ({ 0.5f, true });
    const auto disabled = paintKnob ({ 0.5f, false });

    EXPECT_TRUE (pixelIsNear (enabled, knobPixel (0.4f, 0.5f), white, 0));
    EXPECT_LT (disabled.getPixelAt (120, 80).getBrightness(), 0.5f);

    const auto below = knobPixel (0.85f, bottomOfKnob);
    EXPECT_LT (enabled.getPixelAt (below.x, below.y).getBrightness(), 0.6f);
    EXPECT_TRUE (pixelIsNear (disabled, below, white, 0));
}

struct PointerCase
{
    const char* name;
    float position;
};

class KnobPointer : public testing::TestWithParam<PointerCase>
{
};

TEST_P (KnobPointer, PointsAtTheValue)
{
    const auto image = paintKnob ({ GetParam().position });

    for (const float share : { 0.2f, 0.58f })
        EXPECT_TRUE (pixelIsNear (image, knobPixel (share, GetParam().position), white, 0)) << share;

    for (const float share : { 0.05f, 0.7f })
        EXPECT_FALSE (pixelIsNear (image, knobPixel (share, GetParam().position), white, 0)) << share;
}

INSTANTIATE_TEST_SUITE_P (Positions,
                          KnobPointer,
                          testing::Values (PointerCase { "Lowest", 0.0f },
                                           PointerCase { "Third", 0.33f },
                                           PointerCase { "Highest", 1.0f }),
                          rowName<PointerCase>);

TEST (CrzQ7LookAndFeelKnob, TakesOnlyThePointersThicknessFromItsHeight)
{
    const auto pointerThickness = [] (int height)
    {
        const auto image = paintKnob ({ 0.5f, true, black, height });
        int numWhite = 0;

        for (int x = 60; x < 180; ++x)
            numWhite += image.getPixelAt (x, 80) == white ? 1 : 0;

        return numWhite;
    };

    EXPECT_EQ (pointerThickness (200), 8);
    EXPECT_EQ (pointerThickness (100), 4);

    EXPECT_TRUE (
        sameImage (paintKnob ({ 0.5f, false, black, 200 }), paintKnob ({ 0.5f, false, black, 100 })));
}

struct FaceCase
{
    const char* name;
    Colour fill;
    int topLeft, middle, bottomRight, rim; // greys
};

class KnobFace : public testing::TestWithParam<FaceCase>
{
};

TEST_P (KnobFace, FallsFromLightToDarkAroundItsColour)
{
    const auto& row = GetParam();
    const auto image = paintKnob ({ 0.5f, false, row.fill });
    const auto grey = [] (int level)
    { return Colour::greyLevel (static_cast<float> (level) / 255.0f).withAlpha (1.0f); };

    // A third and two thirds of the way along the diagonal of the square.
    EXPECT_TRUE (pixelIsNear (image, { 87, 87 }, grey (row.topLeft), rounding));
    EXPECT_TRUE (pixelIsNear (image, { 120, 120 }, grey (row.middle), rounding));
    EXPECT_TRUE (pixelIsNear (image, { 153, 153 }, grey (row.bottomRight), rounding));
    EXPECT_TRUE (pixelIsNear (image, { 120, 120 - 75 }, grey (row.rim), rounding));
}

// Brighter by 1 halves the distance to 255, darker by 1 halves the value; brighter by 0.4 divides the
// distance by 1.4.
INSTANTIATE_TEST_SUITE_P (Schemes,
                          KnobFace,
                          testing::Values (FaceCase { "Dark", black, 85, 64, 43, 73 },
                                           FaceCase { "Bright", CrzQ7Colours::q7darkGrey, 110, 89, 68, 109 }),
                          rowName<FaceCase>);

TEST (CrzQ7LookAndFeelKnob, SurvivesAnyArea)
{
    CrzQ7LookAndFeelV1 lookAndFeel;
    Slider slider;

    for (const int size : { 0, 1, 2, 5, 9 })
        painted (20,
                 20,
                 white,
                 [&] (juce::Graphics& g)
                 { lookAndFeel.drawRotarySlider (g, 3, 3, size, size, 0.5f, startAngle, endAngle, slider); });
}

// Linear sliders

TEST (CrzQ7LookAndFeelLinear, DrawsTheThumbAsWhiteBarWithBlackLineAtTheValue)
{
    CrzQ7LookAndFeelV1 lookAndFeel;
    Slider slider (Slider::LinearVertical, Slider::NoTextBox);
    slider.setSize (20, 100);
    const Colour ground = juce::Colours::green;

    for (const float position : { 30.0f, 64.6f, 90.0f })
    {
        const auto image =
            painted (40,
                     120,
                     ground,
                     [&] (juce::Graphics& g) {
                         lookAndFeel.drawLinearSliderThumb (
                             g, 10, 10, 20, 100, position, 0, 0, slider.getSliderStyle(), slider);
                     });
        const auto bar = areaOtherThan (image, ground);
        const int line = static_cast<int> (position);

        EXPECT_EQ (bar.getX(), 10) << position;
        EXPECT_EQ (bar.getWidth(), 20) << position;
        EXPECT_NEAR (bar.getY(), position - 10.0f, 1.0f);
        EXPECT_NEAR (bar.getBottom(), position + 10.0f, 1.0f);
        EXPECT_TRUE (pixelIsNear (image, { 20, line }, black, 0)) << position;
        EXPECT_TRUE (pixelIsNear (image, { 20, line - 1 }, white, 0)) << position;
        EXPECT_TRUE (pixelIsNear (image, { 20, line + 1 }, white, 0)) << position;
        EXPECT_TRUE (pixelIsNear (image, { 10, bar.getY() }, ground, 40)) << "the corner is rounded";
    }
}

struct TrackCase
{
    const char* name;
    Slider::SliderStyle style;
    bool enabled;
    juce::Rectangle<int> area; // touched by the track and its outline, in pixels
    juce::Point<int> nearEdge; // 1.5 pixels into the track from its upper or left edge
    int nearGrey;              // there
    juce::Point<int> farEdge;  // 1.5 pixels into it from the opposite edge
    int farGrey;
};

class LinearTrack : public testing::TestWithParam<TrackCase>
{
};

TEST_P (LinearTrack, LiesInTheMiddleAndIsShadedFromOneEdge)
{
    const auto& row = GetParam();
    CrzQ7LookAndFeelV1 lookAndFeel;
    const bool horizontal = row.style == Slider::LinearHorizontal;
    const int width = horizontal ? 100 : 21, height = horizontal ? 21 : 100;
    Slider slider (row.style, Slider::NoTextBox);
    slider.setSize (width, height);
    slider.setEnabled (row.enabled);
    slider.setColour (Slider::trackColourId, white);
    const Colour ground = juce::Colours::green;

    const auto image = painted (
        140,
        140,
        ground,
        [&] (juce::Graphics& g)
        { lookAndFeel.drawLinearSliderBackground (g, 20, 20, width, height, 0, 0, 0, row.style, slider); });

    EXPECT_EQ (areaOtherThan (image, ground), row.area);

    const auto grey = [] (int level) { return Colour::greyLevel (static_cast<float> (level) / 255.0f); };
    EXPECT_TRUE (pixelIsNear (image, row.nearEdge, grey (row.nearGrey), rounding));
    EXPECT_TRUE (pixelIsNear (image, row.farEdge, grey (row.farGrey), rounding));
}

// The thumb radius is 9, so the track is 7 wide and 7 longer than the area. White under black at 19/255 and
// at 6/255 is 236 and 249; at 9/255 it is 246.
INSTANTIATE_TEST_SUITE_P (
    Tracks,
    LinearTrack,
    testing::Values (
        TrackCase { "Horizontal",
                    Slider::LinearHorizontal,
                    true,
                    { 16, 26, 108, 9 },
                    { 70, 28 },
                    239,
                    { 70, 32 },
                    246 },
        TrackCase { "HorizontalDisabled",
                    Slider::LinearHorizontal,
                    false,
                    { 16, 26, 108, 9 },
                    { 70, 28 },
                    247,
                    { 70, 32 },
                    248 },
        TrackCase {
            "Vertical", Slider::LinearVertical, true, { 26, 16, 9, 108 }, { 28, 70 }, 239, { 32, 70 }, 246 },
        TrackCase { "VerticalDisabled",
                    Slider::LinearVertical,
                    false,
                    { 26, 16, 9, 108 },
                    { 28, 70 },
                    247,
                    { 32, 70 },
                    248 }),
    rowName<TrackCase>);

TEST (CrzQ7LookAndFeelLinear, DrawsTheThumbOverTheTrack)
{
    CrzQ7LookAndFeelV1 lookAndFeel;
    Slider slider (Slider::LinearVertical, Slider::NoTextBox);
    slider.setSize (21, 100);
    slider.setColour (Slider::trackColourId, juce::Colours::red);

    const auto image = painted (
        21,
        100,
        juce::Colours::green,
        [&] (juce::Graphics& g)
        { lookAndFeel.drawLinearSlider (g, 0, 0, 21, 100, 50.0f, 0, 0, slider.getSliderStyle(), slider); });

    EXPECT_TRUE (pixelIsNear (image, { 10, 45 }, white, 0));
    EXPECT_GT (image.getPixelAt (10, 20).getRed(), 200);
}
} // namespace
