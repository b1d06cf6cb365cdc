// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Writes the figures as JSON.

#include "StereoFigures.h"

#include <cmath>

namespace
{
juce::var toJson (std::optional<double> value)
{
    if (! value)
        return {};

    return std::isinf (*value) ? juce::var ("-inf") : juce::var (*value);
}
} // namespace

juce::var toJson (const StereoFigures& figures)
{
    auto* const object = new juce::DynamicObject();
    juce::var owner (object);

    object->setProperty ("frames", static_cast<juce::int64> (figures.numFrames));
    object->setProperty ("nonFiniteSamples", static_cast<juce::int64> (figures.numNonFiniteSamples));
    object->setProperty ("leftPeakDb", toJson (figures.leftPeakDb));
    object->setProperty ("rightPeakDb", toJson (figures.rightPeakDb));
    object->setProperty ("midRmsDb", toJson (figures.midRmsDb));
    object->setProperty ("sideRmsDb", toJson (figures.sideRmsDb));
    object->setProperty ("sideBassRmsDb", toJson (figures.sideBassRmsDb));
    object->setProperty ("correlation", toJson (figures.correlation));
    object->setProperty ("monoSumLossDb", toJson (figures.monoSumLossDb));
    return owner;
}
