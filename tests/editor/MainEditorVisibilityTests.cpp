// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Which controls show in which state of the panel.

#include "EditorUnderTest.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>

namespace
{
/** A control and the letters of what hides it: B bypass, M mute all, S saving a preset, R resizing, W a wrong
    channel layout; small letters for what it needs: e expert mode, d mute mid. */
struct ShownCase
{
    const char* id;
    std::string_view rule;
};

// clang-format off
constexpr ShownCase shownCases[] = {
    { "titleLabel", "" }, { "bottomInfoLabel", "" },
    { "stereoComponent", "WR" }, { "inputVuMeter", "WR" }, { "outputVuMeter", "WR" }, { "channelNameLabel", "WR" },
    { "bypassButton", "WSR" }, { "undoButton", "WSR" }, { "redoButton", "WSR" }, { "settingsPopupButton", "WSR" },
    { "muteAllButton", "WBSR" }, { "inputGainSlider", "WBSR" },
    { "stereoWidthSlider", "WBMSR" }, { "panSlider", "WBMSR" }, { "stereoWidthLabel", "WBMSR" },
    { "panLabel", "WBMSR" }, { "outputGainSlider", "WBMSR" }, { "safeBassFreqSlider", "WBMSR" },
    { "safeBassButton", "WBMSR" }, { "swapLrButton", "WBMSR" }, { "phaseFlipButton", "WBMSR" },
    { "monoButton", "WBMSR" }, { "muteMidButton", "WBMSR" }, { "muteSideButton", "WBMSR" },
    { "easyModeButton", "WBMSR" }, { "expertModeButton", "WBMSR" }, { "saveButton", "WBMSR" },
    { "presetNameLabel", "WBMSR" }, { "nextButton", "WBMSR" }, { "prevButton", "WBMSR" },
    { "alignPhaseButton", "WBMSRd" },
    { "panLawGroup", "WBMSRe" }, { "panCurveGroup", "WBMSRe" }, { "msModeGroup", "WBMSRe" }, { "panModeGroup", "WBMSRe" },
};
// clang-format on

/** The states that come and go on their own, as letters of a rule. */
constexpr std::string_view letters = "BMSRWed";

bool isExpected (std::string_view rule, std::string_view state)
{
    for (const char letter : rule)
    {
        const bool holds = state.find (letter) != std::string_view::npos;
        const bool isNeeded = letter == 'e' || letter == 'd';

        if (holds != isNeeded)
            return false;
    }

    return true;
}

void enter (EditorUnderTest& test, std::string_view state)
{
    const auto holds = [state] (char letter) { return state.find (letter) != std::string_view::npos; };
    auto& panel = test.panel();

    test.processor.setExpertMode (holds ('e'));
    panel.updateAll();

    for (const auto& [letter, id] : { std::pair { 'B', ParameterId::bypass },
                                      std::pair { 'M', ParameterId::muteAll },
                                      std::pair { 'd', ParameterId::muteMid } })
        panel.setEditorParameterValue (indexOf (id), holds (letter) ? 1.0f : 0.0f);

    if (holds ('S'))
        panel.showManagePresetsComponent();

    panel.setStereoConfig (! holds ('W'));

    if (holds ('R'))
        panel.resizingStarted();
}

void leave (EditorUnderTest& test, std::string_view state)
{
    if (state.find ('R') != std::string_view::npos)
        test.panel().resizingStopped();

    if (state.find ('S') != std::string_view::npos)
        test.panel().cancelUserPresetSaving();
}

TEST (MainEditorVisibility, EveryStateShowsWhatItShould)
{
    EditorUnderTest test;

    for (unsigned int bits = 0; bits < 1u << letters.size(); ++bits)
    {
        std::string state;

        for (size_t i = 0; i < letters.size(); ++i)
            if ((bits >> i & 1u) != 0)
                state += letters[i];

        enter (test, state);

        for (const auto& row : shownCases)
            ASSERT_EQ (findChildWithID (test.panel(), row.id)->isVisible(), isExpected (row.rule, state))
                << row.id << " in state '" << state << "'";

        leave (test, state);
    }
}

TEST (MainEditorVisibility, StatesThatEndGiveEverythingBack)
{
    for (const std::string_view state : { "B", "M", "S", "R", "W", "BM", "BSR" })
    {
        EditorUnderTest test;
        enter (test, state);
        auto& panel = test.panel();

        leave (test, state);
        panel.updateAll(); // the parameters themselves were never touched

        for (const auto& row : shownCases)
            EXPECT_EQ (findChildWithID (panel, row.id)->isVisible(), isExpected (row.rule, ""))
                << row.id << " after '" << state << "'";

        EXPECT_FALSE (findChildWithID (panel, "managePresetsComponent")->isVisible()) << state;
    }
}

TEST (MainEditorVisibility, SavingPanelIsTouchedOnlyWhileResizingOrSaving)
{
    EditorUnderTest test;
    auto& panel = test.panel();
    auto& savingPanel = *findChildWithID (panel, "managePresetsComponent");
    EXPECT_FALSE (savingPanel.isVisible());

    panel.showManagePresetsComponent();
    EXPECT_TRUE (savingPanel.isVisible());

    panel.resizingStarted();
    EXPECT_FALSE (savingPanel.isVisible());
    panel.resizingStopped();
    EXPECT_TRUE (savingPanel.isVisible());

    // With a wrong layout nothing decides about it, so it stays as it is.
    panel.setStereoConfig (false);
    EXPECT_TRUE (savingPanel.isVisible());
    panel.setStereoConfig (true);

    panel.cancelUserPresetSaving();
    EXPECT_FALSE (savingPanel.isVisible());
    panel.setEditorParameterValue (indexOf (ParameterId::bypass), 1.0f);
    EXPECT_FALSE (savingPanel.isVisible());
}

TEST (MainEditorVisibility, ChannelNameCanBeEditedUnlessSavingOrResizing)
{
    for (const std::string_view state : { "", "B", "S", "R", "W" })
    {
        const bool isEditable = state.empty() || state == "B";
        EditorUnderTest other;
        enter (other, state);
        EXPECT_EQ (other.control<juce::Label> ("channelNameLabel").isEditableOnSingleClick(), isEditable)
            << state;
    }
}

TEST (MainEditorVisibility, TitleOpensTheInfoScreenInEveryState)
{
    for (const std::string_view state : { "", "B", "M", "S", "R", "W" })
    {
        EditorUnderTest test;
        enter (test, state);
        auto& info = *findChildWithID (test.panel(), "infoComponent");
        EXPECT_FALSE (info.isVisible());

        test.panel().componentPressed (findChildWithID (test.panel(), "bottomInfoLabel"));
        test.panel().componentPressed (nullptr);
        EXPECT_FALSE (info.isVisible()) << state;

        test.panel().componentPressed (findChildWithID (test.panel(), "titleLabel"));
        EXPECT_TRUE (info.isVisible()) << state;

        test.panel().hideInfoComponent();
        EXPECT_FALSE (info.isVisible()) << state;
    }
}
} // namespace
