// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// What each control is called, what it says in the bottom line, and how each label is edited.

#include "EditorUnderTest.h"

#include <gtest/gtest.h>

#include <string>

namespace
{
/** The caption is null for a control without one. */
struct TooltipCase
{
    const char* id;
    const char* caption;
    const char* tooltip;
};

// clang-format off
constexpr TooltipCase tooltipCases[] = {
    { "muteAllButton", "MUTE ALL", "MUTE ALL: this mutes the input signal" },
    { "bypassButton", "BYPASS", "BYPASS: this bypasses the whole plugin" },
    { "safeBassButton", "SAFE BASS", "SAFE BASS: this activates the 'SAFE BASS' algorithm" },
    { "swapLrButton", "SWAP L-R", "SWAP L-R: this swaps LEFT and RIGHT channel of the input signal" },
    { "phaseFlipButton", "PHASE FLIP", "PHASE FLIP: this flips / inverts the phase of the input signal" },
    { "monoButton", "MONO", "MONO: this converts the input signal to mono, panning is still possible" },
    { "muteMidButton", "MUTE MID", "MUTE MID: this mutes only the MID signal of the output" },
    { "muteSideButton", "MUTE SIDE", "MUTE SIDE: this mutes only the SIDE signal of the output" },
    { "easyModeButton", "EASY MODE", "EASY MODE: this mode HIDES the expert options" },
    { "expertModeButton", "EXPERT MODE", "EXPERT MODE: this mode SHOWS the expert options" },
    { "saveButton", "SAVE", "SAVE: click to save as user preset" },
    { "undoButton", nullptr, "UNDO: takes back the latest parameter change" },
    { "redoButton", nullptr, "REDO: takes back the latest UNDO command" },
    { "nextButton", nullptr, "NEXT PRESET: loads the next preset" },
    { "prevButton", nullptr, "PREV PRESET: loads the previous preset" },
    { "settingsPopupButton", nullptr, "click to open the popup menu !" },
    { "panLaw0Button", "PAN LAW -0 dB", "PAN LAW -0dB: how much the mid signal is faded relative to hard left or right" },
    { "panLaw3Button", "-3 dB slope", "PAN LAW -3dB: how much the mid signal is faded relative to hard left or right" },
    { "panLaw6Button", "-6 dB slope", "PAN LAW -6dB: how much the mid signal is faded relative to hard left or right" },
    { "panCurveLinearButton", "linear", "PAN CURVE: 'LINEAR' scale, how the pan slider affects the panning" },
    { "panCurveLogButton", "logarithmic", "PAN CURVE: 'LOGARITHMIC' scale, how the pan slider affects the panning" },
    { "panCurveSinCosButton", "sin / cos", "PAN CURVE: 'SIN / COS' scale, how the pan slider affects the panning" },
    { "fixMidLevelButton", "fix MID level", "STEREOMODE: 'FIX MID LEVEL'= MID level is fixed, only SIDE level gets affected" },
    { "bindMsLevelsButton", "bind M/S levels", "STEREOMODE: 'BIND M/S LEVELS'= MID and SIDE levels get affected relatively" },
    { "dualPanButton", "dual pan", "PAN MODE: 'DUAL PAN'= L and R channels get panned separately" },
    { "balanceButton", "balance", "PAN MODE: 'BALANCE'= L and R channels get adjusted in volume relatively" },
    { "alignPhaseButton", "align phase", "ALIGN PHASE: phase alignment for SIDE signal while MID is muted" },
    { "inputGainSlider", nullptr, "INPUT GAIN: this controls the level of the input signal" },
    { "outputGainSlider", nullptr, "OUTPUT GAIN: this controls the level of the output signal" },
    { "safeBassFreqSlider", nullptr, "SAFE BASS FREQUENCY: all frequencies below this gets MONO" },
    { "stereoWidthSlider", nullptr, "STEREO WIDTH: =100% is normal, >100% is WIDER than normal stereo" },
    { "panSlider", nullptr, "PAN: this controls the stereo panorama or balance" },
    { "titleLabel", nullptr, "WideLoom v1.1 : Click for more infos !" },
    { "bottomInfoLabel", nullptr, "" },
    { "channelNameLabel", nullptr, "CHANNEL NAME: this can be used to set a name for this plugin channel" },
    { "presetNameLabel", nullptr, "PRESET NAME: this is the name of the current preset, double-click to edit" },
    { "stereoWidthLabel", nullptr, "STEREO WIDTH: Use slider below or double-click here to enter a value..." },
    { "panLabel", nullptr, "PAN: Use slider below or double-click here to enter a value..." },
    { "stereoComponent", nullptr, "this shows the stereo field" },
    { "inputVuMeter", nullptr, "" },
    { "outputVuMeter", nullptr, "" },
};
// clang-format on

TEST (MainEditorTooltips, AndCaptionsAreThoseOfTheirControls)
{
    EditorUnderTest test;

    for (const auto& [id, caption, tooltip] : tooltipCases)
    {
        auto* control = findChildWithID (test.panel(), id);
        const auto* client = dynamic_cast<juce::SettableTooltipClient*> (control);
        ASSERT_NE (client, nullptr) << id;

        // By the same way that the mouse takes; the line starts each time from another text.
        test.panel().setNewInfoText ("another", false);
        test.panel().componentHovered (control);
        EXPECT_EQ (test.control<juce::Label> ("bottomInfoLabel").getText(), tooltip) << id;

        if (caption != nullptr)
        {
            EXPECT_EQ (test.control<juce::Button> (id).getButtonText(), caption);
        }
    }
}

struct LabelCase
{
    const char* id;
    const char* name;
    int justification;
    bool editOnSingleClick, editOnDoubleClick, lossOfFocusDiscards;
};

constexpr LabelCase labelCases[] = {
    { "titleLabel", "Title Label", juce::Justification::centred, false, false, false },
    { "bottomInfoLabel", "Bottom Info Label", juce::Justification::bottomLeft, false, false, false },
    { "channelNameLabel", "Channel Name Label", juce::Justification::centred, true, false, false },
    { "presetNameLabel", "Preset Name Label", juce::Justification::centred, false, true, true },
    { "stereoWidthLabel", "Stereo Width Label ", juce::Justification::left, false, true, true },
    { "panLabel", "Pan", juce::Justification::right, false, true, true },
};

class MainEditorLabel : public testing::TestWithParam<LabelCase>
{
};

TEST_P (MainEditorLabel, IsAlignedAndEditedByItsRules)
{
    const auto& row = GetParam();
    EditorUnderTest test;
    const auto& label = test.control<juce::Label> (row.id);
    EXPECT_EQ (label.getName(), row.name);
    EXPECT_EQ (label.getJustificationType().getFlags(), row.justification);
    EXPECT_EQ (label.isEditableOnSingleClick(), row.editOnSingleClick);
    EXPECT_EQ (label.isEditableOnDoubleClick(), row.editOnDoubleClick);
    EXPECT_EQ (label.doesLossOfFocusDiscardChanges(), row.lossOfFocusDiscards);
}

INSTANTIATE_TEST_SUITE_P (Labels,
                          MainEditorLabel,
                          testing::ValuesIn (labelCases),
                          [] (const auto& row) { return std::string (row.param.id); });
} // namespace
