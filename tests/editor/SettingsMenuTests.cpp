// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The settings menu: its rows, ticks and enabled rules, and what its choices do.

#include "EditorUnderTest.h"

#include <editor/CrzQ7Colours.h>
#include <editor/InfoComponent.h>
#include <editor/ManagePresetsComponent.h>
#include <editor/SettingsMenu.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace
{
constexpr float darkScheme = 0.0f;
constexpr float brightScheme = 0.3f;

/** A row of a menu as "id text", with "+" before what is ticked and "!" before what is disabled. */
std::string describe (const juce::PopupMenu::Item& item)
{
    if (item.isSeparator)
        return "-";

    return std::string (item.isEnabled ? "" : "!") + (item.isTicked ? "+" : "")
           + (item.subMenu != nullptr ? ">" : std::to_string (item.itemID) + " ") + item.text.toStdString();
}

std::vector<std::string> rowsOf (const juce::PopupMenu& menu)
{
    std::vector<std::string> rows;

    for (juce::PopupMenu::MenuItemIterator it (menu); it.next();)
        rows.push_back (describe (it.getItem()));

    return rows;
}

std::vector<std::string> rowsOfSubMenu (const juce::PopupMenu& menu, const juce::String& name)
{
    for (juce::PopupMenu::MenuItemIterator it (menu); it.next();)
        if (it.getItem().text == name && it.getItem().subMenu != nullptr)
            return rowsOf (*it.getItem().subMenu);

    return { "no such sub-menu" };
}

class SettingsMenuTest : public testing::Test
{
protected:
    SettingsMenuTest() { deleteUserPresets(); }
    ~SettingsMenuTest() override { deleteUserPresets(); }

    void deleteUserPresets()
    {
        const auto folder = test.processor.getUserPresetsFolder();
        for (const auto& file : folder.findChildFiles (juce::File::findFiles, false))
            file.deleteFile();
    }

    juce::PopupMenu menu() { return buildSettingsMenu (test.processor, "WideLoom v1.1"); }

    std::vector<std::string> tickedPresets()
    {
        std::vector<std::string> ticked;

        for (const auto* name : { "Factory Presets", "User Presets" })
            for (const auto& row : rowsOfSubMenu (menu(), name))
                if (row.find ('+') < row.find_first_of ("0123456789")) // names have a plus, too
                    ticked.push_back (row);

        return ticked;
    }

    void choose (int item) { PopupCallbackReceiver (&test.panel()).modalStateFinished (item); }

    template <typename Class>
    bool isVisible()
    {
        return findChildOfClass<Class> (test.panel())->isVisible();
    }

    EditorUnderTest test;
};

using Rows = std::vector<std::string>;

TEST_F (SettingsMenuTest, HasItsRowsInOrder)
{
    EXPECT_EQ (rowsOf (menu()),
               Rows ({ "!1 Resize To Default",
                       "-",
                       ">Factory Presets",
                       ">User Presets",
                       "-",
                       "5 Save Current Preset As ...",
                       "6 Reveal User Presets Folder",
                       "-",
                       ">Colour Scheme",
                       "2 Show Info / Settings Screen",
                       "-",
                       "!-1 WideLoom v1.1" }));

    const auto factory = rowsOfSubMenu (menu(), "Factory Presets");
    ASSERT_EQ (factory.size(), 14u);
    EXPECT_EQ (factory.front(), "+100 Init");
    EXPECT_EQ (factory.back(), "113 MASTER SafeBass 250 Hz");
    EXPECT_EQ (rowsOfSubMenu (menu(), "User Presets"), Rows());
    EXPECT_EQ (rowsOfSubMenu (menu(), "Colour Scheme"), Rows ({ "3 Classic Dark", "!+4 Bright Eyes" }));

    test.processor.setEditorHeight (499);
    test.processor.setCurrentColourSchemeBrightness (darkScheme);
    EXPECT_EQ (rowsOf (menu()).front(), "1 Resize To Default");
    EXPECT_EQ (rowsOfSubMenu (menu(), "Colour Scheme"), Rows ({ "!+3 Classic Dark", "4 Bright Eyes" }));
}

TEST_F (SettingsMenuTest, TicksThePresetThatIsCurrentAndUnchanged)
{
    test.processor.loadFactoryPresetUndoableWithID (3);
    ASSERT_EQ (tickedPresets().size(), 1u);
    EXPECT_EQ (tickedPresets().front().substr (0, 5), "+103 ");

    test.processor.setParamAndNotifyHost ("Pan", 0.125f, true);
    EXPECT_EQ (tickedPresets(), Rows());

    // Saving loads what it saved.
    ASSERT_TRUE (test.processor.saveCurrentPresetFromValueTreeToDisk ("Alpha", true));
    EXPECT_EQ (tickedPresets(), Rows ({ "+200 Alpha" }));

    test.processor.setCurrentPresetNameUndoable ("Another name");
    EXPECT_EQ (tickedPresets(), Rows());

    // The folder is read each time.
    test.processor.getUserPresetsFolder().getChildFile ("Alpha.q7p").deleteFile();
    EXPECT_EQ (rowsOfSubMenu (menu(), "User Presets"), Rows());
}

TEST_F (SettingsMenuTest, CarriesOutChoices)
{
    test.editor->setSize (900, 600);
    choose (SettingsMenuItem::resizeToDefault);
    EXPECT_EQ (test.editor->getHeight(), 500);

    EXPECT_FALSE (isVisible<InfoComponent>());
    choose (SettingsMenuItem::showInfo);
    EXPECT_TRUE (isVisible<InfoComponent>());

    choose (SettingsMenuItem::classicDark);
    EXPECT_EQ (test.processor.getCurrentColourSchemeBrightness(), darkScheme);
    choose (SettingsMenuItem::brightEyes);
    EXPECT_EQ (test.processor.getCurrentColourSchemeBrightness(), brightScheme);

    EXPECT_FALSE (isVisible<ManagePresetsComponent>());
    choose (SettingsMenuItem::savePreset);
    EXPECT_TRUE (isVisible<ManagePresetsComponent>());
}

TEST_F (SettingsMenuTest, LoadsPresetsAndShowsThem)
{
    const auto shownName = [&] { return test.control<juce::Label> ("presetNameLabel").getText(); };
    ASSERT_TRUE (test.processor.saveCurrentPresetFromValueTreeToDisk ("Alpha", true));

    choose (SettingsMenuItem::firstFactoryPreset + 13);
    EXPECT_EQ (shownName(), "MASTER SafeBass 250 Hz");
    EXPECT_TRUE (test.control<juce::Button> ("safeBassButton").getToggleState());
    EXPECT_TRUE (test.control<juce::Button> ("undoButton").isEnabled());

    choose (SettingsMenuItem::firstUserPreset);
    EXPECT_EQ (shownName(), "Alpha");
    EXPECT_FALSE (test.control<juce::Button> ("safeBassButton").getToggleState());
}

TEST_F (SettingsMenuTest, LeavesEverythingAloneForOtherAnswers)
{
    test.editor->setSize (900, 600);

    // Dismissed, between the ids, the version line, and presets that are not there.
    for (const int answer : { 0, 7, 99, -1, 114, 199, 200, 5000 })
    {
        choose (answer);
        EXPECT_EQ (test.processor.getCurrentPresetName(), "Init") << answer;
        EXPECT_EQ (test.processor.getCurrentPresetID(), 0) << answer;
        EXPECT_EQ (test.editor->getHeight(), 600) << answer;
        EXPECT_FALSE (isVisible<InfoComponent>()) << answer;
        EXPECT_FALSE (isVisible<ManagePresetsComponent>()) << answer;
        EXPECT_FALSE (test.processor.canUndoOrRedo()) << answer;
    }
}

TEST_F (SettingsMenuTest, AnAnswerAfterTheEditorIsGoneDoesNothing)
{
    PopupCallbackReceiver receiver (&test.panel());
    test.processor.setEditorHeight (600);
    test.close();

    for (const int answer : { 0, 1, 2, 3, 4, 5, 6, 105, 200 })
        receiver.modalStateFinished (answer);

    EXPECT_EQ (test.processor.getEditorHeight(), 600);
    EXPECT_EQ (test.processor.getCurrentColourSchemeBrightness(), brightScheme);
    EXPECT_EQ (test.processor.getCurrentPresetID(), 0);
}

TEST_F (SettingsMenuTest, OpensWithoutADisplayAsIfDismissedAtOnce)
{
    if (! juce::Desktop::getInstance().isHeadless())
        GTEST_SKIP() << "there is a display";

    test.control<juce::Button> ("settingsPopupButton").triggerClick();
    juce::MessageManager::getInstance()->runDispatchLoopUntil (1);
    EXPECT_EQ (test.control<juce::Label> ("bottomInfoLabel").getText(), "choose from popup menu ...");
    EXPECT_EQ (test.panel().getLookAndFeel().findColour (juce::PopupMenu::highlightedBackgroundColourId),
               CrzQ7Colours::q7complementColourA);
    EXPECT_FALSE (test.processor.canUndoOrRedo());
}
} // namespace
