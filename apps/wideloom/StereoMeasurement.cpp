// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Sums up squares and products in double precision, frame by frame.

#include "StereoMeasurement.h"

#include <algorithm>
#include <cmath>

namespace
{
double amplitudeToDb (double amplitude)
{
    return 20.0 * std::log10 (amplitude);
}

double powerToDb (double power)
{
    return 10.0 * std::log10 (power);
}
} // namespace

void StereoMeasurement::prepare (double sampleRate)
{
    *this = {};

    if (sampleRate > 2.0 * sideBassCornerHz)
        sideBassFilter.emplace (sampleRate, sideBassCornerHz);
}

void StereoMeasurement::add (const float* left, const float* right, int numSamples) noexcept
{
    numFrames += std::max (0, numSamples);

    for (int i = 0; i < numSamples; ++i)
    {
        const bool leftIsFinite = std::isfinite (left[i]);
        const bool rightIsFinite = std::isfinite (right[i]);

        if (! leftIsFinite || ! rightIsFinite)
        {
            numNonFiniteSamples += (leftIsFinite ? 0 : 1) + (rightIsFinite ? 0 : 1);
            continue;
        }

        const double l = left[i];
        const double r = right[i];
        const double mid = 0.5 * (l + r);
        const double side = 0.5 * (l - r);

        ++numMeasuredFrames;
        leftPeak = std::max (leftPeak, std::abs (l));
        rightPeak = std::max (rightPeak, std::abs (r));
        sums.leftSquared += l * l;
        sums.rightSquared += r * r;
        sums.product += l * r;
        sums.midSquared += mid * mid;
        sums.sideSquared += side * side;

        if (sideBassFilter)
        {
            const double sideBass = sideBassFilter->process (side);
            sums.sideBassSquared += sideBass * sideBass;
        }
    }
}

StereoFigures StereoMeasurement::result() const
{
    // An empty signal is silence: its means are 0, not 0 / 0.
    const auto count = static_cast<double> (std::max<std::int64_t> (1, numMeasuredFrames));
    const double energy = sums.leftSquared + sums.rightSquared;
    const double correlationScale = std::sqrt (sums.leftSquared * sums.rightSquared);

    StereoFigures figures;
    figures.numFrames = numFrames;
    figures.numNonFiniteSamples = numNonFiniteSamples;
    figures.leftPeakDb = amplitudeToDb (leftPeak);
    figures.rightPeakDb = amplitudeToDb (rightPeak);
    figures.midRmsDb = powerToDb (sums.midSquared / count);
    figures.sideRmsDb = powerToDb (sums.sideSquared / count);

    if (sideBassFilter)
        figures.sideBassRmsDb = powerToDb (sums.sideBassSquared / count);

    // Rounding can carry the quotient past 1 by a few units in the last place.
    if (correlationScale > 0.0)
        figures.correlation = std::clamp (sums.product / correlationScale, -1.0, 1.0);

    if (energy > 0.0)
        figures.monoSumLossDb = powerToDb (2.0 * sums.midSquared / energy);

    return figures;
}
