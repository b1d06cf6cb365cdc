// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// A stereo level meter: two bars and their numbers.

#pragma once

#include "CrzQ7VuMeter.h"
#include <engine/CrzParameterValueMapper.h>
#include <engine/CrzStereoVuVisuals.h>

#include <juce_gui_basics/juce_gui_basics.h>

#include <memory>

/** Shows each reading as it comes. While hidden it ignores readings and keeps its last picture. [message] */
class CrzQ7StereoVuMeterComponent : public juce::Component, public juce::SettableTooltipClient
{
public:
    /** `maximumLevel` is the linear level that fills a bar; above 0. */
    CrzQ7StereoVuMeterComponent (float maximumLevel, juce::Colour backgroundColour);

    void setStereoVuVisuals (CrzStereoVuVisuals reading);

    void paint (juce::Graphics&) override;
    void resized() override;

private:
    /** A number that leaves a gap to the one beside it, where the look and feel would fill the whole label.
     */
    class NumberLabel : public juce::Label
    {
    public:
        explicit NumberLabel (juce::Justification outerSide);
        void paint (juce::Graphics&) override;
    };

    void drawBackground (juce::Graphics&) const;
    void showReading (float peak, CrzQ7VuMeter& meter, juce::Label& label) const;

    float componentWidth = 0.0f;
    float componentHeight = 0.0f;
    std::unique_ptr<CrzQ7VuMeter> leftMeter;
    std::unique_ptr<CrzQ7VuMeter> rightMeter;
    NumberLabel leftLabel { juce::Justification::left };
    NumberLabel rightLabel { juce::Justification::right };
    juce::Colour backgroundColour;
    CrzParameterValueMapper levelText { nullptr, CrzParameterValueMapper::mappingNone };

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (CrzQ7StereoVuMeterComponent)
};
