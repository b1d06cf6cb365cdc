// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The factors that a position of StereoWidth and Pan stands for.

#pragma once

#include "ChainSettings.h"

/** Factors for one sample. In this order: mid *= mid, side *= side, then left and right of their sum and
    difference *= left, right. */
struct ImageFactors
{
    float mid = 1.0f;
    float side = 1.0f;
    float left = 1.0f;
    float right = 1.0f;
};

/** [audio] Takes StereoWidth and Pan as normalised values, 0..1; one half is neutral for both. */
ImageFactors imageFactorsFor (float stereoWidth, float pan, const ImageChoices& choices) noexcept;
