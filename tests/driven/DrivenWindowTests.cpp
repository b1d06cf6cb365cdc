// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The window: resizing by its corner, opening and closing.

#include "DrivenEditor.h"

#include "support/TestSeed.h"

#include <editor/ResizerForEditor.h>

#include <gmock/gmock.h>

namespace
{
class DrivenWindow : public DrivenEditor
{
protected:
    juce::Component& corner() { return *findChildOfClass<ResizerForEditor> (shell()); }

    /** The handle takes hits only in its lower right triangle. */
    void moveToCorner() { person.moveTo (corner(), 0.8f, 0.8f); }
};

TEST_F (DrivenWindow, IsResizedByItsCornerInProportion)
{
    const int before = shell().getHeight();
    moveToCorner();
    person.press();
    EXPECT_FALSE (control ("panSlider").isVisible());
    EXPECT_TRUE (corner().isShowing());
    EXPECT_FALSE (panel().isOpaque());

    person.dragBy (-90, -60);
    EXPECT_TRUE (waitUntil ([&] { return std::abs (shell().getHeight() - (before - 60)) <= 3; }))
        << shell().getHeight();
    person.release();
    const int after = shell().getHeight();
    EXPECT_NEAR (shell().getWidth(), 1.5 * after, 1.0);
    EXPECT_EQ (processor->getEditorHeight(), after);
    EXPECT_TRUE (control ("panSlider").isShowing());
    EXPECT_EQ (infoText(),
               "Resizer: NEW SIZE set to " + juce::String (panel().getWidth()) + "x" + juce::String (after));
    EXPECT_TRUE (waitUntil ([&] { return window->getContentComponent()->getHeight() == after; }));

    closeWindow();
    openWindow();
    EXPECT_EQ (shell().getHeight(), after);
}

TEST_F (DrivenWindow, StaysWithinItsLimits)
{
    moveToCorner();
    person.press();
    person.dragBy (-500, -400);
    const int lowest = static_cast<int> (0.25f * static_cast<float> (getMainDisplayUserHeight()));
    EXPECT_TRUE (waitUntil ([&] { return shell().getHeight() == lowest; })) << shell().getHeight();
    person.release();
    EXPECT_EQ (shell().getHeight(), lowest);
}

TEST_F (DrivenWindow, GoesBackToItsDefaultSizeFromTheInfoScreen)
{
    const int before = shell().getHeight();
    moveToCorner();
    person.press();
    person.dragBy (-60, -40);
    person.release();
    ASSERT_NE (shell().getHeight(), before);

    person.click (control ("titleLabel"));
    auto& info = control ("infoComponent");
    ASSERT_TRUE (waitUntil ([&] { return info.isShowing(); }));
    auto* button = findButton (info, "RESIZE TO DEFAULT");
    ASSERT_TRUE (button->isEnabled());
    person.click (*button);
    EXPECT_TRUE (waitUntil ([&] { return shell().getHeight() == before; }));
    EXPECT_FALSE (button->isEnabled());
}

TEST_F (DrivenWindow, MayCloseInTheMiddleOfResizing)
{
    moveToCorner();
    person.press();
    person.dragBy (-30, -20);
    closeWindow();
    person.letButtonGo();
    openWindow();
    EXPECT_TRUE (control ("panSlider").isShowing());
}

TEST_F (DrivenWindow, MayCloseWhileATextIsTyped)
{
    auto& name = label ("channelNameLabel");
    person.click (name);
    ASSERT_TRUE (waitUntil ([&] { return name.isBeingEdited(); }));
    person.type ("half a na");
    closeWindow();
    openWindow();
    EXPECT_EQ (processor->getChannelName(), "No Channel Name");
}

TEST_F (DrivenWindow, OpensAndClosesTwoHundredTimesWithRandomClicks)
{
    constexpr int numOpenings = 200;
    constexpr int mostClicks = 6;
    constexpr int longestPauseMs = 20;
    TestRandom random { testSeed() };

    // Clicks follow each other as fast as the server gives them; closing comes in the middle of what they
    // started.
    closeWindow();

    for (int opening = 0; opening < numOpenings; ++opening)
    {
        window = std::make_unique<EditorWindow> (*processor, "WideLoom", [] {});
        juce::MessageManager::getInstance()->runDispatchLoopUntil (random.between (0, longestPauseMs));

        for (int clicks = random.between (0, mostClicks); clicks > 0; --clicks)
        {
            const auto area = window->getScreenBounds();
            person.moveAwayTo ({ area.getX() + random.between (0, area.getWidth() - 1),
                                 area.getY() + random.between (0, area.getHeight() - 1) });
            person.clickBlindly();
            juce::MessageManager::getInstance()->runDispatchLoopUntil (random.between (0, longestPauseMs));
        }

        closeWindow();
        EXPECT_EQ (host->countOpenGestures(), 0);
    }

    EXPECT_TRUE (waitUntil ([] { return openMenus().empty(); }));
    processor->setEditorHeight (processor->getDefaultEditorHeight());
    person.moveAwayTo ({ 3, 3 });
    openWindow();
}
} // namespace
