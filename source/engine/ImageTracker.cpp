// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ImageTracker.h"

ImageFactorLanes ImageTracker::follow (const std::array<float, lanes>& widths,
                                       const std::array<float, lanes>& pans) noexcept
{
    std::array<float, lanes> mid, side, left, right;

    for (std::size_t lane = 0; lane < lanes; ++lane)
    {
        if (! isCurrent (widths[lane], pans[lane]))
        {
            width = widths[lane];
            pan = pans[lane];
            workOutFactors();
        }

        mid[lane] = factors.mid;
        side[lane] = factors.side;
        left[lane] = factors.left;
        right[lane] = factors.right;
    }

    return { _mm_loadu_ps (mid.data()),
             _mm_loadu_ps (side.data()),
             _mm_loadu_ps (left.data()),
             _mm_loadu_ps (right.data()) };
}

void ImageTracker::workOutFactors() noexcept
{
    factors = imageFactorsFor (width, pan, choices);
    current = ImageFactorLanes::allOf (factors);
}
