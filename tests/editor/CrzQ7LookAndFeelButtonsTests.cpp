// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The look of buttons and toggles, by their pixels.

#include <editor/CrzQ7LookAndFeelV1.h>

#include <gtest/gtest.h>
#include <support/Painting.h>

namespace
{
using juce::Colour;
using juce::Colours::white;

constexpr int rounding = 2; // of 255, for colours that went through a gradient or an overlay

const Colour accent { 8, 111, 161 };

// Buttons

constexpr int buttonWidth = 40, buttonHeight = 30;

juce::Image paintButton (Colour colour, int connectedEdges, bool isOver, bool isDown)
{
    CrzQ7LookAndFeelV1 lookAndFeel;
    juce::TextButton button;
    button.setSize (buttonWidth, buttonHeight);
    button.setConnectedEdges (connectedEdges);

    return painted (buttonWidth,
                    buttonHeight,
                    juce::Colours::transparentBlack,
                    [&] (juce::Graphics& g)
                    { lookAndFeel.drawButtonBackground (g, button, colour, isOver, isDown); });
}

TEST (CrzQ7LookAndFeelButton, IsSquareWhereItIsJoinedToAnother)
{
    struct EdgeCase
    {
        int connected;
        bool topLeft, topRight, bottomLeft, bottomRight; // rounded
    };

    constexpr int left = juce::Button::ConnectedOnLeft, right = juce::Button::ConnectedOnRight;
    constexpr int top = juce::Button::ConnectedOnTop, bottom = juce::Button::ConnectedOnBottom;

    for (const auto& row : { EdgeCase { 0, true, true, true, true },
                             EdgeCase { left, false, true, false, true },
                             EdgeCase { right, true, false, true, false },
                             EdgeCase { top, false, false, true, true },
                             EdgeCase { bottom, true, true, false, false },
                             EdgeCase { left | top, false, false, false, true },
                             EdgeCase { left | right, false, false, false, false } })
    {
        SCOPED_TRACE (row.connected);
        const auto image = paintButton (juce::Colours::grey, row.connected, false, false);
        const auto isRounded = [&image] (int x, int y) { return image.getPixelAt (x, y).getAlpha() < 40; };

        EXPECT_EQ (isRounded (0, 0), row.topLeft);
        EXPECT_EQ (isRounded (buttonWidth - 1, 0), row.topRight);
        EXPECT_EQ (isRounded (0, buttonHeight - 1), row.bottomLeft);
        EXPECT_EQ (isRounded (buttonWidth - 1, buttonHeight - 1), row.bottomRight);
    }
}

TEST (CrzQ7LookAndFeelButton, FallsFromLightToDarkAndIsDarkerWhileDown)
{
    const Colour grey { 100, 100, 100 };
    const auto up = paintButton (grey, 0, false, false);
    const auto down = paintButton (grey, 0, false, true);
    const juce::Point<int> middle { 20, 14 }; // where half of the height is

    // 126 to 80 for the colour itself; down it is 71, and 102 to 57 for that.
    EXPECT_TRUE (pixelIsNear (up, middle, Colour (103, 103, 103), rounding));
    EXPECT_TRUE (pixelIsNear (down, middle, Colour (79, 79, 79), rounding));
    EXPECT_GT (up.getPixelAt (20, 4).getRed(), up.getPixelAt (20, 24).getRed() + 20);

    EXPECT_TRUE (sameImage (up, paintButton (grey, 0, true, false))) << "the mouse over it does not show";
    EXPECT_FALSE (sameImage (up, down));
}

TEST (CrzQ7LookAndFeelButton, HasDarkOutlineAndALightEdgeThatGrowsWithBrightness)
{
    const auto edgeOver = [] (juce::uint8 level)
    {
        const auto image = paintButton (Colour (level, level, level), 0, false, false);
        EXPECT_LT (image.getPixelAt (20, 0).getRed(), image.getPixelAt (20, 3).getRed() * 0.75)
            << int (level);
        return image.getPixelAt (20, 1).getRed() - image.getPixelAt (20, 3).getRed();
    };

    const int onBright = edgeOver (180), onDark = edgeOver (60);
    EXPECT_GT (onBright, 10);
    EXPECT_GT (onBright, onDark + 5);
}

// Toggles

juce::Image paintToggle (const juce::String& text, bool ticked, bool isOver, bool enabled)
{
    CrzQ7LookAndFeelV1 lookAndFeel;
    juce::ToggleButton button (text);
    button.setSize (300, 100);
    button.setToggleState (ticked, juce::dontSendNotification);
    button.setEnabled (enabled);

    return painted (300,
                    100,
                    white,
                    [&] (juce::Graphics& g) { lookAndFeel.drawToggleButton (g, button, isOver, false); });
}

TEST (CrzQ7LookAndFeelToggle, ShowsItsStateByTheSphereAlone)
{
    // The sphere is 56 wide in the left of a box of 80. Its own colour stands at 0.4 of its height.
    const juce::Point<int> place { 28, 44 };
    EXPECT_TRUE (pixelIsNear (paintToggle ({}, true, false, true), place, accent, 4));
    EXPECT_TRUE (pixelIsNear (paintToggle ({}, false, false, true), place, Colour (131, 131, 131), 4));

    const auto sphere = areaOtherThan (paintToggle ({}, true, false, true), white);
    EXPECT_EQ (sphere, juce::Rectangle<int> (0, 21, 57, 58));

    EXPECT_TRUE (sameImage (paintToggle ("Hx", true, false, true), paintToggle ("Hx", true, true, true)));
    EXPECT_TRUE (sameImage (paintToggle ("Hx", true, false, true), paintToggle ("Hx", true, false, false)));
}

TEST (CrzQ7LookAndFeelToggle, WritesRightOfTheSphereAsHighAsTheButton)
{
    const auto image = paintToggle ("H", false, false, true);
    const auto text = areaOtherThan (image.getClippedImage ({ 80, 0, 220, 100 }).createCopy(), white);
    EXPECT_LT (text.getX(), 15);
    EXPECT_GT (text.getHeight(), 45);
}
} // namespace
