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
#include <utility>

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

    const auto draw = [&] (juce::Graphics& g)
    {
        lookAndFeel.drawRotarySlider (
            g, knobMargin, knobMargin, knobSize, knob.height, knob.position, startAngle, endAngle, slider);
    };
    return painted (canvasSize, canvasSize, white, draw);
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

TEST (CrzQ7LookAndFeelKnob, ArcRunsFromTheStartToTheValueInsideTheTrackAndThePointerToIt)
{
    const Colour grey = CrzQ7Colours::q7darkGrey;

    for (const auto& knob : { Knob { 0.0f, true, grey },
                              Knob { 0.25f, true, black },
                              Knob { 0.5f, true, grey },
                              Knob { 0.75f, false, black },
                              Knob { 1.0f, true, grey } })
    {
        SCOPED_TRACE (knob.position);
        const auto image = paintKnob (knob);

        for (const float place : { 0.02f, 0.2f, 0.45f, 0.55f, 0.8f, 0.98f })
        {
            const auto expected = place < knob.position ? accent : trackColour;
            EXPECT_TRUE (pixelIsNear (image, knobPixel (0.9f, place), expected, rounding)) << place;
            EXPECT_TRUE (pixelIsNear (image, knobPixel (0.985f, place), trackColour, rounding)) << place;
        }

        for (const auto& [share, isPointer] :
             { std::pair { 0.2f, true }, { 0.58f, true }, { 0.05f, false }, { 0.7f, false } })
            EXPECT_EQ (pixelIsNear (image, knobPixel (share, knob.position), white, 0),
                       isPointer && knob.enabled)
                << share;
    }
}

TEST (CrzQ7LookAndFeelKnob, ShowsItsShadowOnlyWhileEnabled)
{
    const auto below = knobPixel (0.85f, bottomOfKnob);
    EXPECT_LT (paintKnob ({ 0.5f, true }).getPixelAt (below.x, below.y).getBrightness(), 0.6f);
    EXPECT_TRUE (pixelIsNear (paintKnob ({ 0.5f, false }), below, white, 0));
}

TEST (CrzQ7LookAndFeelKnob, TakesOnlyThePointersThicknessFromItsHeight)
{
    for (const auto& [height, thickness] : { std::pair { 200, 8 }, { 100, 4 } })
    {
        const auto image = paintKnob ({ 0.5f, true, black, height });
        EXPECT_TRUE (pixelIsNear (image, { 120 + thickness / 2 - 1, 80 }, white, 0)) << height;
        EXPECT_FALSE (pixelIsNear (image, { 120 + thickness / 2, 80 }, white, 0)) << height;
    }

    EXPECT_TRUE (
        sameImage (paintKnob ({ 0.5f, false, black, 200 }), paintKnob ({ 0.5f, false, black, 100 })));
}

TEST (CrzQ7LookAndFeelKnob, FallsFromLightToDarkAroundItsColour)
{
    struct FaceCase
    {
        Colour fill;
        juce::uint8 topLeft, middle, bottomRight, rim; // greys
    };

    // Brighter by 1 halves the distance to 255, darker by 1 halves the value; brighter by 0.4 divides the
    // distance by 1.4.
    for (const auto& row :
         { FaceCase { black, 85, 64, 43, 73 }, FaceCase { CrzQ7Colours::q7darkGrey, 110, 89, 68, 109 } })
    {
        const auto image = paintKnob ({ 0.5f, false, row.fill });
        const auto expectGrey = [&] (juce::Point<int> place, juce::uint8 level)
        { EXPECT_TRUE (pixelIsNear (image, place, Colour (level, level, level), rounding)); };

        // A third and two thirds of the way along the diagonal of the square.
        expectGrey ({ 87, 87 }, row.topLeft);
        expectGrey ({ 120, 120 }, row.middle);
        expectGrey ({ 153, 153 }, row.bottomRight);
        expectGrey ({ 120, 120 - 75 }, row.rim);
    }
}

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

// The thumb radius is 9, so the track is 7 wide and 7 longer than the area. White under black at 19/255 and
// at 6/255 is 236 and 249; at 9/255 it is 246.
// clang-format off
const TrackCase trackCases[] = {
    { "Horizontal", Slider::LinearHorizontal, true, { 16, 26, 108, 9 }, { 70, 28 }, 239, { 70, 32 }, 246 },
    { "HorizontalDisabled", Slider::LinearHorizontal, false, { 16, 26, 108, 9 }, { 70, 28 }, 247, { 70, 32 }, 248 },
    { "Vertical", Slider::LinearVertical, true, { 26, 16, 9, 108 }, { 28, 70 }, 239, { 32, 70 }, 246 },
    { "VerticalDisabled", Slider::LinearVertical, false, { 26, 16, 9, 108 }, { 28, 70 }, 247, { 32, 70 }, 248 },
};
// clang-format on

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

INSTANTIATE_TEST_SUITE_P (Tracks, LinearTrack, testing::ValuesIn (trackCases), rowName<TrackCase>);

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
