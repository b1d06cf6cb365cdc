// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Follows StereoWidth and Pan from sample to sample and keeps the factors that they stand for.

#pragma once

#include "ImageFactors.h"
#include "RealTime.h"

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

/** ImageFactors for a run of samples, as the chain multiplies with them. */
struct ImageFactorRun
{
    static constexpr int maxSamples = 32;
    using Factors = std::array<float, static_cast<std::size_t> (maxSamples)>;

    alignas (16) Factors mid, side, left, right;
};

/** Reads the two controls once for each sample, and works the factors out only when one of them has changed
   since the sample before. Used by the audio thread alone. */
class ImageTracker
{
public:
    ImageTracker() noexcept { fillFrom (0); }

    /** [audio] At the start of a block. */
    void setChoices (const ImageChoices& newChoices) noexcept;

    /** [audio] Makes latest() the factors for `numSamples` samples from `first` on, at most
        ImageFactorRun::maxSamples. */
    template <LiveControls Controls>
    void read (const Controls& controls, int first, int numSamples) noexcept
    {
        const auto currentWidth = std::bit_cast<Bits> (width);
        const auto currentPan = std::bit_cast<Bits> (pan);

        // A branch for each value read is cheaper than gathering their differences: hardly one is ever taken.
#pragma GCC unroll 8
        for (int i = 0; i < numSamples; ++i)
        {
            if (std::bit_cast<Bits> (controls.stereoWidth (first + i)) != currentWidth) [[unlikely]]
                return follow (controls, first, i, numSamples);

            if (std::bit_cast<Bits> (controls.pan (first + i)) != currentPan) [[unlikely]]
                return follow (controls, first, i, numSamples);
        }

        if (! isSteady) [[unlikely]]
            fillFrom (0);
    }

    /** [audio] What stands behind the samples read is some factors or other. */
    const ImageFactorRun& latest() const noexcept
    {
        return run;
    }

private:
    using Bits = std::uint32_t;

    /** Reads on from the sample where something has moved, and that sample again: what a later look finds is
        as good. */
    template <LiveControls Controls>
    [[gnu::noinline, gnu::cold]] void follow (const Controls& controls,
                                              int first,
                                              int moved,
                                              int numSamples) noexcept
    {
        fillFrom (0);

        for (int i = moved; i < numSamples; ++i)
        {
            const float newWidth = controls.stereoWidth (first + i);
            const float newPan = controls.pan (first + i);

            if (! isCurrent (newWidth, newPan))
            {
                moveTo (newWidth, newPan);
                fillFrom (i);
            }
        }
    }

    /** Whether these are the very bits that `factors` stand for: a zero's sign reaches the side signal. */
    bool isCurrent (float newWidth, float newPan) const noexcept
    {
        return std::bit_cast<Bits> (newWidth) == std::bit_cast<Bits> (width)
               && std::bit_cast<Bits> (newPan) == std::bit_cast<Bits> (pan);
    }

    void moveTo (float newWidth, float newPan) noexcept;

    /** Gives the samples from `index` on the factors of the present position. */
    void fillFrom (int index) noexcept;

    // Neutral, as the factors of a new ImageFactors are.
    ImageChoices choices;
    float width = 0.5f;
    float pan = 0.5f;
    ImageFactors factors;

    ImageFactorRun run;
    bool isSteady = false; ///< all of the run has the factors of the present position
};
