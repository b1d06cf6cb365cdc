// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the panel's buttons do to the processor, and what the processor does to them.

#include "PanelControls.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace
{
//==================================================================================================
// Switches

struct SwitchCase
{
    const char* button;
    ParameterId parameter;
};

class MainEditorSwitch : public testing::TestWithParam<SwitchCase>
{
};

TEST_P (MainEditorSwitch, WritesItsParameterAsOneUndoStep)
{
    const auto& [button, parameter] = GetParam();
    EditorUnderTest test;

    click (test, button);
    EXPECT_EQ (valueOf (test, parameter), 1.0f);
    expectOneUndoStepTo (test, parameter, 0.0f);
    EXPECT_FALSE (isOn (test, button));

    click (test, button);
    click (test, button);
    EXPECT_EQ (valueOf (test, parameter), 0.0f);
}

TEST_P (MainEditorSwitch, FollowsAutomationSilently)
{
    const auto& [button, parameter] = GetParam();
    EditorUnderTest test;
    HostEar host { test.processor };

    test.processor.setParameter (indexOf (parameter), 0.51f);
    test.panel().poll (juce::Time::getCurrentTime());
    EXPECT_TRUE (isOn (test, button));

    test.processor.setParameter (indexOf (parameter), 0.5f);
    test.panel().poll (juce::Time::getCurrentTime());
    EXPECT_FALSE (isOn (test, button));

    EXPECT_EQ (host.take(), std::vector<std::string> {});
    EXPECT_FALSE (test.processor.canUndo());
}

constexpr SwitchCase switchCases[] = { { "bypassButton", ParameterId::bypass },
                                       { "muteAllButton", ParameterId::muteAll },
                                       { "safeBassButton", ParameterId::safeBass },
                                       { "swapLrButton", ParameterId::swapLR },
                                       { "phaseFlipButton", ParameterId::phaseFlip },
                                       { "monoButton", ParameterId::mono },
                                       { "muteMidButton", ParameterId::muteMid },
                                       { "muteSideButton", ParameterId::muteSide },
                                       { "alignPhaseButton", ParameterId::phaseAlignSide } };

INSTANTIATE_TEST_SUITE_P (Buttons,
                          MainEditorSwitch,
                          testing::ValuesIn (switchCases),
                          [] (const auto& row) { return row.param.button; });

//==================================================================================================
// Choices

struct ChoiceCase
{
    const char* button;
    ParameterId parameter;
    float value;                 ///< what a click writes
    std::vector<float> shownFor; ///< values that show as this choice
};

class MainEditorChoice : public testing::TestWithParam<ChoiceCase>
{
};

const ChoiceCase choiceCases[] = {
    { "panLaw0Button", ParameterId::panLaw, 0.0f, { 0.0f, 0.05f, 0.099f } },
    { "panLaw3Button", ParameterId::panLaw, 0.1f, { 0.1f, 0.15f, 0.199f } },
    { "panLaw6Button", ParameterId::panLaw, 0.2f, { 0.2f, 0.3f, 1.0f } },
    { "panCurveLinearButton", ParameterId::panCurve, 0.0f, { 0.0f, 0.05f, 0.099f } },
    { "panCurveLogButton", ParameterId::panCurve, 0.1f, { 0.1f, 0.15f, 0.199f } },
    { "panCurveSinCosButton", ParameterId::panCurve, 0.2f, { 0.2f, 0.3f, 1.0f } },
    { "fixMidLevelButton", ParameterId::msMode, 0.0f, { 0.0f, 0.05f, 0.099f } },
    { "bindMsLevelsButton", ParameterId::msMode, 0.1f, { 0.1f, 0.2f, 1.0f } },
    { "dualPanButton", ParameterId::panMode, 0.0f, { 0.0f, 0.05f, 0.099f } },
    { "balanceButton", ParameterId::panMode, 0.1f, { 0.1f, 0.2f, 1.0f } },
};

TEST_P (MainEditorChoice, IsTheOnlyOneTickedForItsValues)
{
    EditorUnderTest test;

    for (const float value : GetParam().shownFor)
    {
        test.panel().setEditorParameterValue (indexOf (GetParam().parameter), value);

        for (const auto& other : choiceCases)
            EXPECT_TRUE (other.parameter != GetParam().parameter
                         || isOn (test, other.button) == (std::string (other.button) == GetParam().button))
                << other.button << " at " << value;
    }
}

TEST_P (MainEditorChoice, ClickWritesTheNewValueOnly)
{
    const auto& row = GetParam();
    EditorUnderTest test;

    // From every other choice, so that a click of the one that goes off would be heard.
    for (const auto& from : choiceCases)
    {
        if (from.parameter != row.parameter || from.value == row.value)
            continue;

        const bool isNew = valueOf (test, row.parameter) != from.value;
        click (test, from.button);
        EXPECT_EQ (test.processor.canUndo(), isNew) << from.button;
        test.processor.clearUndoHistory();

        HostEar host { test.processor };
        click (test, row.button);
        EXPECT_EQ (host.take(),
                   (std::vector { std::to_string (indexOf (row.parameter)) + "="
                                  + juce::String (row.value, 3).toStdString() }))
            << "from " << from.button;
        EXPECT_EQ (valueOf (test, row.parameter), row.value); // bit for bit
        expectOneUndoStepTo (test, row.parameter, from.value);
        EXPECT_TRUE (isOn (test, from.button));
        test.processor.clearUndoHistory();
    }
}

INSTANTIATE_TEST_SUITE_P (Buttons,
                          MainEditorChoice,
                          testing::ValuesIn (choiceCases),
                          [] (const auto& row) { return row.param.button; });

//==================================================================================================
// Buttons with more to them

TEST (MainEditorBehaviour, MuteMidAndMuteSideExcludeEachOther)
{
    EditorUnderTest test;
    auto& alignPhase = test.control<juce::Component> ("alignPhaseButton");

    click (test, "muteMidButton");
    EXPECT_TRUE (alignPhase.isVisible());

    click (test, "muteSideButton");
    EXPECT_FALSE (isOn (test, "muteMidButton"));
    EXPECT_FALSE (alignPhase.isVisible());
    EXPECT_EQ (valueOf (test, ParameterId::muteMid), 0.0f);
    EXPECT_EQ (valueOf (test, ParameterId::muteSide), 1.0f);

    click (test, "muteMidButton");
    EXPECT_FALSE (isOn (test, "muteSideButton"));
    EXPECT_TRUE (alignPhase.isVisible());
    EXPECT_EQ (valueOf (test, ParameterId::muteMid), 1.0f);
    EXPECT_EQ (valueOf (test, ParameterId::muteSide), 0.0f);

    // Three clicks, three steps.
    for (const float muteSide : { 1.0f, 0.0f, 0.0f })
    {
        click (test, "undoButton");
        EXPECT_EQ (valueOf (test, ParameterId::muteSide), muteSide);
        EXPECT_EQ (isOn (test, "muteSideButton"), muteSide == 1.0f);
    }
    EXPECT_FALSE (test.processor.canUndo());
}

TEST (MainEditorBehaviour, ModeButtonsActWhenTheyGoOn)
{
    EditorUnderTest test;
    EXPECT_TRUE (isOn (test, "easyModeButton"));

    for (const bool isExpert : { true, false, true })
    {
        click (test, isExpert ? "expertModeButton" : "easyModeButton");
        EXPECT_EQ (test.processor.getExpertMode(), isExpert);
        EXPECT_EQ (isOn (test, "expertModeButton"), isExpert);
        EXPECT_EQ (isOn (test, "easyModeButton"), ! isExpert);
        EXPECT_EQ (test.control<juce::Component> ("panLawGroup").isVisible(), isExpert);
    }

    test.close();
    test.open();
    EXPECT_TRUE (isOn (test, "expertModeButton"));
    EXPECT_TRUE (test.control<juce::Component> ("panLawGroup").isVisible());
}

TEST (MainEditorBehaviour, ArrowsStepThroughPresetsAndHistory)
{
    EditorUnderTest test;
    auto& name = test.control<juce::Label> ("presetNameLabel");
    const auto first = name.getText();
    EXPECT_EQ (first, test.processor.getAllFactoryPresetNames()[0]);

    click (test, "nextButton");
    EXPECT_EQ (name.getText(), test.processor.getAllFactoryPresetNames()[1]);
    EXPECT_TRUE (test.control<juce::Button> ("undoButton").isEnabled());
    EXPECT_FALSE (test.control<juce::Button> ("redoButton").isEnabled());

    click (test, "undoButton");
    EXPECT_EQ (name.getText(), first);
    EXPECT_TRUE (test.control<juce::Button> ("redoButton").isEnabled());

    click (test, "redoButton");
    EXPECT_EQ (name.getText(), test.processor.getAllFactoryPresetNames()[1]);
    click (test, "prevButton");
    EXPECT_EQ (name.getText(), first);

    test.panel().loadFactoryPresetWithID (3);
    EXPECT_EQ (name.getText(), test.processor.getAllFactoryPresetNames()[3]);
}

} // namespace
