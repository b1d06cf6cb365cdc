// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The panel's layout: every control's place in pixels, and what overlaps what.

#include "EditorUnderTest.h"

#include <gtest/gtest.h>
#include <support/NamedRows.h>

#include <array>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace
{
using Pixels = juce::Rectangle<int>;

/** In pixels of the parent, at the heights of `heights`. */
struct PlaceCase
{
    const char* id;
    std::array<Pixels, 3> bounds;
};

constexpr std::array<int, 3> heights { 250, 387, 600 };

// clang-format off
const PlaceCase placeCases[] = {
    { "settingsPopupButton", { { { 357, 4, 14, 14 }, { 553, 7, 22, 22 }, { 857, 10, 34, 34 } } } },
    { "panLawGroup", { { { 213, 146, 50, 38 }, { 329, 226, 77, 58 }, { 511, 351, 119, 90 } } } },
    { "panCurveGroup", { { { 113, 146, 50, 38 }, { 174, 226, 77, 58 }, { 270, 351, 119, 90 } } } },
    { "msModeGroup", { { { 113, 190, 50, 38 }, { 174, 294, 77, 58 }, { 270, 456, 119, 90 } } } },
    { "panModeGroup", { { { 213, 190, 50, 38 }, { 329, 294, 77, 58 }, { 511, 456, 119, 90 } } } },
    { "inputGainSlider", { { { 19, 38, 22, 40 }, { 29, 58, 35, 62 }, { 45, 90, 54, 96 } } } },
    { "outputGainSlider", { { { 334, 38, 22, 40 }, { 516, 58, 35, 62 }, { 801, 90, 54, 96 } } } },
    { "safeBassFreqSlider", { { { 281, 92, 22, 40 }, { 435, 143, 35, 62 }, { 675, 222, 54, 96 } } } },
    { "stereoWidthSlider", { { { 167, 190, 41, 45 }, { 258, 294, 64, 70 }, { 400, 456, 99, 108 } } } },
    { "panSlider", { { { 176, 154, 22, 40 }, { 273, 238, 35, 62 }, { 423, 369, 54, 96 } } } },
    { "titleLabel", { { { 141, 0, 94, 21 }, { 218, 1, 145, 33 }, { 338, 1, 225, 51 } } } },
    { "bottomInfoLabel", { { { 6, 231, 262, 15 }, { 9, 357, 406, 23 }, { 14, 554, 630, 36 } } } },
    { "channelNameLabel", { { { 273, 4, 82, 15 }, { 422, 6, 128, 23 }, { 655, 9, 198, 36 } } } },
    { "presetNameLabel", { { { 113, 24, 150, 12 }, { 174, 37, 232, 19 }, { 270, 57, 360, 30 } } } },
    { "stereoWidthLabel", { { { 120, 54, 28, 16 }, { 186, 84, 44, 25 }, { 288, 131, 68, 39 } } } },
    { "panLabel", { { { 227, 54, 28, 16 }, { 351, 84, 44, 25 }, { 544, 131, 68, 39 } } } },
    { "stereoComponent", { { { 113, 40, 150, 100 }, { 174, 62, 232, 155 }, { 270, 96, 360, 240 } } } },
    { "managePresetsComponent", { { { 113, 40, 150, 100 }, { 174, 62, 232, 155 }, { 270, 96, 360, 240 } } } },
    { "inputVuMeter", { { { 8, 80, 45, 125 }, { 12, 124, 70, 194 }, { 18, 192, 108, 300 } } } },
    { "outputVuMeter", { { { 322, 80, 45, 125 }, { 499, 124, 70, 194 }, { 774, 192, 108, 300 } } } },
    { "alignPhaseButton", { { { 274, 206, 36, 9 }, { 423, 319, 56, 15 }, { 657, 495, 87, 22 } } } },
    { "muteAllButton", { { { 8, 210, 45, 18 }, { 12, 325, 70, 27 }, { 18, 504, 108, 42 } } } },
    { "bypassButton", { { { 322, 210, 45, 18 }, { 499, 325, 70, 27 }, { 774, 504, 108, 42 } } } },
    { "safeBassButton", { { { 270, 48, 45, 18 }, { 418, 74, 70, 27 }, { 648, 114, 108, 42 } } } },
    { "swapLrButton", { { { 60, 48, 45, 18 }, { 93, 74, 70, 27 }, { 144, 114, 108, 42 } } } },
    { "phaseFlipButton", { { { 60, 81, 45, 18 }, { 93, 126, 70, 27 }, { 144, 195, 108, 42 } } } },
    { "monoButton", { { { 60, 115, 45, 18 }, { 93, 178, 70, 27 }, { 144, 276, 108, 42 } } } },
    { "muteMidButton", { { { 270, 160, 45, 18 }, { 418, 248, 70, 27 }, { 648, 384, 108, 42 } } } },
    { "muteSideButton", { { { 270, 185, 45, 18 }, { 418, 286, 70, 27 }, { 648, 444, 108, 42 } } } },
    { "easyModeButton", { { { 60, 160, 45, 18 }, { 93, 248, 70, 27 }, { 144, 384, 108, 42 } } } },
    { "expertModeButton", { { { 60, 185, 45, 18 }, { 93, 286, 70, 27 }, { 144, 444, 108, 42 } } } },
    { "saveButton", { { { 60, 24, 22, 11 }, { 93, 38, 35, 18 }, { 144, 58, 54, 27 } } } },
    { "undoButton", { { { 242, 4, 14, 14 }, { 374, 7, 22, 22 }, { 580, 10, 34, 34 } } } },
    { "redoButton", { { { 257, 4, 14, 14 }, { 398, 7, 22, 22 }, { 616, 10, 34, 34 } } } },
    { "nextButton", { { { 291, 24, 22, 11 }, { 450, 38, 35, 18 }, { 698, 58, 54, 27 } } } },
    { "prevButton", { { { 266, 24, 22, 11 }, { 412, 38, 35, 18 }, { 639, 58, 54, 27 } } } },
    { "panLaw0Button", { { { 2, 2, 46, 10 }, { 4, 4, 71, 14 }, { 6, 6, 109, 22 } } } },
    { "panLaw3Button", { { { 2, 14, 46, 10 }, { 4, 22, 71, 14 }, { 6, 34, 109, 22 } } } },
    { "panLaw6Button", { { { 2, 26, 46, 10 }, { 4, 40, 71, 14 }, { 6, 62, 109, 22 } } } },
    { "panCurveLinearButton", { { { 2, 2, 46, 10 }, { 4, 4, 71, 14 }, { 6, 6, 109, 22 } } } },
    { "panCurveLogButton", { { { 2, 14, 46, 10 }, { 4, 22, 71, 14 }, { 6, 34, 109, 22 } } } },
    { "panCurveSinCosButton", { { { 2, 26, 46, 10 }, { 4, 40, 71, 14 }, { 6, 62, 109, 22 } } } },
    { "fixMidLevelButton", { { { 2, 6, 46, 10 }, { 4, 10, 71, 14 }, { 6, 15, 109, 22 } } } },
    { "bindMsLevelsButton", { { { 2, 22, 46, 10 }, { 4, 34, 71, 14 }, { 6, 53, 109, 22 } } } },
    { "dualPanButton", { { { 2, 6, 46, 10 }, { 4, 10, 71, 14 }, { 6, 15, 109, 22 } } } },
    { "balanceButton", { { { 2, 22, 46, 10 }, { 4, 34, 71, 14 }, { 6, 53, 109, 22 } } } },
};
// clang-format on

void setHeight (EditorUnderTest& test, int height)
{
    test.processor.setEditorHeight (height);
    test.editor->updateEditorSize();
}

TEST (MainEditorLayout, IsExactAtEveryHeightOnEveryDisplay)
{
    for (const int displayHeight : { EditorUnderTest::displayHeight, 0, 777, 2160 })
    {
        EditorUnderTest test (displayHeight);

        for (size_t i = 0; i < heights.size(); ++i)
        {
            setHeight (test, heights[i]);

            for (const auto& row : placeCases)
                EXPECT_EQ (findChildWithID (test.panel(), row.id)->getBounds(), row.bounds[i])
                    << row.id << " at " << heights[i] << " on a display of " << displayHeight;

            EXPECT_EQ (findChildWithID (test.panel(), "infoComponent")->getBounds(),
                       test.panel().getLocalBounds());
        }
    }
}

TEST (MainEditorLayout, ValueTextsOfTheKnobsGrowWithTheWindow)
{
    EditorUnderTest test;

    for (const int height : heights)
        for (const juce::String id : { "inputGainSlider", "outputGainSlider", "safeBassFreqSlider" })
        {
            setHeight (test, height);
            const auto& slider = test.control<juce::Slider> (id);
            EXPECT_EQ (slider.getTextBoxHeight(), height * 6 / 100) << id;
            EXPECT_EQ (slider.getTextBoxWidth(), height * 3 / 10) << id;
        }
}

//==================================================================================================
// Overlaps

/** All that the user can see at once. */
void showEverything (EditorUnderTest& test)
{
    test.processor.setExpertMode (true);
    test.processor.setMuteMsOption (MuteMsOption::muteMidOnly);
    test.panel().updateAll();
}

using Pair = std::pair<std::string, std::string>;

Pair overlap (const std::string& a, const std::string& b)
{
    return a < b ? Pair { a, b } : Pair { b, a };
}

/** A state of the panel, and the only controls in it that may lie over each other. */
struct OverlapCase
{
    const char* name;
    void (*enter) (EditorUnderTest& test);
    const char* parent; ///< whose controls are meant; null for the panel itself
    std::set<Pair> named;
};

void save (EditorUnderTest& test)
{
    test.panel().showManagePresetsComponent();
}

void showInfo (EditorUnderTest& test)
{
    test.panel().showInfoComponent();
}

// The texts of the info screen have no names: the credits are its first child, the legal text its second.
// clang-format off
const OverlapCase overlapCases[] = {
    { "Everything", showEverything, nullptr,
      { overlap ("stereoWidthLabel", "stereoComponent"), // the numbers stand inside the picture
        overlap ("panLabel", "stereoComponent"),
        overlap ("panSlider", "stereoWidthSlider"),           // only their empty edges
        overlap ("stereoWidthSlider", "bottomInfoLabel") } }, // the knob itself is smaller
    { "Saving", save, nullptr, { overlap ("managePresetsComponent", "stereoComponent") } }, // covers it exactly
    { "PanLaws", showEverything, "panLawGroup", {} },
    { "PanCurves", showEverything, "panCurveGroup", {} },
    { "StereoModes", showEverything, "msModeGroup", {} },
    { "PanModes", showEverything, "panModeGroup", {} },
    { "SavingPanel", save, "managePresetsComponent", {} },
    { "InfoScreen", showInfo, "infoComponent",
      { overlap ("child 0", "child 1"),                // only the empty end of the credits
        overlap ("child 1", "CLOSE"),                  // only the empty end of the legal text
        overlap ("child 1", "CLEAR UNDO HISTORY") } }, // only its empty right edge
};
// clang-format on

/** By its ID, else its caption, else its place among its siblings. */
std::string nameOf (const juce::Component& control)
{
    if (control.getComponentID().isNotEmpty())
        return control.getComponentID().toStdString();

    if (const auto* button = dynamic_cast<const juce::Button*> (&control))
        return button->getButtonText().toStdString();

    return "child " + std::to_string (control.getParentComponent()->getIndexOfChildComponent (&control));
}

std::vector<juce::Component*> visibleControls (juce::Component& parent)
{
    std::vector<juce::Component*> result;

    for (auto* child : parent.getChildren())
        if (child->isVisible())
            result.push_back (child);

    return result;
}

std::set<Pair> overlapsIn (juce::Component& parent)
{
    const auto controls = visibleControls (parent);
    std::set<Pair> found;

    for (size_t i = 0; i < controls.size(); ++i)
        for (size_t j = i + 1; j < controls.size(); ++j)
            if (controls[i]->getBounds().intersects (controls[j]->getBounds()))
                found.insert (overlap (nameOf (*controls[i]), nameOf (*controls[j])));

    return found;
}

class MainEditorOverlap : public testing::TestWithParam<OverlapCase>
{
};

TEST_P (MainEditorOverlap, IsOnlyOfTheNamedControls)
{
    const auto& row = GetParam();

    for (const int height : { 250, 400, 600, 800 })
    {
        EditorUnderTest test;
        setHeight (test, height);
        row.enter (test);
        auto& parent = row.parent != nullptr ? test.control<juce::Component> (row.parent) : test.panel();
        EXPECT_FALSE (visibleControls (parent).empty());
        EXPECT_EQ (overlapsIn (parent), row.named) << "at " << height;
    }
}

INSTANTIATE_TEST_SUITE_P (States, MainEditorOverlap, testing::ValuesIn (overlapCases), rowName<OverlapCase>);
} // namespace
