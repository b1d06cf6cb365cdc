// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// How normalised parameter values lie on the host's control scale.

#pragma once

#include "ControlScale.h"

#include <juce_core/juce_core.h>

#include <cstdint>

inline constexpr double controlScaleSteps = 4294967295.0;

/** [any] 0..1 onto the whole scale, to the nearest step, ties to even. Values outside lie at its ends, and
   what is no number at the bottom. */
inline std::int32_t longFromParameter (float normalised) noexcept
{
    const double position = normalised * controlScaleSteps + longControlBottom;

    if (! (position > longControlBottom))
        return longControlBottom;

    if (position > longControlTop)
        return longControlTop;

    return juce::roundToInt (position);
}

/** [any] The whole scale onto 0..1. */
inline float parameterFromLong (std::int32_t control) noexcept
{
    return static_cast<float> ((static_cast<double> (control) - longControlBottom) / controlScaleSteps);
}
