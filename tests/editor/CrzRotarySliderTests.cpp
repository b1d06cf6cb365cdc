// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The knob: what it reads and writes, and how it follows the mouse.

#include <editor/CrzRotarySlider.h>

#include "SyntheticMouse.h"

#include <engine/CrzParameter.h>

#include <gtest/gtest.h>
#include <support/NamedRows.h>

#include <cmath>
#include <string>
#include <vector>

namespace
{
using Mapper = CrzParameterValueMapper;

struct TextToValueCase
{
    const char* name;
    Mapper::CrzMappingENUM mapping;
    const char* text;
    double value;
};

class CrzRotarySliderText : public testing::TestWithParam<TextToValueCase>
{
};

const TextToValueCase textToValueCases[] = {
    { "PlainNumber", Mapper::mappingNone, "1.5x", 1.5 },
    { "DecimalComma", Mapper::mappingNone, "2,5", 2.5 },
    { "Pluses", Mapper::mappingNone, "+ + 3", 3.0 },
    { "Blanks", Mapper::mappingNone, " \t 0.25 \n", 0.25 },
    { "PlusAfterMinus", Mapper::mappingNone, "-+3", 0.0 },
    { "Words", Mapper::mappingNone, "nan", 0.0 },
    { "Infinity", Mapper::mappingNone, "-inf", 0.0 },
    { "GainWithUnit", Mapper::mappingGain12Db, "6dB", 0.75 },
    { "GainWithComma", Mapper::mappingGain12Db, "+ 6,0 dB", 0.75 },
    { "GainBeyondTheRange", Mapper::mappingGain12Db, "24", 1.5 },
    { "GainEmpty", Mapper::mappingGain12Db, "dB", 0.5 },
    { "PanNumber", Mapper::mappingPan100, "-20", 0.4 },
    { "PanWithALetterIsCentre", Mapper::mappingPan100, "L20", 0.5 },
    { "Width", Mapper::mappingWidthPercent, "150 %", 0.75 },
    { "Frequency", Mapper::mappingSafeBassFreq, "255Hz", 0.5 },
    { "FrequencyOff", Mapper::mappingSafeBassFreq, "OFF", 0.0 },
};

TEST_P (CrzRotarySliderText, BecomesAValue)
{
    const auto& row = GetParam();
    CrzParameter parameter (nullptr, row.mapping);
    CrzRotarySlider knob (&parameter);

    EXPECT_NEAR (knob.getValueFromText (row.text), row.value, 1.0e-6); // a float's precision near 1
}

INSTANTIATE_TEST_SUITE_P (Texts,
                          CrzRotarySliderText,
                          testing::ValuesIn (textToValueCases),
                          rowName<TextToValueCase>);

TEST (CrzRotarySlider, NeverGivesAValueThatIsNotFinite)
{
    CrzParameter gain (nullptr, Mapper::mappingGain12Db);
    const auto hugeNumber = juce::String::repeatedString ("9", 400);

    for (auto* parameter : { static_cast<CrzParameter*> (nullptr), &gain })
    {
        CrzRotarySlider knob (parameter);
        EXPECT_TRUE (std::isfinite (knob.getValueFromText (hugeNumber)));
        EXPECT_TRUE (std::isfinite (knob.getValueFromText ("-" + hugeNumber)));
    }
}

TEST (CrzRotarySlider, ShowsTheWordsOfTheParameter)
{
    CrzParameter frequency (nullptr, Mapper::mappingSafeBassFreq);
    CrzParameter withoutMapper (nullptr, Mapper::mappingNone);

    EXPECT_EQ (CrzRotarySlider (&frequency).getTextFromValue (0.0), "OFF");
    EXPECT_EQ (CrzRotarySlider (&frequency).getTextFromValue (0.5), "255Hz");
    EXPECT_EQ (CrzRotarySlider (&withoutMapper).getTextFromValue (0.126), "0.13");
    EXPECT_EQ (CrzRotarySlider (nullptr).getTextFromValue (std::nan ("")), "0.00");
}

/** A knob as the panel makes it, with a record of what listeners hear and where the pointer is put. */
class WatchedKnob : public CrzRotarySlider, private juce::Slider::Listener
{
public:
    WatchedKnob()
        : CrzRotarySlider (nullptr)
    {
        setRange (0.0, 1.0, static_cast<double> (0.0001f));
        setDoubleClickReturnValue (true, 0.5, juce::ModifierKeys());
        setBounds (100, 200, 60, 60);
        setValue (0.25, juce::dontSendNotification);
        addListener (this);
    }

    ~WatchedKnob() override { removeListener (this); }

    std::string gestures;                       ///< "(" and ")" for the starts and ends of drags
    std::vector<juce::Point<int>> pointerJumps; ///< on the screen

private:
    void movePointerTo (juce::Point<int> screenPosition) override { pointerJumps.push_back (screenPosition); }
    void sliderValueChanged (juce::Slider*) override {}
    void sliderDragStarted (juce::Slider*) override { gestures += "("; }
    void sliderDragEnded (juce::Slider*) override { gestures += ")"; }
};

constexpr juce::Point<float> pressPoint { 30.0f, 30.0f };
constexpr float pixelsForFullRange = 350.0f;
constexpr double step = 1.0e-4; ///< of the range; values snap to it

juce::Point<float> above (float pixels)
{
    return pressPoint.translated (0.0f, -pixels);
}

TEST (CrzRotarySliderMouse, DragsOverTheWholeRangeAndPutsThePointerBack)
{
    WatchedKnob knob;
    synthetic_mouse::Pointer pointer (knob);

    // No key but Shift slows it.
    pointer.press (pressPoint);
    EXPECT_NEAR (knob.getValue(), 0.25, step);
    pointer.drag (above (pixelsForFullRange * 0.1f), juce::ModifierKeys::commandModifier);
    EXPECT_NEAR (knob.getValue(), 0.35, step);
    pointer.drag (above (pixelsForFullRange * 0.2f), juce::ModifierKeys::altModifier);
    EXPECT_NEAR (knob.getValue(), 0.45, step);
    pointer.drag (above (pixelsForFullRange));
    EXPECT_NEAR (knob.getValue(), 1.0, step);
    pointer.drag (above (-pixelsForFullRange * 0.2f));
    EXPECT_NEAR (knob.getValue(), 0.05, step);
    pointer.release (above (-pixelsForFullRange * 0.2f));

    EXPECT_EQ (knob.gestures, "()");
    EXPECT_EQ (knob.pointerJumps, (std::vector<juce::Point<int>> { { 130, 230 } }));
}

TEST (CrzRotarySliderMouse, GoesSlowlyFromTheMomentThatShiftIsDown)
{
    WatchedKnob knob;
    synthetic_mouse::Pointer pointer (knob);

    pointer.press (pressPoint);
    pointer.drag (above (35.0f));
    ASSERT_NEAR (knob.getValue(), 0.35, step);
    pointer.drag (above (45.0f), juce::ModifierKeys::shiftModifier);

    // 10 pixels at once: sensitivity 1, threshold 1, offset 0.01, full speed at 200 pixels.
    const double fineStep = 0.2 * (1.0 - std::cos (juce::MathConstants<double>::pi * (0.01 + 9.0 / 200.0)));
    EXPECT_NEAR (knob.getValue(), 0.35 + fineStep, step);
    EXPECT_TRUE (knob.getVelocityBasedMode());

    pointer.release (above (45.0f), juce::ModifierKeys::shiftModifier);
    EXPECT_FALSE (knob.getVelocityBasedMode());
}

TEST (CrzRotarySliderMouse, TakesTenThousandPixelsForTheRangeWhenShiftIsDownAndTheMouseSlow)
{
    WatchedKnob knob;
    synthetic_mouse::Pointer pointer (knob);

    pointer.press (pressPoint);

    for (int pixel = 1; pixel <= 1000; ++pixel)
        pointer.drag (above (static_cast<float> (pixel)), juce::ModifierKeys::shiftModifier);

    EXPECT_NEAR (knob.getValue(), 0.25 + 1000.0 / 10133.0, step);
}

TEST (CrzRotarySliderMouse, ResetsOnACommandClickAndLeavesThePointer)
{
    WatchedKnob knob;
    synthetic_mouse::Pointer pointer (knob);

    // A drag before it, so that there is something that could go on.
    pointer.press (pressPoint);
    pointer.drag (above (35.0f));
    pointer.release (above (35.0f));
    knob.pointerJumps.clear();
    knob.gestures.clear();

    constexpr auto command = juce::ModifierKeys::commandModifier;
    pointer.press (pressPoint, command);
    EXPECT_NEAR (knob.getValue(), 0.5, step);
    EXPECT_EQ (knob.gestures, "()");

    pointer.drag (above (100.0f), command);
    pointer.drag (above (110.0f), command | juce::ModifierKeys::shiftModifier);
    EXPECT_FALSE (knob.getVelocityBasedMode());
    pointer.drag (above (120.0f));
    pointer.release (above (120.0f));
    EXPECT_NEAR (knob.getValue(), 0.5, step);
    EXPECT_EQ (knob.gestures, "()");
    EXPECT_TRUE (knob.pointerJumps.empty());
}

TEST (CrzRotarySliderMouse, DoesNothingWhileDisabled)
{
    WatchedKnob knob;
    knob.setEnabled (false);
    synthetic_mouse::Pointer pointer (knob);

    for (const int modifiers : { 0, static_cast<int> (juce::ModifierKeys::commandModifier) })
    {
        pointer.press (pressPoint, modifiers);
        pointer.drag (above (100.0f), modifiers);
        pointer.release (above (100.0f), modifiers);
    }

    EXPECT_NEAR (knob.getValue(), 0.25, step);
    EXPECT_EQ (knob.gestures, "");
}

TEST (CrzRotarySliderMouse, EndsItsGestureWhenItIsDisabledInADrag)
{
    WatchedKnob knob;
    synthetic_mouse::Pointer pointer (knob);

    pointer.press (pressPoint);
    pointer.drag (above (35.0f));
    knob.setEnabled (false);
    pointer.drag (above (70.0f));
    pointer.release (above (70.0f));

    EXPECT_NEAR (knob.getValue(), 0.35, step);
    EXPECT_EQ (knob.gestures, "()");
    EXPECT_TRUE (knob.pointerJumps.empty());
}
} // namespace
