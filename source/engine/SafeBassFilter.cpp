// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Makes the coefficients, and runs the recurrence with its state in registers.

#include "SafeBassFilter.h"

#include <cmath>

namespace
{
constexpr double lowestHz = 10.0;
constexpr double rangeHz = 490.0;
constexpr float largestSnappedOutput = 1.0e-8f;
} // namespace

std::optional<SafeBassCoefficients> SafeBassCoefficients::make (double sampleRate,
                                                                double normalisedFrequency) noexcept
{
    const double frequency = normalisedFrequency * rangeHz + lowestHz;

    if (! (frequency > 0.0 && frequency <= sampleRate * 0.5))
        return {};

    return SafeBassCoefficients { juce::IIRCoefficients::makeHighPass (sampleRate, frequency), sampleRate };
}

/** The filter's coefficients and history in local variables, so that they stay in registers. */
struct SafeBassFilter::State
{
    explicit State (const SafeBassFilter& filter) noexcept
        : b0 (filter.coefficients.coefficients[0]),
          b1 (filter.coefficients.coefficients[1]),
          b2 (filter.coefficients.coefficients[2]),
          a1 (filter.coefficients.coefficients[3]),
          a2 (filter.coefficients.coefficients[4]),
          v1 (filter.v1),
          v2 (filter.v2)
    {
    }

    void storeIn (SafeBassFilter& filter) const noexcept
    {
        filter.v1 = v1;
        filter.v2 = v2;
    }

    float next (float in) noexcept
    {
        float out = b0 * in + v1;

        // One comparison that also catches NaN: the branch is then almost never taken on real signals.
        if (! (std::abs (out) > largestSnappedOutput))
            out = 0.0f;

        v1 = b1 * in - a1 * out + v2;
        v2 = b2 * in - a2 * out;
        return out;
    }

    const float b0, b1, b2, a1, a2;
    float v1, v2;
};

void SafeBassFilter::adopt (const juce::IIRCoefficients& newCoefficients) noexcept
{
    coefficients = newCoefficients;
    active = true;
}

void SafeBassFilter::process (std::span<float> side) noexcept
{
    State state (*this);

    for (auto& sample : side)
        sample = state.next (sample);

    state.storeIn (*this);
}

void SafeBassFilter::processSelected (std::span<float> side, juce::uint32 selected) noexcept
{
    State state (*this);

    for (auto& sample : side)
    {
        if ((selected & 1u) != 0)
            sample = state.next (sample);

        selected >>= 1;
    }

    state.storeIn (*this);
}
