// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the measurement of a stereo signal says.

#pragma once

#include <juce_core/juce_core.h>

#include <cstdint>
#include <optional>

/** Levels are in dBFS: 0 dB is the value 1.0, for RMS too, so a full-scale sine has an RMS of -3.01 dBFS.
    The level of nothing at all is minus infinity. A figure that has no value is empty. */
struct StereoFigures
{
    std::int64_t numFrames = 0;           ///< all frames, those that were left out included
    std::int64_t numNonFiniteSamples = 0; ///< their frames are left out of every other figure
    double leftPeakDb = 0.0;
    double rightPeakDb = 0.0;
    double midRmsDb = 0.0;  ///< of (L + R) / 2
    double sideRmsDb = 0.0; ///< of (L - R) / 2
    std::optional<double>
        sideBassRmsDb; ///< of the side below 150 Hz; empty where the sample rate has no such band
    std::optional<double> correlation;   ///< -1..1; empty when a channel is silent
    std::optional<double> monoSumLossDb; ///< what is left of the energy in the mono sum; empty for silence
};

/** An object with one member for each figure. A figure without a value is null, and minus infinity, for which
    JSON has no number, is the text "-inf". */
juce::var toJson (const StereoFigures& figures);
