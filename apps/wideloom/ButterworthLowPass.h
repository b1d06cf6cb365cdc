// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// A measuring filter: fourth-order Butterworth low-pass in double precision.

#pragma once

#include <array>

/** Two second-order sections in a row, each the bilinear transform of an analogue one, prewarped so that the
    corner stays where it is asked for. Coefficients: U. Zoelzer (ed.), "DAFX: Digital Audio Effects", 2nd
    edition, Wiley 2011, section 2.2.1 (second-order low-pass with K = tan (pi fc / fs)); the quality of each
    section is that of a pole pair of the fourth-order Butterworth circle, 1 / (2 cos (pi / 8)) and
    1 / (2 cos (3 pi / 8)). */
class ButterworthLowPass
{
public:
    /** Both in Hz; the corner lies below half the sample rate. Clears the history. */
    ButterworthLowPass (double sampleRate, double cornerFrequency);

    double process (double input) noexcept
    {
        for (auto& section : sections)
            input = section.process (input);

        return input;
    }

private:
    /** Transposed direct form II. The numerator is b0 (1 + z^-1)^2. */
    struct Section
    {
        double b0 = 0.0, a1 = 0.0, a2 = 0.0;
        double state1 = 0.0, state2 = 0.0;

        double process (double input) noexcept
        {
            const double scaled = b0 * input;
            const double output = scaled + state1;
            state1 = 2.0 * scaled - a1 * output + state2;
            state2 = scaled - a2 * output;
            return output;
        }
    };

    std::array<Section, 2> sections;
};
