// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Measures level, bass in the side, correlation and mono compatibility of a stereo signal as it streams by.

#pragma once

#include "ButterworthLowPass.h"
#include "StereoFigures.h"

#include <optional>

/** The figures do not depend on how the signal is cut into blocks. Double precision throughout. */
class StereoMeasurement
{
public:
    /** Corner of the low-pass behind which the side's bass is measured. */
    static constexpr double sideBassCornerHz = 150.0;

    /** Starts anew. `sampleRate` in Hz, above 0. */
    void prepare (double sampleRate);

    /** A frame that holds a sample that is not finite is counted and otherwise passed over. */
    void add (const float* left, const float* right, int numSamples) noexcept;

    StereoFigures result() const;

private:
    /** Sums over all frames. */
    struct Sums
    {
        double leftSquared = 0.0, rightSquared = 0.0, product = 0.0;
        double midSquared = 0.0, sideSquared = 0.0, sideBassSquared = 0.0;
    };

    Sums sums;
    double leftPeak = 0.0, rightPeak = 0.0;
    std::int64_t numFrames = 0, numMeasuredFrames = 0, numNonFiniteSamples = 0;
    std::optional<ButterworthLowPass> sideBassFilter;
};
