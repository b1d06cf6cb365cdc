// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The inside of SignalChain::process(). Included by SignalChain.h only.

#pragma once

#include "SignalChain.h"

namespace signal_chain
{
inline constexpr int lanes = ImageTracker::lanes;
inline constexpr int chunkSize = 32; ///< samples; the silence mask of a chunk fits one 32-bit word
inline constexpr int allLanesSilent = (1 << lanes) - 1;

using Chunk = std::array<float, static_cast<std::size_t> (chunkSize)>;

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

    /** All bits set in the lanes where both channels are 0.0, of either sign. */
    __m128 silence() const noexcept
    {
        const __m128 zero = _mm_setzero_ps();
        return _mm_and_ps (_mm_cmpeq_ps (left, zero), _mm_cmpeq_ps (right, zero));
    }

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
        peaks.left = _mm_max_ps (_mm_andnot_ps (signMaskOf (true), samples.left), peaks.left);
        peaks.right = _mm_max_ps (_mm_andnot_ps (signMaskOf (true), samples.right), peaks.right);
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

/** One block on its way through the chain, bypass excepted. */
template <LiveControls Controls>
class Block
{
public:
    Block (const ChainSettings& settingsToUse,
           const Controls& controlsToRead,
           ImageTracker& trackerToUse,
           int numSamples) noexcept
        : settings (settingsToUse),
          controls (controlsToRead),
          tracker (trackerToUse),
          lastSample (numSamples - 1),
          splitsMidSide (settings.muteMid || settings.muteSide || settings.safeBassActive),
          phaseFlip (signMaskOf (settings.phaseFlip)),
          midKept (maskOf (! settings.muteMid)),
          sideKept (maskOf (! settings.muteSide)),
          leftFlip (signMaskOf (settings.muteMid && settings.phaseAlignSide))
    {
    }

    /** `count` is a multiple of four, at most chunkSize; `start` is the chunk's place in the block. */
    void processChunk (float* left, float* right, int start, int count) noexcept
    {
        readGains();

        for (int i = 0; i < count; i += lanes)
        {
            const auto in = Pair::load (left + i, right + i);
            const auto silence = in.silence();

            if (_mm_movemask_ps (silence) == allLanesSilent) [[unlikely]]
                continue;

            auto samples = upToPanLaw (in, start + i);

            if (splitsMidSide)
                samples = joined (_mm_and_ps (samples.mid(), midKept), _mm_and_ps (samples.side(), sideKept));

            finish (samples, in, silence, left + i, right + i);
        }
    }

    /** The same with the Safe Bass filter at work: it needs the side signal sample by sample, so the chunk is
        split into what comes before, the filter, and what comes after. */
    void processChunk (SafeBassFilter& filter, float* left, float* right, int start, int count) noexcept
    {
        alignas (16) Chunk mid, side;
        juce::uint32 heard = 0;
        readGains();

        for (int i = 0; i < count; i += lanes)
        {
            const auto in = Pair::load (left + i, right + i);
            const int silentLanes = _mm_movemask_ps (in.silence());

            if (silentLanes == allLanesSilent) [[unlikely]]
                continue;

            const auto samples = upToPanLaw (in, start + i);
            _mm_store_ps (mid.data() + i, _mm_and_ps (samples.mid(), midKept));
            _mm_store_ps (side.data() + i, samples.side());
            heard |= static_cast<juce::uint32> (silentLanes ^ allLanesSilent) << i;
        }

        const auto usedSide = std::span (side).first (static_cast<std::size_t> (count));

        if (heard == everySampleOf (count)) [[likely]]
            filter.process (usedSide);
        else if (heard != 0)
            filter.processSelected (usedSide, heard);

        for (int i = 0; i < count; i += lanes)
        {
            if (((heard >> i) & allLanesSilent) == 0) [[unlikely]]
                continue;

            const auto in = Pair::load (left + i, right + i);
            const auto samples = joined (_mm_load_ps (mid.data() + i), _mm_load_ps (side.data() + i));
            finish (samples, in, in.silence(), left + i, right + i);
        }
    }

    ChainPeaks peaks() const noexcept { return { inputPeaks.result(), outputPeaks.result() }; }

private:
    static constexpr juce::uint32 everySampleOf (int count) noexcept
    {
        return ~juce::uint32 (0) >> (chunkSize - count);
    }

    void readGains() noexcept
    {
        inputGain = _mm_set1_ps (controls.inputGain());
        outputGain = _mm_set1_ps (controls.outputGain());
    }

    /** From input gain to pan law. Muted samples go on as zeros, so that a running filter dies away. */
    Pair upToPanLaw (const Pair& in, int sample) noexcept
    {
        auto samples = in.scaledBy (inputGain);

        if (settings.muteAll)
        {
            inputPeaks.see (samples);
            return { _mm_setzero_ps(), _mm_setzero_ps() };
        }

        const auto factors = tracker.read (controls, sample, lastSample);

        if (settings.swapLR)
            std::swap (samples.left, samples.right);

        samples.left = _mm_xor_ps (samples.left, phaseFlip);
        samples.right = _mm_xor_ps (samples.right, phaseFlip);

        if (settings.mono)
            samples.left = samples.right =
                _mm_mul_ps (_mm_add_ps (samples.left, samples.right), _mm_set1_ps (0.5f));

        inputPeaks.see (samples);
        samples = Pair::fromMidSide (_mm_mul_ps (samples.mid(), factors.mid),
                                     _mm_mul_ps (samples.side(), factors.side));
        return { _mm_mul_ps (samples.left, factors.left), _mm_mul_ps (samples.right, factors.right) };
    }

    /** After mutes and Safe Bass. With mid muted and the side aligned, both channels carry it in one
     * polarity. */
    Pair joined (__m128 mid, __m128 side) const noexcept
    {
        const auto samples = Pair::fromMidSide (mid, side);
        return { _mm_xor_ps (samples.left, leftFlip), samples.right };
    }

    void finish (const Pair& samples, const Pair& in, __m128 silence, float* left, float* right) noexcept
    {
        const auto out = samples.scaledBy (outputGain);
        outputPeaks.see (out);
        out.replacedBy (in, silence).store (left, right);
    }

    const ChainSettings settings;
    const Controls controls;
    ImageTracker& tracker;
    const int lastSample;
    const bool splitsMidSide;
    const __m128 phaseFlip, midKept, sideKept, leftFlip;
    __m128 inputGain {}, outputGain {};
    PeakPair inputPeaks, outputPeaks;
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

template <LiveControls Controls>
ChainPeaks SignalChain::process (const ChainSettings& settings,
                                 const Controls& controls,
                                 SafeBassFilter& filter,
                                 float* left,
                                 float* right,
                                 int numSamples) noexcept
{
    using namespace signal_chain;

    if (settings.bypass)
    {
        const auto peaks = peaksOf (left, right, numSamples);
        return { peaks, peaks };
    }

    tracker.setChoices (settings.image);

    // A local copy, so that the compiler need not expect the audio samples to overwrite it.
    auto localTracker = tracker;
    Block<Controls> block (settings, controls, localTracker, numSamples);
    const bool filterRuns = settings.safeBassActive && ! settings.muteSide;

    const auto processChunk = [&] (float* chunkLeft, float* chunkRight, int start, int count)
    {
        if (filterRuns)
            block.processChunk (filter, chunkLeft, chunkRight, start, count);
        else
            block.processChunk (chunkLeft, chunkRight, start, count);
    };

    const int wholeChunks = numSamples - numSamples % chunkSize;

    for (int start = 0; start < wholeChunks; start += chunkSize)
        processChunk (left + start, right + start, start, chunkSize);

    if (const int rest = numSamples - wholeChunks; rest > 0)
    {
        // Padded with silence, which the chain skips.
        Chunk paddedLeft {}, paddedRight {};
        std::copy_n (left + wholeChunks, rest, paddedLeft.begin());
        std::copy_n (right + wholeChunks, rest, paddedRight.begin());
        processChunk (paddedLeft.data(), paddedRight.data(), wholeChunks, (rest + lanes - 1) / lanes * lanes);
        std::copy_n (paddedLeft.begin(), rest, left + wholeChunks);
        std::copy_n (paddedRight.begin(), rest, right + wholeChunks);
    }

    tracker = localTracker;
    return block.peaks();
}
