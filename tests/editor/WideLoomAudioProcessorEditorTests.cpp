// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The editor's shell: sizes, limits, the picture of a drag, and coming and going.

#include "EditorUnderTest.h"
#include "PaintedPicture.h"
#include "SyntheticMouse.h"

#include <editor/CrzQ7Colours.h>
#include <editor/CrzQ7LookAndFeelV1.h>
#include <editor/ResizerForEditor.h>

#include <gtest/gtest.h>
#include <support/NamedRows.h>
#include <support/Painting.h>
#include <support/TestSeed.h>

#include <cmath>
#include <utility>
#include <vector>

namespace
{
constexpr float darkScheme = 0.0f;
constexpr float brightScheme = 0.3f;

/** A mouse event on the corner handle, `moved` pixels away from where the button went down. */
juce::MouseEvent handleEvent (juce::Component& handle, juce::Point<float> moved)
{
    const juce::Point<float> pressed (10.0f, 10.0f);
    return synthetic_mouse::eventAt (handle, pressed, 0, true).withNewPosition (pressed + moved);
}

class Handle
{
public:
    explicit Handle (EditorUnderTest& test)
        : resizer (*findChildOfClass<ResizerForEditor> (*test.editor))
    {
    }

    void press() { resizer.mouseDown (handleEvent (resizer, {})); }
    void release() { resizer.mouseUp (handleEvent (resizer, {})); }
    void drag (float right, float down)
    {
        // Reachable through the base alone, as for JUCE's own mouse.
        static_cast<juce::Component&> (resizer).mouseDrag (handleEvent (resizer, { right, down }));
    }

    juce::Rectangle<int> bounds() const { return resizer.getBounds(); }

private:
    ResizerForEditor& resizer;
};

struct DisplayCase
{
    const char* name;
    int displayHeight;
    juce::Point<int> initial, minimum, maximum;
};

class EditorShellOnDisplay : public testing::TestWithParam<DisplayCase>
{
};

const DisplayCase displayCases[] = {
    { "Thousand", 1000, { 750, 500 }, { 375, 250 }, { 1200, 800 } },
    { "Unknown", 0, { 750, 500 }, { 375, 250 }, { 1200, 800 } },
    { "Uhd", 2160, { 1620, 1080 }, { 810, 540 }, { 2592, 1728 } },
    { "Odd", 777, { 582, 388 }, { 291, 194 }, { 931, 621 } }, // 388.5 rounds to even, 621.6 is cut
};

juce::Point<int> sizeOf (const juce::Component& component)
{
    return { component.getWidth(), component.getHeight() };
}

TEST_P (EditorShellOnDisplay, StartsAtHalfAndStaysWithinItsLimits)
{
    const auto& row = GetParam();
    EditorUnderTest test (row.displayHeight);
    EXPECT_EQ (sizeOf (*test.editor), row.initial);

    constexpr float farAway = 9999.0f;
    Handle handle (test);
    handle.press();
    handle.drag (farAway, farAway);
    EXPECT_EQ (sizeOf (*test.editor), row.maximum);
    handle.drag (-farAway, -farAway);
    EXPECT_EQ (sizeOf (*test.editor), row.minimum);
    handle.release();
}

INSTANTIATE_TEST_SUITE_P (Displays,
                          EditorShellOnDisplay,
                          testing::ValuesIn (displayCases),
                          rowName<DisplayCase>);

TEST (EditorShell, DragsKeepTheRatioAndAreRemembered)
{
    EditorUnderTest test;
    Handle handle (test);
    handle.press();

    for (const auto& [right, down] : { std::pair { 150.0f, 0.0f }, { 0.0f, -73.0f }, { 33.0f, 91.0f } })
    {
        handle.drag (right, down);
        const auto size = sizeOf (*test.editor);
        EXPECT_LE (std::abs (static_cast<float> (size.x) - 1.5f * static_cast<float> (size.y)), 1.0f)
            << size.x << " x " << size.y; // the constrainer rounds one side
        EXPECT_EQ (test.processor.getEditorHeight(), size.y);
        EXPECT_EQ (test.panel().getBounds(), test.editor->getLocalBounds());
    }

    handle.drag (150.0f, 100.0f);
    handle.release();
    EXPECT_EQ (sizeOf (*test.editor), juce::Point<int> (900, 600));
    EXPECT_EQ (test.control<juce::Label> ("bottomInfoLabel").getText(), "Resizer: NEW SIZE set to 900x600");

    // 5 % by 7.5 % of the window, inside its corner.
    EXPECT_EQ (handle.bounds(), juce::Rectangle<int> (845, 545, 45, 45));

    test.close();
    test.open();
    EXPECT_EQ (sizeOf (*test.editor), juce::Point<int> (900, 600));
}

TEST (EditorShell, TakesAHeightFromTheProcessorPastTheLimitsOfADrag)
{
    EditorUnderTest test;
    test.processor.setEditorHeight (901);
    test.editor->setTopLeftPosition (5, 6);
    test.editor->updateEditorSize();
    EXPECT_EQ (test.editor->getBounds(), juce::Rectangle<int> (0, 0, 1352, 901)); // 1351.5 rounds to even

    test.panel().setNewInfoText ({}, false);
    test.panel().resizeToDefault();
    EXPECT_EQ (sizeOf (*test.editor), juce::Point<int> (750, 500));
    EXPECT_EQ (test.control<juce::Label> ("bottomInfoLabel").getText(), juce::String());
}

TEST (EditorShell, StaysAtTheTopAndOwnsTheLookOfItsChildren)
{
    EditorUnderTest test;
    auto& handle = *findChildOfClass<ResizerForEditor> (*test.editor);
    EXPECT_GT (test.editor->getIndexOfChildComponent (&handle),
               test.editor->getIndexOfChildComponent (&test.panel()));

    juce::Component& anyControl = test.control<juce::Component> ("bypassButton");
    EXPECT_EQ (&anyControl.getLookAndFeel(), test.editor->getLookAndFeel());
}

TEST (EditorShell, HandsTheMetersTheirPeaksAndStartsThemAnew)
{
    EditorUnderTest test;
    test.processor.setPlayConfigDetails (2, 2, 48000.0, 16);
    juce::AudioBuffer<float> block (2, 16);
    block.clear();
    block.setSample (0, 3, 0.5f);
    juce::MidiBuffer noMidi;
    test.processor.processBlock (block, noMidi);

    const auto before = paintedPicture (test.panel());
    test.editor->timerCallback();
    const auto after = paintedPicture (test.panel());
    EXPECT_FALSE (test.processor.getInputVuMeterVisuals().left > 0.0f);
    EXPECT_EQ (test.editor->getTimerInterval(), 70);

    for (const auto* id : { "inputVuMeter", "outputVuMeter" })
    {
        const auto area = test.control<juce::Component> (id).getBounds();
        EXPECT_FALSE (
            sameImage (before.getClippedImage (area).createCopy(), after.getClippedImage (area).createCopy()))
            << id;
    }
}

class EditorShellPicture : public testing::TestWithParam<float>
{
};

TEST_P (EditorShellPicture, ShowsArrowsAndTheWordOnAFlatGround)
{
    EditorUnderTest test;
    test.processor.setCurrentColourSchemeBrightness (GetParam());
    test.processor.setEditorHeight (600);
    test.editor->updateEditorSize();

    juce::Image image (juce::Image::ARGB, 900, 600, true);
    juce::Graphics g (image);
    test.editor->paint (g);

    const auto ground = CrzQ7Colours::q7darkGrey.brighter (GetParam());

    /** Places in the arrow at the top left; its three mirror images have them, too. */
    struct ArrowPlace
    {
        juce::Point<int> place;
        bool isBlack;
    };

    // Tips at 20 % and 80 %, heads 120 pixels long and wide, shafts 60 pixels thick; then both sides of the
    // axis.
    // clang-format off
    for (const auto& [place, isBlack] : { ArrowPlace { { 170, 110 }, false }, ArrowPlace { { 186, 124 }, true },
                                          ArrowPlace { { 320, 213 }, true }, ArrowPlace { { 0, 0 }, false },
                                          ArrowPlace { { 449, 200 }, false }, ArrowPlace { { 150, 299 }, false },
                                          ArrowPlace { { 299, 139 }, true }, ArrowPlace { { 244, 222 }, true },
                                          ArrowPlace { { 313, 132 }, false }, ArrowPlace { { 242, 239 }, false },
                                          ArrowPlace { { 349, 202 }, true }, ArrowPlace { { 321, 244 }, true },
                                          ArrowPlace { { 355, 193 }, false }, ArrowPlace { { 315, 253 }, false } })
        // clang-format on
        for (const int x : { place.x, 899 - place.x })
            for (const int y : { place.y, 599 - place.y })
                EXPECT_EQ (image.getPixelAt (x, y), isBlack ? juce::Colours::black : ground)
                    << x << ", " << y;

    const juce::Rectangle<int> word (360, 240, 180, 120);
    EXPECT_EQ (countPixels (image, word.withTrimmedBottom (90), ground, 0), 180 * 30);

    // Capitals of a font of 60 pixels; the round ones make 31.5 pixels 32.3, and so touch 33 or 34 rows.
    const auto letters = areaOtherThan (image.getClippedImage (word.reduced (4)).createCopy(), ground);
    EXPECT_NEAR (letters.getHeight(), 33, 1);
}

INSTANTIATE_TEST_SUITE_P (Schemes,
                          EditorShellPicture,
                          testing::Values (darkScheme, brightScheme),
                          [] (const auto& row) { return row.param == darkScheme ? "Dark" : "Bright"; });

TEST (EditorShell, ShowsItselfOnlyDuringADrag)
{
    EditorUnderTest test;
    const auto ground = CrzQ7Colours::q7darkGrey.brighter (test.processor.getCurrentColourSchemeBrightness());
    const juce::Rectangle<int> middleOfArrow (240, 150, 10, 10);

    Handle handle (test);
    EXPECT_EQ (countPixels (paintedPicture (*test.editor), middleOfArrow, juce::Colours::black, 0), 0);
    handle.press();
    const auto picture = paintedPicture (*test.editor);
    EXPECT_EQ (countPixels (picture, middleOfArrow, juce::Colours::black, 0), 100);
    EXPECT_EQ (picture.getPixelAt (375, 180), ground);
    handle.release();
    EXPECT_EQ (countPixels (paintedPicture (*test.editor), middleOfArrow, juce::Colours::black, 0), 0);
}

//==================================================================================================

/** All that shows below `parent`. */
void addVisibleChildren (juce::Component& parent, std::vector<juce::Component*>& result)
{
    for (auto* child : parent.getChildren())
        if (child->isVisible())
        {
            result.push_back (child);
            addVisibleChildren (*child, result);
        }
}

void pumpMessages()
{
    juce::MessageManager::getInstance()->runDispatchLoopUntil (1);
}

TEST (EditorShell, CloseInMidDragOfTheCornerIsHarmless)
{
    EditorUnderTest test;
    Handle handle (test);
    handle.press();
    handle.drag (50.0f, 40.0f);
    test.close();
    pumpMessages();
    test.open();
    EXPECT_TRUE (test.control<juce::Component> ("bypassButton").isVisible());
}

TEST (EditorShell, OpensAndCloses200TimesWithRandomClicksInBetween)
{
    constexpr int numOpenings = 200;
    constexpr int clicksPerOpening = 3;
    TestRandom random (testSeed());
    EditorUnderTest test;
    test.close();

    for (int opening = 0; opening < numOpenings; ++opening)
    {
        test.open();

        for (int click = 0; click < clicksPerOpening; ++click)
        {
            std::vector<juce::Component*> targets;
            addVisibleChildren (*test.editor, targets);
            auto* target = random.oneOf (targets);

            if (auto* button = dynamic_cast<juce::Button*> (target))
                button->triggerClick();
            else if (auto* slider = dynamic_cast<juce::Slider*> (target))
                slider->setValue (random.between (0.0f, 1.0f), juce::sendNotificationSync);
            else
                target->mouseDown (handleEvent (*target, {}));

            // Closed now and then with the click still on its way.
            if (random.chance (0.5))
                pumpMessages();
        }

        test.close();
    }

    pumpMessages();
    EXPECT_EQ (test.processor.getActiveEditor(), nullptr);
}
} // namespace
