// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// A stereo level meter: two bars and their numbers.

#include "CrzQ7StereoVuMeterComponent.h"

#include "CrzQ7Colours.h"

#include <algorithm>
#include <limits>

namespace
{
/** Linear; what lies below, about -120 dB, is shown as silence. */
constexpr float lowestLevelShown = 1.0e-6f;

/** Above this a reading is shown as an over. */
constexpr float fullScale = 1.0f;

constexpr int decibelDecimals = 1;
constexpr float cornerSize = 0.02f; ///< of the height

/** Squeezes "-100.5" into its label rather than cutting it. */
constexpr float narrowestText = 0.4f;

/** Of a number's label; the rest is the gap. Else "-12.3" and "-14.2" would read as one word. */
constexpr float widthUsedByNumber = 0.88f;

/** Fractions of the component. */
struct RelativeBounds
{
    float x, y, width, height;
};

constexpr RelativeBounds leftMeterBounds { 0.15f, 0.05f, 0.2f, 0.83f };
constexpr RelativeBounds rightMeterBounds { 0.65f, 0.05f, 0.2f, 0.83f };
constexpr RelativeBounds leftLabelBounds { 0.15f, 0.9f, 0.35f, 0.1f };
// x is the float just below one half: the right edge then falls on that of the right meter.
constexpr RelativeBounds rightLabelBounds { 0.49999997f, 0.9f, 0.35f, 0.1f };

void place (juce::Component& child, const RelativeBounds& bounds)
{
    child.setBoundsRelative (bounds.x, bounds.y, bounds.width, bounds.height);
}
} // namespace

CrzQ7StereoVuMeterComponent::NumberLabel::NumberLabel (juce::Justification outerSide)
{
    setJustificationType (outerSide);
    setMinimumHorizontalScale (narrowestText);
}

void CrzQ7StereoVuMeterComponent::NumberLabel::paint (juce::Graphics& g)
{
    const bool isAtTheRight = getJustificationType().testFlags (juce::Justification::right);
    const float outerEdge = isAtTheRight ? static_cast<float> (getWidth()) : 0.0f;

    g.addTransform (juce::AffineTransform::scale (widthUsedByNumber, 1.0f, outerEdge, 0.0f));
    juce::Label::paint (g);
}

CrzQ7StereoVuMeterComponent::CrzQ7StereoVuMeterComponent (float maximumLevel, juce::Colour background)
    : leftMeter (std::make_unique<CrzQ7VuMeter> (maximumLevel)),
      rightMeter (std::make_unique<CrzQ7VuMeter> (maximumLevel)),
      backgroundColour (background)
{
    addAndMakeVisible (*leftMeter);
    addAndMakeVisible (*rightMeter);
    addAndMakeVisible (leftLabel);
    addAndMakeVisible (rightLabel);
}

void CrzQ7StereoVuMeterComponent::setStereoVuVisuals (CrzStereoVuVisuals reading)
{
    if (! isVisible())
        return;

    showReading (reading.left, *leftMeter, leftLabel);
    showReading (reading.right, *rightMeter, rightLabel);
}

void CrzQ7StereoVuMeterComponent::showReading (float peak, CrzQ7VuMeter& meter, juce::Label& label) const
{
    // Written so that a NaN counts as silence, too. An endless level has no text; the largest one has.
    const float level = peak >= lowestLevelShown ? std::min (peak, std::numeric_limits<float>::max()) : 0.0f;

    meter.setVuLevel (level);
    label.setText (levelText.valueToDBString (level, decibelDecimals), juce::dontSendNotification);
    label.setColour (juce::Label::textColourId,
                     level > fullScale ? CrzQ7Colours::q7mainColour : juce::Colours::black);
}

void CrzQ7StereoVuMeterComponent::paint (juce::Graphics& g)
{
    drawBackground (g);
}

void CrzQ7StereoVuMeterComponent::drawBackground (juce::Graphics& g) const
{
    g.setColour (backgroundColour);
    g.fillRoundedRectangle (0.0f, 0.0f, componentWidth, componentHeight, cornerSize * componentHeight);
}

void CrzQ7StereoVuMeterComponent::resized()
{
    componentWidth = static_cast<float> (getWidth());
    componentHeight = static_cast<float> (getHeight());

    place (*leftMeter, leftMeterBounds);
    place (*rightMeter, rightMeterBounds);
    place (leftLabel, leftLabelBounds);
    place (rightLabel, rightLabelBounds);
}
