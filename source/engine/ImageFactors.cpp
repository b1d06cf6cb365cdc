// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Width, pan curve, pan law and pan mode, worked out as factors.

#include "ImageFactors.h"

#include <cmath>

namespace
{
/** The factor for the channel away from the pan. Sin/cos runs over a quarter of pi, so it steps by 3 dB
   beside the exact centre. */
float farGain (float distanceFromEnd, PanCurve curve) noexcept
{
    constexpr float pi = 3.1415927f;

    switch (curve)
    {
        case PanCurve::linear:
            return distanceFromEnd;
        case PanCurve::logarithmic:
            return std::sqrt (distanceFromEnd);
        case PanCurve::sinCos:
            break;
    }

    return std::sin (distanceFromEnd * pi * 0.25f);
}

/** The factor for the channel towards the pan: the law raises it and never lowers the other. */
float nearGain (float distanceFromCentre, PanLaw law) noexcept
{
    switch (law)
    {
        case PanLaw::minus3dB:
            return static_cast<float> (static_cast<double> (distanceFromCentre) * 0.5 + 1.0);
        case PanLaw::minus6dB:
            return distanceFromCentre + 1.0f;
        case PanLaw::minus0dB:
            break;
    }

    return 1.0f;
}

/** What keeps the level steady while the width changes: 1.5 at mono, 1.0 at neutral, 0.5 at twice the width.
 */
float boundMidGain (float width) noexcept
{
    if (width > 1.0f)
        return 1.0f / width;

    return width < 1.0f ? 1.5f - 0.5f * width : 1.0f;
}
} // namespace

ImageFactors imageFactorsFor (float stereoWidth, float pan, const ImageChoices& choices) noexcept
{
    const float position = pan * 2.0f - 1.0f;
    const float distance = std::abs (position);
    float width = stereoWidth * 2.0f;

    if (choices.dualPan)
        width = static_cast<float> (static_cast<double> (width) * (1.0 - static_cast<double> (distance)));

    ImageFactors factors;
    factors.side = width;

    if (choices.bindLevels)
        factors.mid = boundMidGain (width);

    if (position < 0.0f)
    {
        factors.right = farGain (1.0f - distance, choices.panCurve);
        factors.left = nearGain (distance, choices.panLaw);
    }
    else if (position > 0.0f)
    {
        factors.left = farGain (1.0f - distance, choices.panCurve);
        factors.right = nearGain (distance, choices.panLaw);
    }

    return factors;
}
