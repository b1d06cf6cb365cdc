// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Follows StereoWidth and Pan from sample to sample and keeps the factors that they stand for.

#pragma once

#include "ImageFactors.h"
#include "RealTime.h"

#include <emmintrin.h>

#include <algorithm>
#include <array>
#include <bit>
#include <concepts>
#include <cstdint>

/** What the chain reads while a block runs: StereoWidth and Pan (normalised) for each sample, by its index in
   the block, and the two linear gains, which may change at any time. [audio] */
template <typename Type>
concept LiveControls = requires (const Type& controls, int sample)
{
    {
        controls.stereoWidth (sample)
    }
    noexcept->std::same_as<float>;
    {
        controls.pan (sample)
    }
    noexcept->std::same_as<float>;
    {
        controls.inputGain()
    }
    noexcept->std::same_as<float>;
    {
        controls.outputGain()
    }
    noexcept->std::same_as<float>;
};

/** ImageFactors for four samples. */
struct ImageFactorLanes
{
    __m128 mid, side, left, right;

    static ImageFactorLanes allOf (const ImageFactors& factors) noexcept
    {
        return { _mm_set1_ps (factors.mid),
                 _mm_set1_ps (factors.side),
                 _mm_set1_ps (factors.left),
                 _mm_set1_ps (factors.right) };
    }
};

/** Reads the two controls once for each sample, and works the factors out only when one of them has changed
   since the sample before. Used by the audio thread alone. */
class ImageTracker
{
public:
    static constexpr int lanes = 4;

    /** [audio] At the start of a block. */
    void setChoices (const ImageChoices& newChoices) noexcept
    {
        if (newChoices != choices)
        {
            choices = newChoices;
            workOutFactors();
        }
    }

    /** [audio] The factors for the four samples from `first` on. Lanes past `last`, the block's last sample,
       take that sample's factors. */
    template <LiveControls Controls>
    ImageFactorLanes read (const Controls& controls, int first, int last) noexcept
    {
        std::array<float, lanes> widths, pans;
        bool steady = true;

        for (int lane = 0; lane < lanes; ++lane)
        {
            const auto i = static_cast<std::size_t> (lane);
            const int sample = std::min (first + lane, last);
            widths[i] = controls.stereoWidth (sample);
            pans[i] = controls.pan (sample);
            steady &= isCurrent (widths[i], pans[i]);
        }

        return steady ? current : follow (widths, pans);
    }

private:
    /** Whether these are the very bits that `factors` stand for: a zero's sign reaches the side signal. */
    bool isCurrent (float newWidth, float newPan) const noexcept
    {
        using Bits = std::uint32_t;
        return ((std::bit_cast<Bits> (newWidth) ^ std::bit_cast<Bits> (width))
                | (std::bit_cast<Bits> (newPan) ^ std::bit_cast<Bits> (pan)))
               == 0;
    }

    void workOutFactors() noexcept;

    [[gnu::noinline]] ImageFactorLanes follow (const std::array<float, lanes>& widths,
                                               const std::array<float, lanes>& pans) noexcept;

    // Neutral, as the factors of a new ImageFactors are.
    ImageChoices choices;
    float width = 0.5f;
    float pan = 0.5f;
    ImageFactors factors;
    ImageFactorLanes current = ImageFactorLanes::allOf (factors);
};
