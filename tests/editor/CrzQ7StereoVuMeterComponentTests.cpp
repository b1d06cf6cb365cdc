// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The level meters: bars by their pixels, numbers by their text and colour.

#include <editor/CrzQ7StereoVuMeterComponent.h>

#include "PaintedPicture.h"

#include <editor/CrzQ7Colours.h>

#include <gtest/gtest.h>
#include <support/NamedRows.h>

#include <limits>

namespace
{
constexpr int meterWidth = 100;
constexpr int meterHeight = 400;

// 0.83 of 400 pixels.
constexpr int barHeight = 332;

/** A meter with its parts at hand, in the order in which they are added. */
struct Meter
{
    explicit Meter (float maximumLevel = 1.0f)
        : component (maximumLevel, juce::Colours::black.withAlpha (0.07f))
    {
        component.setVisible (true);
        component.setSize (meterWidth, meterHeight);
    }

    juce::Component& bar (int channel) { return *component.getChildComponent (channel); }
    juce::Label& label (int channel)
    {
        return dynamic_cast<juce::Label&> (*component.getChildComponent (2 + channel));
    }

    CrzQ7StereoVuMeterComponent component;
};

/** How many pixels high a bar stands, and that all above is black. */
int heightOf (juce::Component& bar, juce::Colour colour)
{
    const auto picture = paintedPicture (bar);
    const auto middle = juce::Rectangle<int> (bar.getWidth() / 2, 0, 1, bar.getHeight());
    const int height = countPixels (picture, middle, colour, 0);
    const auto above = middle.withHeight (bar.getHeight() - height - 1);

    EXPECT_EQ (countPixels (picture, middle.withTop (bar.getHeight() - height), colour, 0), height);
    EXPECT_EQ (countPixels (picture, above, juce::Colours::black, 0), juce::jmax (0, above.getHeight()));
    return height;
}

struct ReadingCase
{
    const char* name;
    float level;
    int pixels; ///< rows of the bar that are filled wholly
    bool isOver;
    const char* text;
};

class CrzQ7StereoVuMeterComponentReading : public testing::TestWithParam<ReadingCase>
{
};

// Heights are 332 pixels times the square root of the level.
const ReadingCase readingCases[] = {
    { "Silence", 0.0f, 0, false, "-INF" },
    { "BelowTheLowest", 0.0000005f, 0, false, "-INF" },
    { "Lowest", 1.0e-6f, 0, false, "-120.0" },
    { "Minus40", 0.01f, 33, false, "-40.0" },
    { "Minus20", 0.1f, 104, false, "-20.0" },
    { "Minus6", 0.5f, 234, false, "-6.0" },
    { "FullScale", 1.0f, 332, false, "0.0" },
    { "Over", 1.01f, 332, true, "0.1" },
    { "FarOver", 1.0e6f, 332, true, "120.0" },
    { "NotANumber", std::numeric_limits<float>::quiet_NaN(), 0, false, "-INF" },
    { "Endless", std::numeric_limits<float>::infinity(), 332, true, "770.6" },
    { "Negative", -1.0f, 0, false, "-INF" },
};

TEST_P (CrzQ7StereoVuMeterComponentReading, ShowsOnItsOwnChannel)
{
    const auto& row = GetParam();
    const auto barColour = row.isOver ? CrzQ7Colours::q7mainColour : CrzQ7Colours::q7complementColourA;
    const auto textColour = row.isOver ? CrzQ7Colours::q7mainColour : juce::Colours::black;

    for (const int channel : { 0, 1 })
    {
        Meter meter;
        const float other = 0.25f;
        meter.component.setStereoVuVisuals ({ 2.0f, 2.0f }); // nothing of it is held back
        meter.component.setStereoVuVisuals (channel == 0 ? CrzStereoVuVisuals { row.level, other }
                                                         : CrzStereoVuVisuals { other, row.level });

        EXPECT_EQ (heightOf (meter.bar (channel), barColour), row.pixels);
        EXPECT_EQ (meter.label (channel).getText(), row.text);
        EXPECT_EQ (meter.label (channel).findColour (juce::Label::textColourId), textColour);
        EXPECT_EQ (heightOf (meter.bar (1 - channel), CrzQ7Colours::q7complementColourA), barHeight / 2);
        EXPECT_EQ (meter.label (1 - channel).getText(), "-12.0");
    }
}

INSTANTIATE_TEST_SUITE_P (Readings,
                          CrzQ7StereoVuMeterComponentReading,
                          testing::ValuesIn (readingCases),
                          rowName<ReadingCase>);

/** Uses every pixel that a label gives it. */
class FilledLabels : public juce::LookAndFeel_V3
{
    void drawLabel (juce::Graphics& g, juce::Label& label) override
    {
        g.setColour (juce::Colours::white);
        g.fillRect (label.getLocalBounds());
    }
};

TEST (CrzQ7StereoVuMeterComponent, LeavesAGapBetweenItsNumbers)
{
    FilledLabels lookAndFeel;
    Meter meter;
    meter.component.setLookAndFeel (&lookAndFeel);
    const auto image = paintedPicture (meter.component);
    meter.component.setLookAndFeel (nullptr);

    // Of the labels' 2 x 35 pixels, 12 % at the inner sides stay free: some 4 of each.
    EXPECT_EQ (countPixels (image, { 15, 380, 30, 1 }, juce::Colours::white, 0), 30);
    EXPECT_EQ (countPixels (image, { 46, 380, 8, 1 }, juce::Colours::white, 0), 0);
    EXPECT_EQ (countPixels (image, { 55, 380, 30, 1 }, juce::Colours::white, 0), 30);
}

TEST (CrzQ7StereoVuMeterComponent, KeepsItsPictureWhileHidden)
{
    Meter meter;
    meter.component.setStereoVuVisuals ({ 0.25f, 0.25f });
    meter.component.setVisible (false);
    meter.component.setStereoVuVisuals ({ 1.0f, 1.0f });
    meter.component.setVisible (true);

    EXPECT_EQ (heightOf (meter.bar (1), CrzQ7Colours::q7complementColourA), barHeight / 2);
    EXPECT_EQ (meter.label (1).getText(), "-12.0");
}

TEST (CrzQ7StereoVuMeterComponent, ScalesToTheLevelThatFillsIt)
{
    Meter meter (2.0f);
    meter.component.setStereoVuVisuals ({ 1.0f, 4.0f });

    EXPECT_EQ (heightOf (meter.bar (0), CrzQ7Colours::q7complementColourA), barHeight / 2);
    EXPECT_EQ (heightOf (meter.bar (1), CrzQ7Colours::q7mainColour), barHeight);
}

TEST (CrzQ7StereoVuMeterComponent, PlacesItsPartsAtEverySize)
{
    struct Row
    {
        int width, height;
        juce::Rectangle<int> leftMeter, rightMeter, leftLabel, rightLabel;
    };

    const Row rows[] = {
        { 100, 400, { 15, 20, 20, 332 }, { 65, 20, 20, 332 }, { 15, 360, 35, 40 }, { 50, 360, 35, 40 } },
        { 72, 240, { 11, 12, 14, 199 }, { 47, 12, 14, 199 }, { 11, 216, 25, 24 }, { 36, 216, 25, 24 } },
    };

    for (const auto& row : rows)
    {
        Meter meter;
        meter.component.setSize (row.width, row.height);
        EXPECT_EQ (meter.bar (0).getBounds(), row.leftMeter);
        EXPECT_EQ (meter.bar (1).getBounds(), row.rightMeter);
        EXPECT_EQ (meter.label (0).getBounds(), row.leftLabel);
        EXPECT_EQ (meter.label (1).getBounds(), row.rightLabel);
    }
}
} // namespace
