// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The stereo field: the triangle's corners, what is drawn when, and its colours.

#include <editor/StereoComponent.h>

#include "PaintedPicture.h"

#include <editor/CrzQ7Colours.h>

#include <gtest/gtest.h>
#include <support/NamedRows.h>

#include <cmath>
#include <limits>

namespace
{
constexpr int width = 360;
constexpr int height = 240;

// The field is inset by a tenth of the height.
const juce::Rectangle<float> field { 24.0f, 24.0f, 312.0f, 192.0f };
constexpr float left = 24.0f, right = 336.0f, bottom = 216.0f, centreX = 180.0f;

struct TriangleCase
{
    const char* name;
    float stereoWidth, pan;
    juce::Point<float> first, second;
};

class StereoComponentTriangle : public testing::TestWithParam<TriangleCase>
{
};

// Before it is tilted, a corner stands 3.12, 157.56 or 312 pixels apart from the other (s = 0.01, 0.505 and 1
// of the field's width), and 190.848, 133.824 or 76.8 pixels above the bottom (0.6 s of its height from the
// top).
// clang-format off
const TriangleCase triangleCases[] = {
    { "SpikeInTheMiddle", 0.0f, 0.5f, { centreX - 1.56f, 25.152f }, { centreX + 1.56f, 25.152f } },
    { "SpikeToTheLeft", 0.0f, 0.0f, { left, bottom }, { left, bottom - 1.56f } },
    { "SpikeToTheRight", 0.0f, 1.0f, { right, bottom - 1.56f }, { right, bottom } },
    { "NormalInTheMiddle", 0.5f, 0.5f, { centreX - 78.78f, 82.176f }, { centreX + 78.78f, 82.176f } },
    { "NormalToTheLeft", 0.5f, 0.0f, { centreX - 133.824f, bottom }, { centreX - 133.824f, bottom - 78.78f } },
    { "NormalToTheRight", 0.5f, 1.0f, { centreX + 133.824f, bottom - 78.78f }, { centreX + 133.824f, bottom } },
    { "WideInTheMiddle", 1.0f, 0.5f, { left, 139.2f }, { right, 139.2f } },
    { "WideToTheLeft", 1.0f, 0.0f, { centreX - 76.8f, bottom }, { centreX - 76.8f, bottom - 156.0f } },
    { "WideToTheRight", 1.0f, 1.0f, { centreX + 76.8f, bottom - 156.0f }, { centreX + 76.8f, bottom } },
    // An eighth turn to the left: (-156, -76.8) and (156, -76.8) from the listener's point, turned by 45
    // degrees.
    { "WideHalfLeft", 1.0f, 0.25f, { left, bottom }, { centreX + 56.003f, 51.387f } },
};
// clang-format on

TEST_P (StereoComponentTriangle, StandsInsideTheField)
{
    const auto& row = GetParam();
    const auto corners = StereoComponent::triangleIn (field, row.stereoWidth, row.pan);
    constexpr float tolerance = 0.01f; // pixels; the rows have three decimals

    EXPECT_LT (corners[0].getDistanceFrom (row.first), tolerance) << corners[0].toString();
    EXPECT_LT (corners[1].getDistanceFrom (row.second), tolerance) << corners[1].toString();
    EXPECT_EQ (corners[2], (juce::Point<float> { centreX, bottom }));
}

INSTANTIATE_TEST_SUITE_P (Corners,
                          StereoComponentTriangle,
                          testing::ValuesIn (triangleCases),
                          rowName<TriangleCase>);

TEST (StereoComponent, LetsACornerRiseAboveTheField)
{
    const juce::Rectangle<float> flatField { 0.0f, 0.0f, 300.0f, 50.0f };
    const auto corners = StereoComponent::triangleIn (flatField, 1.0f, 0.25f);

    EXPECT_LT (corners[1].y, 0.0f);
}

/** The picture in a parent, as the panel shows it. */
class Picture
{
public:
    explicit Picture (juce::Font* font = nullptr)
        : component (font, nullptr, nullptr)
    {
        parent.setSize (900, 600);
        parent.addAndMakeVisible (component);
        component.setSize (width, height);
    }

    juce::Image paint() { return paintedPicture (component); }

private:
    juce::Component parent;

public:
    StereoComponent component;
};

const juce::Rectangle<int> wholePicture { width, height };

TEST (StereoComponent, WarmsAboveNormalWidth)
{
    struct Row
    {
        float stereoWidth;
        juce::Colour line;
    };

    // Grey is 128, 128, 128; at full width nothing of it is left.
    const Row rows[] = { { 0.0f, juce::Colour (128, 128, 128) },
                         { 0.49f, juce::Colour (128, 128, 128) },
                         { 0.75f, juce::Colour (67, 119, 145) },
                         { 1.0f, CrzQ7Colours::q7complementColourA } };
    constexpr int tolerance = 2; // rounding of the overlay

    for (const auto& row : rows)
    {
        Picture picture;
        constexpr float pan = 0.6f;
        picture.component.setStereoWidth (row.stereoWidth);
        picture.component.setPan (pan);
        const auto image = picture.paint();
        const auto corners = StereoComponent::triangleIn (field, row.stereoWidth, pan);
        const auto onTheLine = (corners[1] + (corners[2] - corners[1]) * 0.3f).roundToInt();

        EXPECT_EQ (countPixels (image, { onTheLine.x, onTheLine.y, 1, 1 }, row.line, tolerance), 1)
            << row.stereoWidth << " " << image.getPixelAt (onTheLine.x, onTheLine.y).toString();
    }
}

TEST (StereoComponent, GivesWayToAWord)
{
    struct Row
    {
        bool bypassed, muted;
        juce::Colour present, absent;
    };

    using namespace CrzQ7Colours;
    const Row rows[] = { { true, false, q7mainColour, q7complementColourA },
                         { false, true, q7complementColourA, q7mainColour },
                         { true, true, q7mainColour, q7complementColourA } };

    for (const auto& row : rows)
    {
        Picture picture;
        picture.component.setBypassState (row.bypassed);
        picture.component.setMuteAllState (row.muted);
        const auto image = picture.paint();

        EXPECT_GT (countPixels (image, wholePicture, row.present, 2), 300);
        EXPECT_EQ (countPixels (image, wholePicture, row.absent, 2), 0);
        EXPECT_EQ (countPixels (image, wholePicture, juce::Colours::darkgrey, 2), 0); // no captions, no line
    }

    Picture picture;
    const auto fieldPicture = picture.paint();
    EXPECT_GT (countPixels (fieldPicture, wholePicture, juce::Colours::darkgrey, 2), 100);
    EXPECT_EQ (countPixels (fieldPicture, wholePicture, CrzQ7Colours::q7mainColour, 2), 0);
}

TEST (StereoComponent, FramesItsGroundAndWritesItsCaptionsInTheirPlaces)
{
    struct Row
    {
        const char* text;
        juce::Rectangle<int> box; ///< pixels
        int justification;
    };

    const Row rows[] = { { "LEFT", { 18, 192, 72, 24 }, juce::Justification::left },
                         { "RIGHT", { 270, 192, 72, 24 }, juce::Justification::right },
                         { "STEREO WIDTH:", { 18, 17, 101, 24 }, juce::Justification::left },
                         { "PAN:", { 234, 17, 108, 24 }, juce::Justification::right } };
    constexpr float narrowestText = 0.4f;

    juce::Font font (17.0f);
    Picture picture (&font);
    picture.component.setStereoWidth (0.0f); // no line of it comes near a caption
    const auto image = picture.paint();

    juce::Image expected (juce::Image::ARGB, width, height, true);

    {
        juce::Graphics g (expected);
        g.setColour (juce::Colours::black);
        g.fillRoundedRectangle (wholePicture.toFloat(), 6.0f);
        g.setColour (juce::Colours::white.withAlpha (0.1f));
        g.fillRoundedRectangle (wholePicture.toFloat().reduced (12.0f), 6.0f);
        g.setFont (font.withHeight (24.0f));
        g.setColour (juce::Colours::darkgrey);

        for (const auto& row : rows)
            g.drawFittedText (row.text, row.box, row.justification, 1, narrowestText);
    }

    // All but the line and the spike in the middle.
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
        {
            const bool isInTheMiddle = std::abs (x - width / 2) <= 10;
            ASSERT_TRUE (isInTheMiddle || image.getPixelAt (x, y) == expected.getPixelAt (x, y))
                << x << ", " << y;
        }

    EXPECT_EQ (font.getHeight(), 17.0f) << "the font is shared";
}

TEST (StereoComponent, DashesItsCentreLine)
{
    // 3 % and 1.5 % of the 240 pixels, from the top of the field.
    constexpr float dash = 7.2f, gap = 3.6f;
    constexpr int line = width / 2; // one pixel wide, half of it in this column
    constexpr int ground = 26, halfCovered = 55, rounding = 3;

    Picture picture;
    picture.component.setStereoWidth (1.0f); // its upper edge is 139 pixels down
    const auto image = picture.paint();
    const auto redAt = [&image] (int x, float y)
    { return int { image.getPixelAt (x, static_cast<int> (y)).getRed() }; };

    for (float start = field.getY(); start < 130.0f; start += dash + gap)
    {
        EXPECT_EQ (redAt (line, start - gap / 2.0f), ground) << start;
        EXPECT_NEAR (redAt (line, start + dash / 2.0f), halfCovered, rounding) << start;
        EXPECT_EQ (redAt (line - 2, start + dash / 2.0f), ground) << start;
        EXPECT_EQ (redAt (line + 1, start + dash / 2.0f), ground) << start;
    }
}

TEST (StereoComponent, PaintsWhateverItIsTold)
{
    constexpr float nan = std::numeric_limits<float>::quiet_NaN();
    constexpr float infinity = std::numeric_limits<float>::infinity();

    for (const float value : { nan, infinity, -infinity, -1.0f, 2.0f, 1.0e30f })
        for (const auto size :
             { juce::Point<int> (width, height), juce::Point<int> (1, 1), juce::Point<int> (10, 300) })
        {
            StereoComponent component (nullptr, nullptr, nullptr); // no parent either
            component.setSize (size.x, size.y);
            component.setStereoWidth (value);
            component.setPan (value);
            EXPECT_GT (paintedPicture (component).getPixelAt (0, size.y / 2).getAlpha(), 250);
        }
}
} // namespace
