// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The knobs under a real mouse.

#include "DrivenEditor.h"

#include "support/NamedRows.h"

#include <gmock/gmock.h>

namespace
{
using testing::ElementsAre;

/** A notch of the wheel as a share of the range: JUCE has 15 % of what it takes a wheel button of X for. */
constexpr float wheelNotch = 0.15f * 50.0f / 256.0f;

struct KnobCase
{
    const char* name;
    const char* slider;
    ParameterId parameter;
    bool needsSafeBass;
};

constexpr KnobCase knobCases[] = {
    { "StereoWidth", "stereoWidthSlider", ParameterId::stereoWidth, false },
    { "Pan", "panSlider", ParameterId::pan, false },
    { "InputGain", "inputGainSlider", ParameterId::inputGain, false },
    { "OutputGain", "outputGainSlider", ParameterId::outputGain, false },
    { "SafeBassFreq", "safeBassFreqSlider", ParameterId::safeBassFreq, true },
};

class DrivenKnobs : public DrivenEditor, public testing::WithParamInterface<KnobCase>
{
protected:
    void SetUp() override
    {
        DrivenEditor::SetUp();

        if (IsSkipped() || HasFatalFailure())
            return;

        if (GetParam().needsSafeBass)
            clickUntil ("safeBassButton", [&] { return knob().isEnabled(); });

        stepsBefore = countUndoSteps();
    }

    juce::Slider& knob() { return slider (GetParam().slider); }
    float value() const { return valueOf (GetParam().parameter); }
    std::string name() const { return parameterTable[static_cast<size_t> (GetParam().parameter)].name; }

    /** The upper part of a knob; some have their number in the lower one. */
    void moveToKnob() { person.moveTo (knob(), 0.5f, 0.3f); }

    void expectOneGesture()
    {
        EXPECT_TRUE (
            waitUntil ([&] { return ! host->get().empty() && host->get().back() == "end " + name(); }));
        EXPECT_THAT (host->get(), ElementsAre ("begin " + name(), name(), "end " + name()));
        EXPECT_EQ (countUndoSteps(), stepsBefore + 1);
    }

    int stepsBefore = 0;
};

TEST_P (DrivenKnobs, ADragIsOneGestureAndOneUndoStepAndThePointerComesBack)
{
    const float before = value();
    moveToKnob();
    const auto place = juce::Desktop::getMousePosition();
    person.press();
    person.dragBy (0, -70);
    EXPECT_NEAR (value() - before, 70.0f / 350.0f, 0.02f);
    person.dragBy (0, 140);
    person.release();

    EXPECT_NEAR (value() - before, -70.0f / 350.0f, 0.02f);
    expectOneGesture();
    EXPECT_TRUE (waitUntil ([&] { return juce::Desktop::getMousePosition() == place; }));

    const float after = value();
    clickUntil ("undoButton", [&] { return value() == before; });
    EXPECT_FLOAT_EQ (static_cast<float> (knob().getValue()), before);
    clickUntil ("redoButton", [&] { return value() == after; });
}

TEST_P (DrivenKnobs, ShiftMakesADragFine)
{
    const float before = value();
    moveToKnob();
    person.press();
    person.hold (TestDevices::Key::shift);
    person.dragBy (0, -100);
    const float fine = value() - before;
    person.release();
    person.letGo (TestDevices::Key::shift);

    EXPECT_GT (fine, 0.0f);
    EXPECT_LT (fine, 0.5f * 100.0f / 350.0f);
    expectOneGesture();
}

TEST_P (DrivenKnobs, ControlClickResetsAndLeavesThePointer)
{
    moveToKnob();
    person.press();
    person.dragBy (0, -40);
    person.release();
    const float byDefault =
        processor->getParameterManager()->getParameter (juce::String (name()))->getDefaultValue();
    ASSERT_NE (value(), byDefault);

    moveToKnob();
    const auto place = juce::Desktop::getMousePosition();
    person.hold (TestDevices::Key::control);
    person.click();
    person.letGo (TestDevices::Key::control);

    EXPECT_NEAR (value(), byDefault, 1.0e-4f);
    EXPECT_EQ (juce::Desktop::getMousePosition(), place);
}

TEST_P (DrivenKnobs, DoubleClickResets)
{
    moveToKnob();
    person.press();
    person.dragBy (0, 40);
    person.release();
    const float byDefault =
        processor->getParameterManager()->getParameter (juce::String (name()))->getDefaultValue();
    ASSERT_NE (value(), byDefault);

    moveToKnob();
    person.doubleClick();
    EXPECT_TRUE (waitUntil ([&] { return std::abs (value() - byDefault) < 1.0e-4f; })) << value();
}

TEST_P (DrivenKnobs, TheWheelTurnsByGestures)
{
    const float before = value();
    moveToKnob();
    person.turnWheel (false);
    EXPECT_NEAR (before - value(), wheelNotch, 2.0e-4f); // values snap to 1.0e-4
    expectOneGesture();

    person.turnWheel (true);
    EXPECT_NEAR (value(), before, 2.0e-4f);
    EXPECT_TRUE (waitUntil ([&] { return ! host->get().empty() && host->get().back() == "end " + name(); }));
}

INSTANTIATE_TEST_SUITE_P (Knobs, DrivenKnobs, testing::ValuesIn (knobCases), rowName<KnobCase>);

TEST_F (DrivenEditor, AKnobHeldWhileTheHostClosesTheEditorEndsItsGesture)
{
    person.moveTo (control ("panSlider"), 0.5f, 0.4f);
    person.press();
    person.dragBy (0, -50);
    ASSERT_THAT (host->get(), ElementsAre ("begin Pan", "Pan"));

    closeWindow();
    EXPECT_THAT (host->get(), ElementsAre ("begin Pan", "Pan", "end Pan"));

    person.letButtonGo();
    openWindow();
    EXPECT_NEAR (slider ("panSlider").getValue(), valueOf (ParameterId::pan), 1.0e-4);
}

TEST_F (DrivenEditor, ADisabledKnobDoesNotMove)
{
    const float before = valueOf (ParameterId::safeBassFreq);
    ASSERT_FALSE (slider ("safeBassFreqSlider").isEnabled());
    person.moveTo (control ("safeBassFreqSlider"), 0.5f, 0.3f);
    person.press();
    person.dragBy (0, -50);
    person.release();
    EXPECT_EQ (valueOf (ParameterId::safeBassFreq), before);
    EXPECT_TRUE (host->get().empty());
}
} // namespace
