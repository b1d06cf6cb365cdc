// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Hands on the panel's controls, and an ear at what the host is told.

#pragma once

#include "EditorUnderTest.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

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

inline float valueOf (EditorUnderTest& test, ParameterId id)
{
    return test.processor.getParameter (indexOf (id));
}

inline bool isOn (EditorUnderTest& test, const juce::String& id)
{
    return test.control<juce::Button> (id).getToggleState();
}

/** A click as JUCE carries it out, without the message loop in between. */
inline void click (EditorUnderTest& test, const juce::String& id)
{
    auto& button = test.control<juce::Button> (id);

    if (button.getClickingTogglesState())
        button.setToggleState (button.getRadioGroupId() != 0 || ! button.getToggleState(),
                               juce::sendNotificationSync);
    else
        test.panel().buttonClicked (&button);
}

/** One undo step brings the parameter back, and no second one was made. */
inline void expectOneUndoStepTo (EditorUnderTest& test, ParameterId id, float before)
{
    ASSERT_TRUE (test.processor.canUndo());
    test.processor.undoLastParameterChange();
    EXPECT_EQ (valueOf (test, id), before);
    EXPECT_FALSE (test.processor.canUndo());
    test.panel().updateAll();
}
