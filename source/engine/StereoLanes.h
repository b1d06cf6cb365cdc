// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Four stereo samples at a time: what the signal chain's inside is made of.

#pragma once

#include "CrzStereoVuVisuals.h"

#include <emmintrin.h>

#include <limits>

namespace signal_chain
{
inline constexpr int lanes = 4;
inline constexpr int allLanesSilent = (1 << lanes) - 1;

/** Four samples of both channels. */
struct Pair
{
    __m128 left, right;

    static Pair load (const float* left, const float* right) noexcept
    {
        return { _mm_loadu_ps (left), _mm_loadu_ps (right) };
    }

    void store (float* leftDestination, float* rightDestination) const noexcept
    {
        _mm_storeu_ps (leftDestination, left);
        _mm_storeu_ps (rightDestination, right);
    }

    Pair scaledBy (__m128 gain) const noexcept
    {
        return { _mm_mul_ps (left, gain), _mm_mul_ps (right, gain) };
    }

    /** (R + L) * 0.5 */
    __m128 mid() const noexcept { return _mm_mul_ps (_mm_add_ps (right, left), _mm_set1_ps (0.5f)); }

    /** (R - L) * 0.5: right minus left. */
    __m128 side() const noexcept { return _mm_mul_ps (_mm_sub_ps (right, left), _mm_set1_ps (0.5f)); }

    /** R = mid + side, L = mid - side */
    static Pair fromMidSide (__m128 mid, __m128 side) noexcept
    {
        return { _mm_sub_ps (mid, side), _mm_add_ps (mid, side) };
    }

    /** All bits set in the lanes where both channels are 0.0, of either sign: only then is what their bits
        have together a zero. */
    __m128 silence() const noexcept { return _mm_cmpeq_ps (_mm_or_ps (left, right), _mm_setzero_ps()); }

    /** `other` in the lanes whose mask bits are set, this elsewhere. */
    Pair replacedBy (const Pair& other, __m128 mask) const noexcept
    {
        return { _mm_or_ps (_mm_and_ps (mask, other.left), _mm_andnot_ps (mask, left)),
                 _mm_or_ps (_mm_and_ps (mask, other.right), _mm_andnot_ps (mask, right)) };
    }
};

inline __m128 maskOf (bool allBits) noexcept
{
    return _mm_castsi128_ps (_mm_set1_epi32 (allBits ? -1 : 0));
}

inline __m128 signMaskOf (bool flips) noexcept
{
    return _mm_set1_ps (flips ? -0.0f : 0.0f);
}

/** Sample peaks of both channels. A NaN sample leaves them as they are: _mm_max_ps gives its second operand.
 */
class PeakPair
{
public:
    void see (const Pair& samples) noexcept
    {
        const __m128 magnitude = _mm_castsi128_ps (_mm_set1_epi32 (std::numeric_limits<int>::max()));
        peaks.left = _mm_max_ps (_mm_and_ps (magnitude, samples.left), peaks.left);
        peaks.right = _mm_max_ps (_mm_and_ps (magnitude, samples.right), peaks.right);
    }

    CrzStereoVuVisuals result() const noexcept { return { highest (peaks.left), highest (peaks.right) }; }

private:
    static float highest (__m128 values) noexcept
    {
        values = _mm_max_ps (values, _mm_movehl_ps (values, values));
        return _mm_cvtss_f32 (_mm_max_ss (values, _mm_shuffle_ps (values, values, 1)));
    }

    Pair peaks { _mm_setzero_ps(), _mm_setzero_ps() };
};

/** The peaks of samples that pass through untouched. */
inline CrzStereoVuVisuals peaksOf (const float* left, const float* right, int numSamples) noexcept
{
    PeakPair peaks;
    int i = 0;

    for (; i + lanes <= numSamples; i += lanes)
        peaks.see (Pair::load (left + i, right + i));

    for (; i < numSamples; ++i)
        peaks.see ({ _mm_set_ss (left[i]), _mm_set_ss (right[i]) });

    return peaks.result();
}
} // namespace signal_chain
