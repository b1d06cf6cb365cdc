// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// One bar of a level meter.

#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

/** Draws the latest reading as it came, without decay or hold, on a square root scale. [message] */
class CrzQ7VuMeter : public juce::Component, public juce::SettableTooltipClient
{
public:
    /** `maximumLevel` is the linear level that fills the bar; above 0. */
    explicit CrzQ7VuMeter (float maximumLevel);

    /** Shows a linear level, 0.0 upward. Ignored while the meter is not visible. */
    void setVuLevel (float newLevel);

    void paint (juce::Graphics&) override;
    void resized() override;

private:
    float componentWidth = 0.0f;
    float componentHeight = 0.0f;
    float maximumLevel;
    float level = 0.0f;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (CrzQ7VuMeter)
};
