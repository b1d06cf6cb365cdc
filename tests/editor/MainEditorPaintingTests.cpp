// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the panel paints around its controls, by pixels and by comparing pictures.

#include "EditorUnderTest.h"
#include "PaintedPicture.h"

#include <editor/BrushedGround.h>
#include <editor/CrzQ7Colours.h>

#include <gtest/gtest.h>

namespace
{
using Pixels = juce::Rectangle<int>;

const juce::Colour base = CrzQ7Colours::q7darkGrey.brighter (0.3f);

juce::Image paintedGround (BrushedGround& ground, int width, int height, juce::Colour colour)
{
    juce::Image image (juce::Image::ARGB, width, height, true);
    juce::Graphics g (image);
    ground.draw (g, width, height, colour);
    return image;
}

/** The smallest area in which two pictures of one size differ; empty when they are the same. */
Pixels difference (const juce::Image& a, const juce::Image& b)
{
    Pixels result;

    for (int y = 0; y < a.getHeight(); ++y)
        for (int x = 0; x < a.getWidth(); ++x)
            if (a.getPixelAt (x, y) != b.getPixelAt (x, y))
                result = result.isEmpty() ? Pixels (x, y, 1, 1) : result.getUnion ({ x, y, 1, 1 });

    return result;
}

/** The panel alone, without its controls. */
juce::Image paintedPanel (EditorUnderTest& test)
{
    auto& panel = test.panel();
    juce::Image image (juce::Image::ARGB, panel.getWidth(), panel.getHeight(), true);
    juce::Graphics g (image);
    panel.paint (g);
    return image;
}

void setHeight (EditorUnderTest& test, int height)
{
    test.processor.setEditorHeight (height);
    test.editor->updateEditorSize();
}

struct Panel600 : EditorUnderTest
{
    Panel600() { setHeight (*this, 600); }
};

TEST (BrushedGround, FirstStrokesAreThoseOfTheSeed)
{
    BrushedGround ground;
    const juce::Colour grey { 64, 64, 64 }; // where brighter and darker strokes are more than one step
    const auto image = paintedGround (ground, 900, 600, grey);

    /** The first row, from one pixel to the next end: strokes of 74, 18 and 60 pixels after gaps of 5, 11, 8.
     */
    struct Stroke
    {
        int start, end, sign;
    };

    for (const auto& [start, end, sign] :
         { Stroke { 5, 79, 1 }, Stroke { 90, 108, 1 }, Stroke { 116, 176, -1 } })
    {
        const auto brightness = [&image] (int x)
        { return static_cast<int> (image.getPixelAt (x, 0).getRed()); };
        EXPECT_GT (sign * (brightness (start) - brightness (start - 1)), 0) << start;
        EXPECT_GT (sign * (brightness (end - 1) - brightness (end)), 0) << end;
        EXPECT_NEAR (brightness (start), brightness (start + 5), 1) << start; // the sheen runs across
    }
}

TEST (BrushedGround, IsTheSameEveryTimeAndFollowsSizeAndColour)
{
    BrushedGround one, two;
    const auto first = paintedGround (one, 375, 250, base);
    EXPECT_TRUE (difference (first, paintedGround (one, 375, 250, base)).isEmpty());
    EXPECT_TRUE (difference (first, paintedGround (two, 375, 250, base)).isEmpty());

    EXPECT_FALSE (difference (first, paintedGround (one, 375, 250, CrzQ7Colours::q7darkGrey)).isEmpty());
    const auto larger = paintedGround (one, 600, 400, base);
    EXPECT_EQ (countPixels (larger, larger.getBounds(), juce::Colours::transparentBlack, 0), 0);
    EXPECT_TRUE (difference (first, paintedGround (one, 375, 250, base)).isEmpty());
}

TEST (BrushedGround, RunsFromLightToDark)
{
    BrushedGround ground;
    const auto image = paintedGround (ground, 900, 600, base);
    const auto mean = [&image] (Pixels area)
    {
        int sum = 0;
        for (int y = area.getY(); y < area.getBottom(); ++y)
            for (int x = area.getX(); x < area.getRight(); ++x)
                sum += image.getPixelAt (x, y).getRed();
        return static_cast<double> (sum) / (area.getWidth() * area.getHeight());
    };

    // White over the grey at one corner, black at the other, both at five per cent.
    EXPECT_NEAR (mean ({ 0, 0, 60, 60 }), base.getRed() + 0.05 * (255 - base.getRed()), 1.5);
    EXPECT_NEAR (mean ({ 840, 540, 60, 60 }), 0.95 * base.getRed(), 1.5);
}

TEST (BrushedGround, KeepsEveryPixelOfADenseDisplay)
{
    BrushedGround ground;
    juce::Image image (juce::Image::ARGB, 750, 500, true);
    juce::Graphics g (image);
    g.addTransform (juce::AffineTransform::scale (2.0f));
    ground.draw (g, 375, 250, CrzQ7Colours::q7darkGrey);
    EXPECT_EQ (countPixels (image, image.getBounds(), juce::Colours::transparentBlack, 0), 0);

    // The first stroke ends at 79 of the panel's pixels, which is 158 here, and does not fade into what
    // follows.
    const auto brightness = [&image] (int x) { return static_cast<int> (image.getPixelAt (x, 0).getRed()); };
    EXPECT_GT (brightness (157), brightness (158));
    EXPECT_EQ (brightness (157), brightness (156));
    EXPECT_EQ (brightness (158), brightness (159));
}

TEST (MainEditorPainting, PartialRepaintsGiveTheSamePicture)
{
    Panel600 test;
    const auto whole = paintedPanel (test);
    juce::Image pieces (juce::Image::ARGB, 900, 600, true);

    for (int y = 0; y < 600; y += 75)
        for (int x = 0; x < 900; x += 90)
        {
            juce::Graphics g (pieces);
            g.reduceClipRegion (x, y, 90, 75);
            test.panel().paint (g);
        }

    // Where a letter lies across a seam, JUCE rounds its edge differently.
    constexpr int worstAtSeam = 32, worstElsewhere = 2;

    for (int y = 0; y < 600; ++y)
        for (int x = 0; x < 900; ++x)
            ASSERT_NEAR (whole.getPixelAt (x, y).getGreen(),
                         pieces.getPixelAt (x, y).getGreen(),
                         x % 90 == 0 || y % 75 == 0 ? worstAtSeam : worstElsewhere)
                << x << ", " << y;
}

TEST (MainEditorPainting, UpperBarIsEightHundredthsHigh)
{
    for (const int height : { 250, 400, 600, 800 })
    {
        EditorUnderTest test;
        setHeight (test, height);
        const auto image = paintedPanel (test);
        const int x = height * 3 / 2 * 63 / 100; // between the title and the arrows
        const int barBottom = height * 8 / 100;
        EXPECT_EQ (image.getPixelAt (x, barBottom - 1), CrzQ7Colours::q7mainColour) << height;
        EXPECT_NE (image.getPixelAt (x, barBottom), CrzQ7Colours::q7mainColour) << height;
        EXPECT_EQ (image.getPixelAt (x, 0), juce::Colours::black) << height; // the border
        EXPECT_EQ (image.getPixelAt (x, height - 1), juce::Colours::black) << height;
    }
}

TEST (MainEditorPainting, CaptionsDimWithTheirControls)
{
    struct CaptionCase
    {
        ParameterId parameter;
        Pixels caption;
        bool isDimmed; // when the parameter is on; else when it is off
    };

    for (const auto& row :
         { CaptionCase { ParameterId::mono, { 315, 419, 270, 46 }, true }, // higher than its box
           CaptionCase { ParameterId::safeBass, { 639, 186, 126, 30 }, false } })
    {
        Panel600 test;
        const auto off = paintedPanel (test);
        test.panel().setEditorParameterValue (indexOf (row.parameter), 1.0f);
        const auto on = paintedPanel (test);

        // Only the caption changes.
        EXPECT_FALSE (difference (off, on).isEmpty());
        EXPECT_TRUE (row.caption.contains (difference (off, on))) << difference (off, on).toString();
        EXPECT_GT (countPixels (row.isDimmed ? off : on, row.caption, juce::Colours::black, 8),
                   2 * countPixels (row.isDimmed ? on : off, row.caption, juce::Colours::black, 8));
    }
}

TEST (MainEditorPainting, SectionsGoWithTheControlsTheyFrame)
{
    /** A pixel of bare ground inside a section, in a window of 900 x 600, and the states that show it. */
    struct SectionCase
    {
        const char* name;
        juce::Point<int> inside;
        bool inEasyMode, whenMuted;
    };

    // clang-format off
    const SectionCase cases[] = {
        { "safe bass", { 642, 150 }, true, false }, { "swap and mono", { 138, 180 }, true, false },
        { "mutes", { 642, 450 }, true, false }, { "modes", { 138, 420 }, true, false },
        { "preset row", { 250, 86 }, true, false }, { "pan law", { 626, 355 }, false, false },
        { "pan curve", { 385, 355 }, false, false }, { "levels", { 385, 460 }, false, false },
        { "pan mode", { 626, 460 }, false, false }, { "input", { 22, 100 }, true, true },
        { "output", { 878, 100 }, true, true },
    };
    // clang-format on

    Panel600 test;
    BrushedGround ground;
    const auto bare = paintedGround (ground, 900, 600, base);
    const auto shows = [&] (const SectionCase& row)
    {
        const auto image = paintedPanel (test);
        return image.getPixelAt (row.inside.x, row.inside.y) != bare.getPixelAt (row.inside.x, row.inside.y);
    };

    for (const auto& row : cases)
        EXPECT_EQ (shows (row), row.inEasyMode) << row.name;

    test.processor.setExpertMode (true);
    test.panel().updateAll();
    for (const auto& row : cases)
        EXPECT_TRUE (shows (row)) << row.name;

    for (const auto id : { ParameterId::muteAll, ParameterId::bypass })
    {
        test.panel().setEditorParameterValue (indexOf (id), 1.0f);
        for (const auto& row : cases)
            EXPECT_EQ (shows (row), row.whenMuted) << row.name;
        test.panel().setEditorParameterValue (indexOf (id), 0.0f);
    }
}

TEST (MainEditorPainting, WrongLayoutShowsTheWarning)
{
    Panel600 test;
    test.panel().setStereoConfig (false);
    const auto image = paintedPanel (test);
    EXPECT_EQ (image.getPixelAt (225, 300), CrzQ7Colours::q7mainColour);
    EXPECT_EQ (image.getPixelAt (240, 170), CrzQ7Colours::q7darkGrey.brighter (0.4f));
    EXPECT_GT (countPixels (image, { 240, 170, 420, 260 }, juce::Colours::black, 8), 500); // the text
    EXPECT_EQ (image.getPixelAt (567, 47), CrzQ7Colours::q7mainColour);                    // the upper bar
}

TEST (MainEditorPainting, LeavesTheGroundToTheWindowWhileResizing)
{
    Panel600 test;
    test.panel().resizingStarted();
    EXPECT_FALSE (test.panel().isOpaque());

    const auto image = paintedPanel (test);
    EXPECT_TRUE (image.getPixelAt (450, 300).isTransparent());
    EXPECT_TRUE (image.getPixelAt (225, 570).isTransparent());
    EXPECT_EQ (image.getPixelAt (567, 42), CrzQ7Colours::q7mainColour);
    EXPECT_EQ (image.getPixelAt (450, 599), juce::Colours::black);

    test.panel().resizingStopped();
    EXPECT_TRUE (test.panel().isOpaque());
    EXPECT_EQ (countPixels (paintedPanel (test), { 0, 0, 600, 400 }, juce::Colours::transparentBlack, 0), 0);
}

TEST (MainEditorPainting, ChannelBorderHasTheColourOfTheName)
{
    Panel600 test;
    const juce::Point<int> onBorder (754, 9);
    EXPECT_EQ (paintedPanel (test).getPixelAt (onBorder.x, onBorder.y),
               CrzQ7Colours::q7mainColour.darker (0.2f));
    test.control<juce::Label> ("channelNameLabel").setText ("Choir", juce::sendNotificationSync);
    EXPECT_EQ (paintedPanel (test).getPixelAt (onBorder.x, onBorder.y), juce::Colours::black);
}

TEST (MainEditorPainting, ShowsTheNumbersOfTheStereoFieldInFrontOfIt)
{
    for (const int height : { 250, 400, 600, 800 })
    {
        EditorUnderTest test;
        setHeight (test, height);
        test.panel().setEditorParameterValue (indexOf (ParameterId::pan), 0.1f); // more than one letter
        const auto picture = paintedPicture (test.panel());

        for (const auto* id : { "stereoWidthLabel", "panLabel" })
            EXPECT_GT (countPixels (picture,
                                    test.control<juce::Label> (id).getBounds(),
                                    CrzQ7Colours::q7complementColourA,
                                    30),
                       height / 50)
                << id << " at " << height;
    }
}

} // namespace
