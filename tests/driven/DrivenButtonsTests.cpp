// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The buttons under a real mouse.

#include "DrivenEditor.h"

#include "support/NamedRows.h"

#include <gmock/gmock.h>

namespace
{
using testing::ElementsAre;

struct SwitchCase
{
    const char* name;
    const char* button;
    ParameterId parameter;
};

constexpr SwitchCase switchCases[] = {
    { "Bypass", "bypassButton", ParameterId::bypass },
    { "MuteAll", "muteAllButton", ParameterId::muteAll },
    { "MuteMid", "muteMidButton", ParameterId::muteMid },
    { "MuteSide", "muteSideButton", ParameterId::muteSide },
    { "SwapLR", "swapLrButton", ParameterId::swapLR },
    { "PhaseFlip", "phaseFlipButton", ParameterId::phaseFlip },
    { "Mono", "monoButton", ParameterId::mono },
    { "SafeBass", "safeBassButton", ParameterId::safeBass },
};

class DrivenSwitches : public DrivenEditor, public testing::WithParamInterface<SwitchCase>
{
};

TEST_P (DrivenSwitches, GoOnAndOffAndUndoGoesBack)
{
    const auto& row = GetParam();
    const int stepsBefore = countUndoSteps();
    clickUntil (row.button, [&] { return valueOf (row.parameter) == 1.0f; });
    EXPECT_EQ (countUndoSteps(), stepsBefore + 1);

    clickUntil ("undoButton", [&] { return valueOf (row.parameter) == 0.0f; });
    EXPECT_FALSE (dynamic_cast<juce::Button&> (control (row.button)).getToggleState());
    clickUntil ("redoButton", [&] { return valueOf (row.parameter) == 1.0f; });
    clickUntil (row.button, [&] { return valueOf (row.parameter) == 0.0f; });
}

INSTANTIATE_TEST_SUITE_P (Buttons, DrivenSwitches, testing::ValuesIn (switchCases), rowName<SwitchCase>);

struct ChoiceCase
{
    const char* name;
    const char* toggle;
    ParameterId parameter;
    float value;
};

constexpr ChoiceCase choiceCases[] = {
    { "Law0", "panLaw0Button", ParameterId::panLaw, 0.0f },
    { "Law3", "panLaw3Button", ParameterId::panLaw, 0.1f },
    { "Law6", "panLaw6Button", ParameterId::panLaw, 0.2f },
    { "Linear", "panCurveLinearButton", ParameterId::panCurve, 0.0f },
    { "Logarithmic", "panCurveLogButton", ParameterId::panCurve, 0.1f },
    { "SinCos", "panCurveSinCosButton", ParameterId::panCurve, 0.2f },
    { "FixMid", "fixMidLevelButton", ParameterId::msMode, 0.0f },
    { "BindLevels", "bindMsLevelsButton", ParameterId::msMode, 0.1f },
    { "DualPan", "dualPanButton", ParameterId::panMode, 0.0f },
    { "Balance", "balanceButton", ParameterId::panMode, 0.1f },
};

class DrivenChoices : public DrivenEditor, public testing::WithParamInterface<ChoiceCase>
{
};

TEST_P (DrivenChoices, AreOneStepEach)
{
    const auto& row = GetParam();
    auto& toggle = dynamic_cast<juce::Button&> (control (row.toggle));

    // From a choice that is not this one: the first of its group, or for the first what shows as the last.
    constexpr float first = 0.0f, pastTheLast = 0.3f;
    processor->setParamAndNotifyHost (parameterTable[static_cast<size_t> (row.parameter)].name,
                                      row.value == first ? pastTheLast : first,
                                      true);
    clickUntil ("expertModeButton", [&] { return toggle.isShowing(); });
    ASSERT_TRUE (waitUntil ([&] { return ! toggle.getToggleState(); }));

    const int stepsBefore = countUndoSteps();
    clickUntil (row.toggle, [&] { return valueOf (row.parameter) == row.value; });
    EXPECT_TRUE (toggle.getToggleState());
    EXPECT_THAT (host->get(), ElementsAre (parameterTable[static_cast<size_t> (row.parameter)].name));
    EXPECT_EQ (countUndoSteps(), stepsBefore + 1);
}

INSTANTIATE_TEST_SUITE_P (Toggles, DrivenChoices, testing::ValuesIn (choiceCases), rowName<ChoiceCase>);

class DrivenButtons : public DrivenEditor
{
};

TEST_F (DrivenButtons, MuteMidAndMuteSideExcludeEachOtherAndAlignPhaseFollows)
{
    clickUntil ("muteMidButton", [&] { return control ("alignPhaseButton").isShowing(); });
    clickUntil ("alignPhaseButton", [&] { return valueOf (ParameterId::phaseAlignSide) == 1.0f; });

    clickUntil ("muteSideButton", [&] { return valueOf (ParameterId::muteSide) == 1.0f; });
    EXPECT_EQ (valueOf (ParameterId::muteMid), 0.0f);
    EXPECT_FALSE (control ("alignPhaseButton").isVisible());
    EXPECT_EQ (valueOf (ParameterId::phaseAlignSide), 1.0f);
}

TEST_F (DrivenButtons, BypassLeavesOnlyItselfAndWhatStays)
{
    clickUntil ("bypassButton", [&] { return ! control ("muteAllButton").isVisible(); });

    for (const auto* id :
         { "bypassButton", "settingsPopupButton", "undoButton", "inputVuMeter", "channelNameLabel" })
        EXPECT_TRUE (control (id).isShowing()) << id;

    for (const auto* id :
         { "inputGainSlider", "panSlider", "saveButton", "presetNameLabel", "easyModeButton" })
        EXPECT_FALSE (control (id).isVisible()) << id;

    clickUntil ("bypassButton", [&] { return control ("panSlider").isShowing(); });
}

TEST_F (DrivenButtons, NextAndPrevStepThroughPresets)
{
    const auto first = processor->getCurrentPresetName();
    clickUntil ("nextButton", [&] { return processor->getCurrentPresetName() != first; });
    EXPECT_EQ (label ("presetNameLabel").getText(), processor->getCurrentPresetName());
    clickUntil ("prevButton", [&] { return processor->getCurrentPresetName() == first; });
}

TEST_F (DrivenButtons, MonoTakesTheWidthAwayAndGivesItBack)
{
    processor->setParamAndNotifyHost ("StereoWidth", 0.75f, true);
    ASSERT_TRUE (waitUntil ([&] { return label ("stereoWidthLabel").getText() == "150 %"; }));
    clickUntil ("monoButton", [&] { return label ("stereoWidthLabel").getText() == "0 %"; });

    person.doubleClick (control ("stereoWidthLabel"));
    EXPECT_FALSE (label ("stereoWidthLabel").isBeingEdited());
    EXPECT_EQ (valueOf (ParameterId::stereoWidth), 0.75f);
    clickUntil ("monoButton", [&] { return label ("stereoWidthLabel").getText() == "150 %"; });
}

TEST_F (DrivenButtons, TheInfoLineSaysWhatIsUnderThePointer)
{
    person.moveTo (control ("bypassButton"));
    EXPECT_TRUE (waitUntil ([&] { return infoText() == "BYPASS: this bypasses the whole plugin"; }));
    person.moveTo (control ("stereoComponent"), 0.5f, 0.5f);
    EXPECT_TRUE (waitUntil ([&] { return infoText() == "this shows the stereo field"; }));
    person.moveTo (panel(), 0.5f, 0.09f); // bare ground between bar and presets
    EXPECT_TRUE (waitUntil ([&] { return infoText().isEmpty(); })) << infoText();
}
} // namespace
