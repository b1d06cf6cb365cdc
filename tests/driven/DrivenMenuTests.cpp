// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The settings menu and the info screen under a real mouse.

#include "DrivenEditor.h"

#include <gmock/gmock.h>

namespace
{
/** A menu that has just come up takes the end of the click that opened it for no choice. */
constexpr juce::uint32 menuDeafnessMs = 300;

class DrivenMenu : public DrivenEditor
{
protected:
    void openMenu()
    {
        clickUntil ("settingsPopupButton", [] { return ! openMenus().empty(); });
        const auto openedAt = juce::Time::getMillisecondCounter();
        ASSERT_TRUE (
            waitUntil ([&] { return juce::Time::getMillisecondCounter() > openedAt + menuDeafnessMs; }));
    }

    void choose (const juce::String& text)
    {
        auto* item = findMenuItem (text);
        ASSERT_NE (item, nullptr) << text;
        person.moveTo (*item);
        person.clickUntil ([] { return openMenus().empty(); });
    }

    void choose (const juce::String& subMenu, const juce::String& text)
    {
        auto* item = findMenuItem (subMenu);
        ASSERT_NE (item, nullptr) << subMenu;
        person.moveTo (*item);
        ASSERT_TRUE (waitUntil ([&] { return findMenuItem (text) != nullptr; })) << text;

        // Level with the row first: on the way down other rows would open their own.
        const auto target = findMenuItem (text)->getScreenBounds();
        person.moveAwayTo ({ target.getCentreX(), item->getScreenBounds().getCentreY() });
        choose (text);
    }
};

TEST_F (DrivenMenu, LoadsAFactoryPreset)
{
    openMenu();
    EXPECT_EQ (infoText(), "choose from popup menu ...");
    choose ("Factory Presets", "TRACK Stereo 150%");
    EXPECT_TRUE (waitUntil ([&] { return processor->getCurrentPresetName() == "TRACK Stereo 150%"; }));
    EXPECT_EQ (label ("stereoWidthLabel").getText(), "150 %");

    clickUntil ("undoButton", [&] { return label ("stereoWidthLabel").getText() == "100 %"; });
}

TEST_F (DrivenMenu, LoadsAUserPreset)
{
    processor->setParamAndNotifyHost ("Pan", 0.0f, true);
    ASSERT_TRUE (processor->saveCurrentPresetFromValueTreeToDisk ("From the menu", true).wasOk());
    processor->loadFactoryPresetUndoableWithID (0);
    openMenu();
    choose ("User Presets", "From the menu");
    EXPECT_TRUE (waitUntil ([&] { return processor->getCurrentPresetName() == "From the menu"; }));
    EXPECT_EQ (label ("panLabel").getText(), "L100");
}

TEST_F (DrivenMenu, ChangesTheColourScheme)
{
    openMenu();
    choose ("Colour Scheme", "Classic Dark");
    EXPECT_TRUE (waitUntil ([&] { return processor->getCurrentColourSchemeBrightness() == 0.0f; }));
    EXPECT_EQ (slider ("panSlider").findColour (juce::Slider::backgroundColourId), juce::Colours::black);
    openMenu();
    choose ("Colour Scheme", "Bright Eyes");
    EXPECT_TRUE (waitUntil ([&] { return processor->getCurrentColourSchemeBrightness() > 0.0f; }));
}

TEST_F (DrivenMenu, OpensTheInfoScreenWhichSetsSizes)
{
    openMenu();
    choose ("Show Info / Settings Screen");
    auto& info = control ("infoComponent");
    ASSERT_TRUE (waitUntil ([&] { return info.isShowing(); }));

    person.click (*findButton (info, "CLOSE"));
    EXPECT_TRUE (waitUntil ([&] { return ! info.isVisible(); }));

    // The title opens it too.
    person.click (control ("titleLabel"));
    EXPECT_TRUE (waitUntil ([&] { return info.isShowing(); }));
}

TEST_F (DrivenMenu, OpensTheSavingPanel)
{
    openMenu();
    choose ("Save Current Preset As ...");
    EXPECT_TRUE (waitUntil ([&] { return control ("managePresetsComponent").isShowing(); }));
}

TEST_F (DrivenMenu, ClosesWhenTheMouseLeavesIt)
{
    openMenu();
    person.moveAwayTo ({ 3, 3 });
    EXPECT_TRUE (waitUntil ([] { return openMenus().empty(); }));

    // ... and not while the mouse is on it: a choice works afterwards.
    openMenu();
    choose ("Show Info / Settings Screen");
    EXPECT_TRUE (control ("infoComponent").isVisible());
}

TEST_F (DrivenMenu, LooksForTheMouseOnceASecond)
{
    openMenu();
    auto* item = findMenuItem ("Show Info / Settings Screen");
    ASSERT_NE (item, nullptr);
    person.moveTo (*item);

    // Far ahead of the clock, so that the panel's own timer does not look in between.
    const auto lookedAt = juce::Time::getCurrentTime() + juce::RelativeTime::minutes (1.0);
    panel().poll (lookedAt);
    EXPECT_FALSE (openMenus().empty());

    // Over the panel: the keyboard stays with the editor, so nothing else closes the menu.
    const auto elsewhere = panel().getScreenBounds().getCentre();
    person.moveAwayTo (elsewhere);
    ASSERT_TRUE (waitUntil ([&] { return juce::Desktop::getMousePosition() == elsewhere; }));

    panel().poll (lookedAt + juce::RelativeTime::seconds (1.0));
    EXPECT_FALSE (openMenus().empty());
    panel().poll (lookedAt + juce::RelativeTime::seconds (1.1));
    EXPECT_TRUE (openMenus().empty());
}

TEST_F (DrivenMenu, ClosesWithAClickElsewhereAndChangesNothing)
{
    const auto steps = countUndoSteps();
    openMenu();
    person.moveAwayTo (panel().getScreenBounds().getCentre());
    person.clickUntil ([] { return openMenus().empty(); });
    EXPECT_EQ (countUndoSteps(), steps);
}

TEST_F (DrivenMenu, IsHarmlessWhenTheEditorClosesUnderIt)
{
    openMenu();
    auto* item = findMenuItem ("Factory Presets");
    ASSERT_NE (item, nullptr);
    person.moveTo (*item);
    closeWindow();
    EXPECT_TRUE (waitUntil ([] { return openMenus().empty(); }));
    openWindow();
    EXPECT_EQ (label ("stereoWidthLabel").getText(), "100 %");
}
} // namespace
