// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the panel's knobs and typed values do to the processor, and what the processor does to them.

#include "PanelControls.h"
#include "SyntheticMouse.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <vector>

namespace
{
/** What a knob shows, in the precision of the parameters: knobs snap to steps that are no exact doubles. */
float shownBy (const juce::Slider& slider)
{
    return static_cast<float> (slider.getValue());
}

void dragTo (juce::Slider& slider, std::initializer_list<double> values)
{
    const juce::Slider::ScopedDragNotification drag { slider };

    for (const auto value : values)
        slider.setValue (value, juce::sendNotificationSync);
}

struct KnobCase
{
    const char* slider;
    ParameterId parameter;
};

class MainEditorKnob : public testing::TestWithParam<KnobCase>
{
};

TEST_P (MainEditorKnob, WholeDragIsOneGestureAndOneUndoStep)
{
    const auto& [id, parameter] = GetParam();
    EditorUnderTest test;
    const auto before = valueOf (test, parameter);
    const auto index = std::to_string (indexOf (parameter));
    HostEar host { test.processor };

    dragTo (test.control<juce::Slider> (id), { 0.25, 0.75, 0.625 });
    EXPECT_EQ (host.take(),
               (std::vector<std::string> {
                   "begin " + index, index + "=0.250", index + "=0.750", index + "=0.625", "end " + index }));
    EXPECT_EQ (valueOf (test, parameter), 0.625f);

    dragTo (test.control<juce::Slider> (id), { 0.125 });
    test.processor.undoLastParameterChange();
    EXPECT_EQ (valueOf (test, parameter), 0.625f);
    expectOneUndoStepTo (test, parameter, before);
}

TEST_P (MainEditorKnob, FollowsAutomationSilently)
{
    const auto& [id, parameter] = GetParam();
    EditorUnderTest test;
    test.processor.setParameter (indexOf (ParameterId::safeBass), 1.0f);
    test.processor.setParameter (indexOf (parameter), 0.75f);
    HostEar host { test.processor };
    test.panel().poll (juce::Time::getCurrentTime());
    EXPECT_EQ (shownBy (test.control<juce::Slider> (id)), 0.75f);
    EXPECT_EQ (host.take(), std::vector<std::string> {});
}

TEST_P (MainEditorKnob, ClosingTheEditorInMidDragEndsTheGesture)
{
    const auto& [id, parameter] = GetParam();
    EditorUnderTest test;
    HostEar host { test.processor };
    auto& slider = test.control<juce::Slider> (id);
    test.panel().sliderDragStarted (&slider);
    slider.setValue (0.75, juce::sendNotificationSync);
    host.take();

    test.close();
    EXPECT_EQ (host.take(), std::vector { "end " + std::to_string (indexOf (parameter)) });

    // What comes next is a step of its own.
    test.processor.setParamAndNotifyHost (rowOf (parameter).name, 0.125f, true);
    test.processor.undoLastParameterChange();
    EXPECT_EQ (valueOf (test, parameter), 0.75f);
}

constexpr KnobCase knobCases[] = { { "stereoWidthSlider", ParameterId::stereoWidth },
                                   { "panSlider", ParameterId::pan },
                                   { "inputGainSlider", ParameterId::inputGain },
                                   { "outputGainSlider", ParameterId::outputGain },
                                   { "safeBassFreqSlider", ParameterId::safeBassFreq } };

INSTANTIATE_TEST_SUITE_P (Knobs,
                          MainEditorKnob,
                          testing::ValuesIn (knobCases),
                          [] (const auto& row) { return std::string (row.param.slider); });

struct TypedCase
{
    const char* text;
    float value;
    const char* shown;
};

constexpr TypedCase typedCases[] = { { " 150 ", 0.75f, "150 %" },
                                     { "junk", 0.0f, "0 %" },
                                     { "900", 1.0f, "200 %" } };

TEST (MainEditorKnobs, WidthTypedEqualsTheKnobs)
{
    for (const auto& row : typedCases)
    {
        SCOPED_TRACE (row.text);
        EditorUnderTest test, turned;
        auto& label = test.control<juce::Label> ("stereoWidthLabel");
        label.setText (row.text, juce::sendNotificationSync);
        EXPECT_EQ (label.getText(), row.shown);

        turned.control<juce::Slider> ("stereoWidthSlider").setValue (row.value, juce::sendNotificationSync);
        EXPECT_EQ (valueOf (test, ParameterId::stereoWidth), valueOf (turned, ParameterId::stereoWidth));
        expectOneUndoStepTo (test, ParameterId::stereoWidth, 0.5f);
    }
}

TEST (MainEditorKnobs, PanTypedAndTurnedAgree)
{
    for (const double value : { 0.0, 0.1, 0.4898, 0.5, 0.9, 1.0 })
    {
        EditorUnderTest turned, typed;
        turned.control<juce::Slider> ("panSlider").setValue (value, juce::sendNotificationSync);
        const auto text = turned.control<juce::Label> ("panLabel").getText();
        typed.control<juce::Label> ("panLabel").setText (text, juce::sendNotificationSync);
        EXPECT_EQ (typed.control<juce::Label> ("panLabel").getText(), text) << value;
        EXPECT_NEAR (valueOf (typed, ParameterId::pan), valueOf (turned, ParameterId::pan), 0.005f) << text;
    }
}

TEST (MainEditorKnobs, MonoZeroesTheWidthDisplayAndKeepsTheParameter)
{
    EditorUnderTest test;
    auto& slider = test.control<juce::Slider> ("stereoWidthSlider");
    auto& label = test.control<juce::Label> ("stereoWidthLabel");
    const auto tooltip = label.getTooltip();
    slider.setValue (0.75, juce::sendNotificationSync);
    EXPECT_EQ (label.getText(), "150 %");

    click (test, "monoButton");
    EXPECT_EQ (shownBy (slider), 0.0f);
    EXPECT_FALSE (slider.isEnabled());
    EXPECT_EQ (label.getText(), "0 %");
    EXPECT_FALSE (label.isEditableOnDoubleClick());
    EXPECT_EQ (label.getTooltip(), "STEREO WIDTH: is 0%, because MONO is on ...");
    EXPECT_EQ (valueOf (test, ParameterId::stereoWidth), 0.75f);

    test.processor.setParameter (indexOf (ParameterId::stereoWidth), 0.25f);
    test.panel().poll (juce::Time::getCurrentTime());
    EXPECT_EQ (shownBy (slider), 0.0f);
    EXPECT_EQ (label.getText(), "0 %");

    click (test, "monoButton");
    EXPECT_EQ (shownBy (slider), 0.25f);
    EXPECT_TRUE (slider.isEnabled());
    EXPECT_EQ (label.getText(), "50 %");
    EXPECT_FALSE (label.isEditableOnSingleClick());
    EXPECT_TRUE (label.isEditableOnDoubleClick());
    EXPECT_EQ (label.getTooltip(), tooltip);
}

TEST (MainEditorKnobs, SafeBassKnobFallsToZeroAndComesBack)
{
    EditorUnderTest test;
    auto& slider = test.control<juce::Slider> ("safeBassFreqSlider");
    EXPECT_EQ (shownBy (slider), 0.0f);
    EXPECT_FALSE (slider.isEnabled());
    EXPECT_FALSE (slider.isTextBoxEditable());

    test.processor.setParameter (indexOf (ParameterId::safeBassFreq), 0.5f);
    test.panel().poll (juce::Time::getCurrentTime());
    EXPECT_EQ (shownBy (slider), 0.0f);

    for (int round = 0; round < 2; ++round)
    {
        click (test, "safeBassButton");
        EXPECT_EQ (shownBy (slider), 0.5f);
        EXPECT_TRUE (slider.isEnabled());

        auto* textBox = findChildOfClass<juce::Label> (slider);
        ASSERT_NE (textBox, nullptr);
        EXPECT_TRUE (textBox->isEditableOnDoubleClick());
        EXPECT_FALSE (textBox->isEditableOnSingleClick());

        click (test, "safeBassButton");
        EXPECT_EQ (shownBy (slider), 0.0f);
        EXPECT_FALSE (slider.isTextBoxEditable());
        EXPECT_EQ (valueOf (test, ParameterId::safeBassFreq), 0.5f);
    }
}

TEST (MainEditorKnobs, KnobsResetByDoubleClickAloneNotByAltClick)
{
    EditorUnderTest test;
    click (test, "safeBassButton"); // its knob takes no click while it is off

    for (const auto& [id, parameter] : knobCases)
    {
        auto& slider = test.control<juce::Slider> (id);
        EXPECT_TRUE (slider.isDoubleClickReturnEnabled()) << id;
        EXPECT_EQ (slider.getDoubleClickReturnValue(), static_cast<double> (rowOf (parameter).defaultValue));
        EXPECT_EQ (slider.getInterval(), static_cast<double> (0.0001f));

        slider.setValue (0.25, juce::dontSendNotification);
        synthetic_mouse::Pointer pointer { slider };
        pointer.press (slider.getLocalBounds().toFloat().getCentre(), juce::ModifierKeys::altModifier);
        EXPECT_NEAR (slider.getValue(), 0.25, slider.getInterval()) << id;
    }
}
} // namespace
