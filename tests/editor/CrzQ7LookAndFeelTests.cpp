// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The fonts, labels, text boxes and the corner resizer of the look and feel.

#include <editor/CrzQ7LookAndFeelV1.h>
#include <presets/DisplayHeight.h>

#include <gtest/gtest.h>
#include <support/Painting.h>

#include <utility>

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
}

TEST (CrzQ7LookAndFeelFonts, ThatOfAMenuFollowsTheDisplayFromAFloorUp)
{
    for (const auto& [displayHeight, fontHeight] :
         { std::pair { 480, 27.0f }, { 1090, 27.0f }, { 1110, 28.0f }, { 2160, 54.0f } })
    {
        const ScopedMainDisplayUserHeight display (displayHeight);
        EXPECT_EQ (CrzQ7LookAndFeelV1().getPopupMenuFont().getHeight(), fontHeight) << displayHeight;
    }
}

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

    using Pair = std::pair<int, juce::Colour>;
    for (const auto& [id, colour] : { Pair { juce::Label::textColourId, juce::Colours::red },
                                      Pair { juce::TextEditor::textColourId, juce::Colours::red },
                                      Pair { juce::TextEditor::backgroundColourId, juce::Colours::green },
                                      Pair { juce::Label::outlineColourId, juce::Colours::blue },
                                      Pair { juce::Label::outlineWhenEditingColourId, juce::Colours::blue },
                                      Pair { juce::TextEditor::outlineColourId, juce::Colours::blue },
                                      Pair { juce::TextEditor::highlightColourId, juce::Colours::yellow } })
        EXPECT_EQ (box->findColour (id), colour) << id;

    EXPECT_EQ (box->getJustificationType(), juce::Justification::centred);
    EXPECT_FALSE (box->isEditableOnSingleClick());
    EXPECT_TRUE (box->isEditableOnDoubleClick());
    EXPECT_TRUE (box->doesLossOfFocusDiscardChanges());
    EXPECT_TRUE (box->getText().isEmpty() && box->getName().isEmpty());
}

// The corner resizer

juce::Image paintResizer (int height, bool isOver, bool isDragging)
{
    CrzQ7LookAndFeelV1 lookAndFeel;
    lookAndFeel.setCurrentLightGrey ({ 140, 140, 140 });
    return painted (100,
                    height,
                    white,
                    [&] (juce::Graphics& g)
                    { lookAndFeel.drawCornerResizer (g, 100, height, isOver, isDragging); });
}

TEST (CrzQ7LookAndFeelResizer, HasTheColourOfItsState)
{
    struct StateCase
    {
        bool isOver, isDragging;
        Colour expected;
    };

    for (const auto& row : { StateCase { false, false, { 100, 100, 100 } },
                             StateCase { true, false, { 255, 53, 0 } },
                             StateCase { false, true, black },
                             StateCase { true, true, black } })
        EXPECT_TRUE (
            pixelIsNear (paintResizer (100, row.isOver, row.isDragging), { 65, 65 }, row.expected, 1));
}

TEST (CrzQ7LookAndFeelResizer, IsTwoArrows)
{
    /** Pixels down the diagonal, and to either side of it. */
    struct ArrowPlace
    {
        int along, across;
        Colour expected;
    };

    const auto image = paintResizer (100, false, true);

    // From (58.5, 58.5) to the tip at (90, 90), and from (59, 59) to the tip at (30, 30). The shafts are 24
    // thick, the heads 44 wide where they begin: 64.8 and 53.2 down the diagonal.
    for (const auto& row : { ArrowPlace { 25, 0, white },
                             ArrowPlace { 34, 0, black },
                             ArrowPlace { 86, 0, black },
                             ArrowPlace { 94, 0, white },
                             ArrowPlace { 61, 7, black },
                             ArrowPlace { 61, 10, white },
                             ArrowPlace { 66, 12, black },
                             ArrowPlace { 66, 17, white },
                             ArrowPlace { 50, 12, black },
                             ArrowPlace { 50, 17, white } })
        for (const int across : { row.across, -row.across })
            EXPECT_TRUE (pixelIsNear (image, { row.along + across, row.along - across }, row.expected, 0))
                << across;
}

TEST (CrzQ7LookAndFeelResizer, TakesTheInwardTipFromBothSides)
{
    const auto image = paintResizer (200, false, true);

    // The tip lies at 0.1 of the width and 0.2 of the height, in both directions.
    EXPECT_NEAR (areaOtherThan (image, white).getY(), 50, 1);
    EXPECT_TRUE (pixelIsNear (image, { 50, 56 }, black, 0));
}
} // namespace
