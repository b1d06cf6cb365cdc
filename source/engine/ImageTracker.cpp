// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Takes over new positions, and writes the factors of a run of samples in which something moves.

#include "ImageTracker.h"

#include <algorithm>

void ImageTracker::setChoices (const ImageChoices& newChoices) noexcept
{
    if (newChoices == choices)
        return;

    choices = newChoices;
    moveTo (width, pan);
    fillFrom (0);
}

void ImageTracker::moveTo (float newWidth, float newPan) noexcept
{
    width = newWidth;
    pan = newPan;
    factors = imageFactorsFor (width, pan, choices);
}

void ImageTracker::fillFrom (int index) noexcept
{
    std::fill (run.mid.begin() + index, run.mid.end(), factors.mid);
    std::fill (run.side.begin() + index, run.side.end(), factors.side);
    std::fill (run.left.begin() + index, run.left.end(), factors.left);
    std::fill (run.right.begin() + index, run.right.end(), factors.right);
    isSteady = index == 0;
}
