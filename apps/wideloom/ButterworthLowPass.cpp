// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Two second-order sections with the poles of a fourth-order Butterworth filter.

#include "ButterworthLowPass.h"

#include <cmath>
#include <cstddef>
#include <numbers>

ButterworthLowPass::ButterworthLowPass (double sampleRate, double cornerFrequency)
{
    constexpr double pi = std::numbers::pi;
    constexpr std::array<double, 2> poleAngles { pi / 8.0, 3.0 * pi / 8.0 };
    const double k = std::tan (pi * cornerFrequency / sampleRate);

    for (std::size_t i = 0; i < sections.size(); ++i)
    {
        const double kOverQ = k * 2.0 * std::cos (poleAngles[i]);
        const double norm = 1.0 / (1.0 + kOverQ + k * k);
        sections[i].b0 = k * k * norm;
        sections[i].a1 = 2.0 * (k * k - 1.0) * norm;
        sections[i].a2 = (1.0 - kOverQ + k * k) * norm;
    }
}
