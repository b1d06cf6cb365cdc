// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the panel's buttons, knobs and labels do to the processor, and what the processor does to them.

#include "EditorUnderTest.h"
#include "SyntheticMouse.h"

#include <editor/CrzPresetNameLabel.h>
#include <editor/CrzRotarySlider.h>

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace
{
using namespace std::string_literals;

/** What the host hears, as words: "begin 3", "3=0.25", "end 3". */
class HostEar : public juce::AudioProcessorListener
{
public:
    explicit HostEar (juce::AudioProcessor& watched)
        : processor (watched)
    {
        processor.addListener (this);
    }
    ~HostEar() override { processor.removeListener (this); }

    std::vector<std::string> take() { return std::exchange (heard, {}); }

private:
    void audioProcessorParameterChanged (juce::AudioProcessor*, int index, float value) override
    {
        heard.push_back (std::to_string (index) + "=" + juce::String (value, 3).toStdString());
    }
    void audioProcessorChanged (juce::AudioProcessor*, const ChangeDetails&) override {}
    void audioProcessorParameterChangeGestureBegin (juce::AudioProcessor*, int index) override
    {
        heard.push_back ("begin " + std::to_string (index));
    }
    void audioProcessorParameterChangeGestureEnd (juce::AudioProcessor*, int index) override
    {
        heard.push_back ("end " + std::to_string (index));
    }

    juce::AudioProcessor& processor;
    std::vector<std::string> heard;
};

float valueOf (EditorUnderTest& test, ParameterId id)
{
    return test.processor.getParameter (indexOf (id));
}

bool isOn (EditorUnderTest& test, const juce::String& id)
{
    return test.control<juce::Button> (id).getToggleState();
}

/** A click as JUCE carries it out, without the message loop in between. */
void click (EditorUnderTest& test, const juce::String& id)
{
    auto& button = test.control<juce::Button> (id);

    if (button.getClickingTogglesState())
        button.setToggleState (button.getRadioGroupId() != 0 || ! button.getToggleState(),
                               juce::sendNotificationSync);
    else
        test.panel().buttonClicked (&button);
}

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

juce::Time secondsFromNow (double seconds)
{
    return juce::Time::getCurrentTime() + juce::RelativeTime::seconds (seconds);
}

/** One undo step brings the parameter back, and no second one was made. */
void expectOneUndoStepTo (EditorUnderTest& test, ParameterId id, float before)
{
    ASSERT_TRUE (test.processor.canUndo());
    test.processor.undoLastParameterChange();
    EXPECT_EQ (valueOf (test, id), before);
    EXPECT_FALSE (test.processor.canUndo());
    test.panel().updateAll();
}

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
                          [] (const auto& row) { return std::string (row.param.button); });

//==================================================================================================
// Choices

struct ChoiceCase
{
    const char* button;
    ParameterId parameter;
    float value;                    ///< what a click writes
    std::vector<float> isShownAlso; ///< values between the choices that show as this one
};

class MainEditorChoice : public testing::TestWithParam<ChoiceCase>
{
};

const ChoiceCase choiceCases[] = {
    { "panLaw0Button", ParameterId::panLaw, 0.0f, { 0.05f, 0.099f } },
    { "panLaw3Button", ParameterId::panLaw, 0.1f, { 0.15f, 0.199f } },
    { "panLaw6Button", ParameterId::panLaw, 0.2f, { 0.3f, 1.0f } },
    { "panCurveLinearButton", ParameterId::panCurve, 0.0f, { 0.05f, 0.099f } },
    { "panCurveLogButton", ParameterId::panCurve, 0.1f, { 0.15f, 0.199f } },
    { "panCurveSinCosButton", ParameterId::panCurve, 0.2f, { 0.3f, 1.0f } },
    { "fixMidLevelButton", ParameterId::msMode, 0.0f, { 0.05f, 0.099f } },
    { "bindMsLevelsButton", ParameterId::msMode, 0.1f, { 0.2f, 1.0f } },
    { "dualPanButton", ParameterId::panMode, 0.0f, { 0.05f, 0.099f } },
    { "balanceButton", ParameterId::panMode, 0.1f, { 0.2f, 1.0f } },
};

TEST_P (MainEditorChoice, IsTheOnlyOneTickedForItsValues)
{
    const auto& row = GetParam();
    EditorUnderTest test;
    auto values = row.isShownAlso;
    values.push_back (row.value);

    for (const float value : values)
    {
        test.panel().setEditorParameterValue (indexOf (row.parameter), value);

        for (const auto& other : choiceCases)
        {
            if (other.parameter == row.parameter)
            {
                EXPECT_EQ (isOn (test, other.button), std::string (other.button) == row.button)
                    << other.button << " at " << value;
            }
        }
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
                          [] (const auto& row) { return std::string (row.param.button); });

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

//==================================================================================================
// Knobs

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
    const char* label;
    const char* slider;
    ParameterId parameter;
    const char* text;
    float value;
    const char* shown;
};

class MainEditorTypedValue : public testing::TestWithParam<TypedCase>
{
};

TEST_P (MainEditorTypedValue, EqualsTheKnobs)
{
    const auto& row = GetParam();
    EditorUnderTest test;
    auto& label = test.control<juce::Label> (row.label);
    label.setText (row.text, juce::sendNotificationSync);
    EXPECT_NEAR (valueOf (test, row.parameter), row.value, 0.0001f); // the knob's step
    EXPECT_EQ (label.getText(), row.shown);

    EditorUnderTest turned;
    turned.control<juce::Slider> (row.slider).setValue (row.value, juce::sendNotificationSync);
    EXPECT_EQ (valueOf (test, row.parameter), valueOf (turned, row.parameter));

    expectOneUndoStepTo (test, row.parameter, 0.5f);
}

constexpr TypedCase typedCases[] = {
    { "stereoWidthLabel", "stereoWidthSlider", ParameterId::stereoWidth, " 150 ", 0.75f, "150 %" },
    { "stereoWidthLabel", "stereoWidthSlider", ParameterId::stereoWidth, "junk", 0.0f, "0 %" },
    { "stereoWidthLabel", "stereoWidthSlider", ParameterId::stereoWidth, "900", 1.0f, "200 %" },
};

INSTANTIATE_TEST_SUITE_P (Texts,
                          MainEditorTypedValue,
                          testing::ValuesIn (typedCases),
                          [] (const auto& row) { return "Text" + std::to_string (row.index); });

TEST (MainEditorBehaviour, PanTypedAndTurnedAgree)
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

TEST (MainEditorBehaviour, MonoZeroesTheWidthDisplayAndKeepsTheParameter)
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

TEST (MainEditorBehaviour, SafeBassKnobFallsToZeroAndComesBack)
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

TEST (MainEditorBehaviour, KnobsResetByDoubleClickAloneNotByAltClick)
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

//==================================================================================================
// Names

TEST (MainEditorBehaviour, PresetNameIsFilteredUndoableAndNeverEmpty)
{
    EditorUnderTest test;
    auto& label = test.control<juce::Label> ("presetNameLabel");
    auto& infoLine = test.control<juce::Label> ("bottomInfoLabel");
    const auto original = label.getText();

    label.setText ("  My/ *Preset ", juce::sendNotificationSync);
    EXPECT_EQ (label.getText(), "My Preset");
    EXPECT_TRUE (test.processor.getCurrentPresetName().startsWith ("My Preset"));

    label.setText ("/// ", juce::sendNotificationSync);
    EXPECT_TRUE (label.getText().startsWith ("My Preset"));
    EXPECT_EQ (infoLine.getText(), "PRESET NAME: new preset name not accepted !!!");

    click (test, "undoButton");
    EXPECT_EQ (label.getText(), original);
}

TEST (MainEditorBehaviour, ChannelNameOutlivesTheEditor)
{
    EditorUnderTest test;
    const auto colour = [&]
    { return test.control<juce::Label> ("channelNameLabel").findColour (juce::Label::textColourId); };
    const auto text = [&] { return test.control<juce::Label> ("channelNameLabel").getText(); };
    const auto unnamed = juce::Colour (255, 53, 0).darker (0.2f);

    EXPECT_EQ (text(), "No Channel Name");
    EXPECT_EQ (colour(), unnamed);

    test.control<juce::Label> ("channelNameLabel").setText ("  Strings ", juce::sendNotificationSync);
    test.close();
    test.open();
    EXPECT_EQ (text(), "Strings");
    EXPECT_EQ (colour(), juce::Colours::black);

    for (const char* noName : { "   ", "No Channel Name" })
    {
        test.control<juce::Label> ("channelNameLabel").setText ("x", juce::sendNotificationSync);
        test.control<juce::Label> ("channelNameLabel").setText (noName, juce::sendNotificationSync);
        EXPECT_EQ (text(), "No Channel Name");
        EXPECT_EQ (test.processor.getChannelName(), "No Channel Name");
        EXPECT_EQ (colour(), unnamed);
    }
}

TEST (MainEditorBehaviour, ChannelNameIsTypedAsHighAsItIsShown)
{
    EditorUnderTest test;

    for (const auto& [id, isAdapted] :
         { std::pair { "channelNameLabel", true }, std::pair { "presetNameLabel", false } })
    {
        auto& label = test.control<juce::Label> (id);
        constexpr float otherHeight = 7.0f;
        juce::TextEditor entry;
        entry.setFont (juce::Font (otherHeight));
        test.panel().editorShown (&label, entry);
        EXPECT_EQ (entry.getFont().getHeight(),
                   isAdapted ? static_cast<float> (label.getHeight()) : otherHeight)
            << id;
    }
}

//==================================================================================================
// The bottom line

TEST (MainEditorBehaviour, BottomLineShowsTooltips)
{
    EditorUnderTest test;
    auto& line = test.control<juce::Label> ("bottomInfoLabel");
    auto& panel = test.panel();

    EXPECT_EQ (line.getText(), "WideLoom v1.1");
    panel.poll (juce::Time::getCurrentTime());
    EXPECT_EQ (line.getText(), "");

    panel.componentHovered (findChildWithID (panel, "stereoComponent"));
    EXPECT_EQ (line.getText(), "this shows the stereo field");
    panel.componentHovered (nullptr);
    panel.componentHovered (findChildWithID (panel, "panLawGroup")); // a bare component has no tooltip
    EXPECT_EQ (line.getText(), "this shows the stereo field");
    panel.componentHovered (findChildWithID (panel, "titleLabel"));
    EXPECT_EQ (line.getText(), "WideLoom v1.1 : Click for more infos !");
    panel.componentHovered (&panel);
    EXPECT_EQ (line.getText(), "");

    panel.setNewInfoText ("plain", false);
    panel.poll (secondsFromNow (5.0));
    EXPECT_EQ (line.getText(), "plain");
    panel.poll (secondsFromNow (7.0));
    EXPECT_EQ (line.getText(), "");
}

TEST (MainEditorBehaviour, BottomLineDoesNotAgeWhileResizing)
{
    EditorUnderTest test;
    auto& line = test.control<juce::Label> ("bottomInfoLabel");
    test.panel().setNewInfoText ("important", true);
    test.panel().resizingStarted();
    test.panel().poll (secondsFromNow (100.0));
    EXPECT_EQ (line.getText(), "important");
    test.panel().resizingStopped();
    EXPECT_EQ (line.getText(), "important"); // the new size is plain text
    test.panel().poll (secondsFromNow (4.0));
    EXPECT_EQ (line.getText(), "");
}

//==================================================================================================
// Saving

TEST (MainEditorBehaviour, SavingReportsHowItWent)
{
    EditorUnderTest test;
    auto& line = test.control<juce::Label> ("bottomInfoLabel");
    const auto folder = test.processor.getUserPresetsFolder();
    const auto file = folder.getChildFile ("Init.q7p");

    click (test, "saveButton");
    test.panel().cancelUserPresetSaving();
    EXPECT_EQ (line.getText(), "CANCEL: preset was NOT saved ...");
    EXPECT_FALSE (file.exists());

    click (test, "saveButton");
    test.panel().saveUserPreset();
    EXPECT_EQ (line.getText(), "SAVE: OK, user preset was saved !");
    EXPECT_TRUE (file.existsAsFile());

    // A folder stands where the file should go.
    file.deleteFile();
    file.createDirectory();
    file.getChildFile ("something").create();
    click (test, "saveButton");
    test.panel().saveUserPreset();
    EXPECT_EQ (line.getText(), "SAVE: FAILED, user preset was NOT saved !");
    EXPECT_TRUE (file.isDirectory());
    EXPECT_FALSE (findChildWithID (test.panel(), "managePresetsComponent")->isVisible());
    file.deleteRecursively();
}

//==================================================================================================
// The settings menu's watch

TEST (MainEditorBehaviour, KnowsAMenuByTheNearestName)
{
    juce::Component menu { "menu" }, other { "other" }, child, grandchild, orphan;
    menu.addAndMakeVisible (child);
    child.addAndMakeVisible (grandchild);
    EXPECT_TRUE (MainEditorComponent::belongsToMenu (&menu));
    EXPECT_TRUE (MainEditorComponent::belongsToMenu (&grandchild));
    EXPECT_FALSE (MainEditorComponent::belongsToMenu (&orphan));
    EXPECT_FALSE (MainEditorComponent::belongsToMenu (nullptr));

    menu.addAndMakeVisible (other);
    other.addAndMakeVisible (orphan);
    EXPECT_FALSE (MainEditorComponent::belongsToMenu (&orphan));
}
} // namespace
