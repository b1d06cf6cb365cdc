// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The fonts, labels, text boxes and the corner resizer of the look and feel.

#include <editor/CrzQ7LookAndFeelV1.h>
#include <presets/DisplayHeight.h>

#include <gtest/gtest.h>
#include <support/NamedRows.h>
#include <support/Painting.h>

namespace
{
using juce::Colour;
using juce::Slider;
using juce::Colours::black;
using juce::Colours::white;

// Labels, fonts and text boxes

TEST (CrzQ7LookAndFeelLabel, DrawsTheTextAlone)
{
    CrzQ7LookAndFeelV1 lookAndFeel;
    juce::Label label ({}, "HHH");
    label.setSize (200, 40);
    label.setColour (juce::Label::textColourId, juce::Colours::blue);
    label.setColour (juce::Label::backgroundColourId, juce::Colours::red);
    label.setColour (juce::Label::outlineColourId, juce::Colours::red);

    const auto paintWith = [&] (juce::Justification justification)
    {
        label.setJustificationType (justification);
        return painted (200, 40, white, [&] (juce::Graphics& g) { lookAndFeel.drawLabel (g, label); });
    };

    const auto left = paintWith (juce::Justification::centredLeft);
    const auto right = paintWith (juce::Justification::centredRight);

    EXPECT_LT (areaOtherThan (left, white).getX(), 6) << "no border is kept free";
    EXPECT_GT (areaOtherThan (right, white).getRight(), 194);
    EXPECT_NEAR (areaOtherThan (left, white).getHeight(), 0.52 * 40, 2) << "capitals of a font of 40 pixels";

    for (int y = 0; y < 40; ++y)
        for (int x = 0; x < 200; ++x)
            ASSERT_EQ (left.getPixelAt (x, y).getBlue(), 255) << "only blue on white";
}

struct PopupFontCase
{
    const char* name;
    int displayHeight;
    float expected; // pixels
};

class PopupFont : public testing::TestWithParam<PopupFontCase>
{
};

TEST_P (PopupFont, FollowsTheDisplayFromAFloorUp)
{
    const ScopedMainDisplayUserHeight display (GetParam().displayHeight);
    CrzQ7LookAndFeelV1 lookAndFeel;
    EXPECT_EQ (lookAndFeel.getPopupMenuFont().getHeight(), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P (Displays,
                          PopupFont,
                          testing::Values (PopupFontCase { "Small", 480, 27.0f },
                                           PopupFontCase { "LastOnTheFloor", 1090, 27.0f },
                                           PopupFontCase { "FirstAboveIt", 1110, 28.0f },
                                           PopupFontCase { "Large", 2160, 54.0f }),
                          rowName<PopupFontCase>);

TEST (CrzQ7LookAndFeelFonts, AreTheDisplayFaceAtAShareOfTheHeight)
{
    CrzQ7LookAndFeelV1 lookAndFeel;
    juce::Label label;
    label.setSize (100, 50);
    juce::TextButton button;

    EXPECT_FLOAT_EQ (lookAndFeel.getLabelFont (label).getHeight(), 45.0f);
    EXPECT_FLOAT_EQ (lookAndFeel.getTextButtonFont (button, 30).getHeight(), 24.0f);

    for (const auto& font : { lookAndFeel.getLabelFont (label),
                              lookAndFeel.getTextButtonFont (button, 30),
                              lookAndFeel.getPopupMenuFont() })
        EXPECT_EQ (font.getTypefaceName(), "WideLoom Display");
}

TEST (CrzQ7LookAndFeelTextBox, IsEditedOnDoubleClickInTheSlidersColours)
{
    CrzQ7LookAndFeelV1 lookAndFeel;
    Slider slider;
    slider.setColour (Slider::textBoxTextColourId, juce::Colours::red);
    slider.setColour (Slider::textBoxBackgroundColourId, juce::Colours::green);
    slider.setColour (Slider::textBoxOutlineColourId, juce::Colours::blue);
    slider.setColour (Slider::textBoxHighlightColourId, juce::Colours::yellow);

    const std::unique_ptr<juce::Label> box (lookAndFeel.createSliderTextBox (slider));

    EXPECT_EQ (box->findColour (juce::Label::textColourId), juce::Colours::red);
    EXPECT_EQ (box->findColour (juce::TextEditor::textColourId), juce::Colours::red);
    EXPECT_EQ (box->findColour (juce::TextEditor::backgroundColourId), juce::Colours::green);
    EXPECT_EQ (box->findColour (juce::Label::outlineColourId), juce::Colours::blue);
    EXPECT_EQ (box->findColour (juce::Label::outlineWhenEditingColourId), juce::Colours::blue);
    EXPECT_EQ (box->findColour (juce::TextEditor::outlineColourId), juce::Colours::blue);
    EXPECT_EQ (box->findColour (juce::TextEditor::highlightColourId), juce::Colours::yellow);

    EXPECT_EQ (box->getJustificationType(), juce::Justification::centred);
    EXPECT_FALSE (box->isEditableOnSingleClick());
    EXPECT_TRUE (box->isEditableOnDoubleClick());
    EXPECT_TRUE (box->doesLossOfFocusDiscardChanges());
    EXPECT_TRUE (box->getText().isEmpty() && box->getName().isEmpty());
}

// The corner resizer

struct ResizerCase
{
    const char* name;
    bool isOver, isDragging;
    Colour expected;
};

class CornerResizer : public testing::TestWithParam<ResizerCase>
{
};

TEST_P (CornerResizer, ShowsTwoArrowsInTheColourOfItsState)
{
    const auto& row = GetParam();
    CrzQ7LookAndFeelV1 lookAndFeel;
    lookAndFeel.setCurrentLightGrey ({ 140, 140, 140 });

    const auto image = painted (100,
                                100,
                                white,
                                [&] (juce::Graphics& g)
                                { lookAndFeel.drawCornerResizer (g, 100, 100, row.isOver, row.isDragging); });

    // From (58.5, 58.5) to the tip at (90, 90), and from (59, 59) to the tip at (30, 30).
    for (const int onDiagonal : { 34, 45, 65, 86 })
        EXPECT_TRUE (pixelIsNear (image, { onDiagonal, onDiagonal }, row.expected, 1)) << onDiagonal;

    for (const int onDiagonal : { 25, 94 })
        EXPECT_TRUE (pixelIsNear (image, { onDiagonal, onDiagonal }, white, 0)) << onDiagonal;
}

INSTANTIATE_TEST_SUITE_P (States,
                          CornerResizer,
                          testing::Values (ResizerCase { "AtRest", false, false, { 100, 100, 100 } },
                                           ResizerCase { "Over", true, false, { 255, 53, 0 } },
                                           ResizerCase { "Dragged", false, true, { 0, 0, 0 } },
                                           ResizerCase { "OverAndDragged", true, true, { 0, 0, 0 } }),
                          rowName<ResizerCase>);

struct ArrowPlace
{
    const char* name;
    int along, across; // pixels down the diagonal, and to either side of it
    Colour expected;
};

class CornerResizerShape : public testing::TestWithParam<ArrowPlace>
{
};

TEST_P (CornerResizerShape, IsThatOfTwoArrows)
{
    const auto& row = GetParam();
    CrzQ7LookAndFeelV1 lookAndFeel;
    const auto image =
        painted (100,
                 100,
                 white,
                 [&] (juce::Graphics& g) { lookAndFeel.drawCornerResizer (g, 100, 100, false, true); });

    for (const int across : { row.across, -row.across })
        EXPECT_TRUE (pixelIsNear (image, { row.along + across, row.along - across }, row.expected, 0))
            << across;
}

// The shafts are 24 thick, the heads 44 wide where they begin: 64.8 and 53.2 down the diagonal.
INSTANTIATE_TEST_SUITE_P (Places,
                          CornerResizerShape,
                          testing::Values (ArrowPlace { "InTheShaft", 61, 7, black },
                                           ArrowPlace { "BesideTheShaft", 61, 10, white },
                                           ArrowPlace { "InTheOutwardHead", 66, 12, black },
                                           ArrowPlace { "BesideTheOutwardHead", 66, 17, white },
                                           ArrowPlace { "InTheInwardHead", 50, 12, black },
                                           ArrowPlace { "BesideTheInwardHead", 50, 17, white }),
                          rowName<ArrowPlace>);

TEST (CrzQ7LookAndFeelResizer, TakesTheInwardTipFromBothSides)
{
    CrzQ7LookAndFeelV1 lookAndFeel;
    const auto image =
        painted (100,
                 200,
                 white,
                 [&] (juce::Graphics& g) { lookAndFeel.drawCornerResizer (g, 100, 200, false, true); });

    // The tip lies at 0.1 of the width and 0.2 of the height, in both directions.
    EXPECT_NEAR (areaOtherThan (image, white).getY(), 50, 1);
    EXPECT_TRUE (pixelIsNear (image, { 50, 56 }, black, 0));
}
} // namespace
