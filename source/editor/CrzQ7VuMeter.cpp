// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// One bar of a level meter.

#include "CrzQ7VuMeter.h"

#include "CrzQ7Colours.h"

#include <cmath>

namespace
{
/** A bar beyond the top edge is cut there; ending it at twice the height keeps coordinates finite. */
constexpr double longestBar = 2.0;
} // namespace

CrzQ7VuMeter::CrzQ7VuMeter (float levelThatFillsTheBar)
    : maximumLevel (levelThatFillsTheBar)
{
    jassert (maximumLevel > 0.0f);

    // Each reading repaints the bar alone, not the panel beneath it.
    setOpaque (true);
}

void CrzQ7VuMeter::setVuLevel (float newLevel)
{
    if (! isVisible() || newLevel == level)
        return;

    level = newLevel;
    repaint();
}

void CrzQ7VuMeter::paint (juce::Graphics& g)
{
    if (! isVisible())
        return;

    g.fillAll (juce::Colours::black);

    const double proportion = std::sqrt (juce::jmax (0.0, static_cast<double> (level))) / maximumLevel;
    const auto barHeight = static_cast<float> (juce::jmin (longestBar, proportion) * componentHeight);
    const float centreX = componentWidth / 2.0f;

    juce::Path bar;
    bar.addLineSegment ({ centreX, componentHeight, centreX, componentHeight - barHeight }, componentWidth);
    g.setColour (level > 1.0f ? CrzQ7Colours::q7mainColour : CrzQ7Colours::q7complementColourA);
    g.fillPath (bar);
}

void CrzQ7VuMeter::resized()
{
    componentWidth = static_cast<float> (getWidth());
    componentHeight = static_cast<float> (getHeight());
}
