// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// What a colour scheme reaches, by whichever way it comes, and what looks the same in both.

#include "EditorUnderTest.h"
#include "PaintedPicture.h"

#include <editor/CrzQ7LookAndFeelV1.h>

#include <gtest/gtest.h>
#include <support/NamedRows.h>
#include <support/Painting.h>

namespace
{
using Panel = MainEditorComponent;

struct SchemeCase
{
    const char* name;
    void (Panel::*choose)();
    void (Panel::*chooseTheOther)();
    float brightness;
    juce::Colour ground, knobs, handle;
};

// Worked out by hand: 51 and 85 brighter by 0.3 are 98 and 124, and the handle is darker than the second by
// 0.4.
const SchemeCase schemeCases[] = {
    { "Dark",
      &Panel::useDarkClassicColourScheme,
      &Panel::useBrightEyesColourScheme,
      0.0f,
      { 51, 51, 51 },
      { 0, 0, 0 },
      { 60, 60, 60 } },
    { "Bright",
      &Panel::useBrightEyesColourScheme,
      &Panel::useDarkClassicColourScheme,
      0.3f,
      { 98, 98, 98 },
      { 51, 51, 51 },
      { 88, 88, 88 } },
};

// clang-format off
constexpr const char* schemeButtons[] = {
    "muteAllButton", "muteMidButton", "muteSideButton", "bypassButton", "safeBassButton", "swapLrButton", "monoButton",
    "phaseFlipButton", "saveButton", "easyModeButton", "expertModeButton", "nextButton", "prevButton",
};
constexpr const char* plainButtons[] = { "undoButton", "redoButton", "settingsPopupButton" };
constexpr const char* knobs[] = {
    "inputGainSlider", "outputGainSlider", "panSlider", "stereoWidthSlider", "safeBassFreqSlider",
};
// clang-format on

class MainEditorColourScheme : public testing::TestWithParam<SchemeCase>
{
protected:
    void choose() { (test.panel().*GetParam().choose)(); }
    void chooseTheOther() { (test.panel().*GetParam().chooseTheOther)(); }

    void expectScheme()
    {
        const auto& row = GetParam();
        EXPECT_EQ (test.processor.getCurrentColourSchemeBrightness(), row.brightness);

        for (const char* id : schemeButtons)
            EXPECT_EQ (buttonColour (id), row.ground) << id;

        for (const char* id : plainButtons)
            EXPECT_EQ (buttonColour (id), juce::Colour (98, 98, 98)) << id;

        for (const char* id : knobs)
            EXPECT_EQ (test.control<juce::Slider> (id).findColour (juce::Slider::backgroundColourId),
                       row.knobs)
                << id;

        const auto handle =
            painted (100,
                     100,
                     juce::Colours::white,
                     [this] (juce::Graphics& g)
                     { test.editor->getLookAndFeel()->drawCornerResizer (g, 100, 100, false, false); });
        EXPECT_TRUE (pixelIsNear (handle, { 75, 75 }, row.handle, 1));

        // Left of the input meter, where strokes and sheen add less than the two schemes lie apart.
        constexpr int strokesAndSheen = 16;
        const juce::Rectangle<int> bareGround { 7, 200, 6, 100 };
        EXPECT_EQ (countPixels (paintedPicture (test.panel()), bareGround, row.ground, strokesAndSheen), 600);
    }

    EditorUnderTest test;

private:
    juce::Colour buttonColour (const char* id)
    {
        return test.control<juce::Button> (id).findColour (juce::TextButton::buttonColourId);
    }
};

TEST_P (MainEditorColourScheme, ComesWhenItIsChosen)
{
    chooseTheOther();
    choose();
    expectScheme();
}

TEST_P (MainEditorColourScheme, ComesBackWithANewEditor)
{
    choose();
    test.close();
    test.open();
    expectScheme();
}

TEST_P (MainEditorColourScheme, ComesWithStateThatIsReplacedAtOnce)
{
    chooseTheOther();
    test.processor.setCurrentColourSchemeBrightness (GetParam().brightness);
    test.panel().updateAll();
    expectScheme();
}

INSTANTIATE_TEST_SUITE_P (Schemes,
                          MainEditorColourScheme,
                          testing::ValuesIn (schemeCases),
                          rowName<SchemeCase>);
} // namespace
