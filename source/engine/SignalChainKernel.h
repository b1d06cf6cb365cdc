// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The inside of SignalChain::process(). Included by SignalChain.h only.

#pragma once

#include "SignalChain.h"
#include "StereoLanes.h"

#include <algorithm>
#include <array>
#include <span>

namespace signal_chain
{
inline constexpr int chunkSize = ImageFactorRun::maxSamples;
static_assert (chunkSize == 32, "the silence mask of a chunk is one 32-bit word");

using Chunk = std::array<float, static_cast<std::size_t> (chunkSize)>;

/** What happens to samples before the mid/side stage. */
enum class Entry
{
    stereo,
    mono,
    muted
};

/** From input gain to pan law. A local of the loop that uses it, so that all of it stays in registers. */
template <Entry entry>
class FirstHalf
{
public:
    FirstHalf (float gain, const ImageFactorRun& factorsToUse, const PeakPair& peaksSoFar) noexcept
        : peaks (peaksSoFar),
          inputGain (_mm_set1_ps (gain)),
          factors (factorsToUse)
    {
    }

    /** @param i  the first sample's place in the chunk */
    Pair operator() (const Pair& in, int i) noexcept
    {
        auto samples = in.scaledBy (inputGain);

        if constexpr (entry == Entry::mono)
            samples.left = samples.right =
                _mm_mul_ps (_mm_add_ps (samples.left, samples.right), _mm_set1_ps (0.5f));

        peaks.see (samples);

        // Muted samples go on as zeros, so that a running filter dies away.
        if constexpr (entry == Entry::muted)
            return { _mm_setzero_ps(), _mm_setzero_ps() };

        samples = Pair::fromMidSide (_mm_mul_ps (samples.mid(), _mm_load_ps (factors.mid.data() + i)),
                                     _mm_mul_ps (samples.side(), _mm_load_ps (factors.side.data() + i)));
        return { _mm_mul_ps (samples.left, _mm_load_ps (factors.left.data() + i)),
                 _mm_mul_ps (samples.right, _mm_load_ps (factors.right.data() + i)) };
    }

    PeakPair peaks;

private:
    const __m128 inputGain;
    const ImageFactorRun& factors;
};

/** Output gain, meter and store. As local as the first half. */
class LastStep
{
public:
    LastStep (float gain, const PeakPair& peaksSoFar) noexcept
        : peaks (peaksSoFar),
          outputGain (_mm_set1_ps (gain))
    {
    }

    /** Leaves the silent ones of the four samples at `left` and `right` alone. */
    void operator() (const Pair& samples, int silentLanes, float* left, float* right) noexcept
    {
        auto out = samples.scaledBy (outputGain);

        if (silentLanes == 0) [[likely]]
        {
            out.store (left, right);
        }
        else
        {
            const auto in = Pair::load (left, right);
            out.replacedBy (in, in.silence()).store (left, right);
        }

        peaks.see (out);
    }

    PeakPair peaks;

private:
    const __m128 outputGain;
};

/** One block on its way through the chain, bypass excepted. */
template <LiveControls Controls>
class Block
{
public:
    Block (const ChainSettings& settingsToUse,
           const Controls& controlsToRead,
           ImageTracker& trackerToUse,
           SafeBassFilter& filterToUse) noexcept
        : settings (settingsToUse),
          controls (controlsToRead),
          tracker (trackerToUse),
          filter (filterToUse)
    {
    }

    /** `start` is the chunk's place in the block. There must be room for a multiple of four samples; those
        past `numSamples` must be silent. */
    void processChunk (float* left, float* right, int start, int numSamples) noexcept
    {
        const int paddedCount = (numSamples + lanes - 1) / lanes * lanes;

        if (settings.muteAll)
            return process<Entry::muted> (left, right, paddedCount);

        tracker.read (controls, start, numSamples);

        if (settings.mono)
            process<Entry::mono> (left, right, paddedCount);
        else
            process<Entry::stereo> (left, right, paddedCount);
    }

    ChainPeaks peaks() const noexcept { return { inputPeaks.result(), outputPeaks.result() }; }

private:
    static constexpr juce::uint32 everySampleOf (int count) noexcept
    {
        return ~juce::uint32 (0) >> (chunkSize - count);
    }

    template <Entry entry>
    void process (float* left, float* right, int count) noexcept
    {
        if (settings.safeBassActive && ! settings.muteSide)
            processFiltered<entry> (left, right, count);
        else if (settings.muteMid || settings.muteSide)
            processUnfiltered<entry, true> (left, right, count);
        else
            processUnfiltered<entry, false> (left, right, count);
    }

    /** Negating both channels is the same as a negative gain. */
    float signedInputGain (Entry entry) const noexcept
    {
        const float gain = controls.inputGain();
        return entry != Entry::muted && settings.phaseFlip ? -gain : gain;
    }

    /** Swapping the channels is the same as reading them from each other's place. */
    struct Source
    {
        Pair load (int i) const noexcept { return Pair::load (left + i, right + i); }

        const float *left, *right;
    };

    Source sourceFor (Entry entry, const float* left, const float* right) const noexcept
    {
        return entry != Entry::muted && settings.swapLR ? Source { right, left } : Source { left, right };
    }

    /** After mutes and Safe Bass. With mid muted and the side aligned, both channels carry it in one
        polarity. */
    static Pair joined (__m128 mid, __m128 side, __m128 leftFlip) noexcept
    {
        const auto samples = Pair::fromMidSide (mid, side);
        return { _mm_xor_ps (samples.left, leftFlip), samples.right };
    }

    __m128 leftFlip() const noexcept { return signMaskOf (settings.muteMid && settings.phaseAlignSide); }

    template <Entry entry, bool splitsMidSide>
    void processUnfiltered (float* left, float* right, int count) noexcept
    {
        const auto source = sourceFor (entry, left, right);
        FirstHalf<entry> firstHalf (signedInputGain (entry), tracker.latest(), inputPeaks);
        LastStep lastStep (controls.outputGain(), outputPeaks);
        const __m128 midKept = maskOf (! settings.muteMid);
        const __m128 sideKept = maskOf (! settings.muteSide);
        const __m128 flip = leftFlip();

        for (int i = 0; i < count; i += lanes)
        {
            const auto in = source.load (i);
            const int silentLanes = _mm_movemask_ps (in.silence());

            if (silentLanes == allLanesSilent) [[unlikely]]
                continue;

            auto samples = firstHalf (in, i);

            if constexpr (splitsMidSide)
                samples =
                    joined (_mm_and_ps (samples.mid(), midKept), _mm_and_ps (samples.side(), sideKept), flip);

            lastStep (samples, silentLanes, left + i, right + i);
        }

        inputPeaks = firstHalf.peaks;
        outputPeaks = lastStep.peaks;
    }

    /** The Safe Bass filter needs the side signal sample by sample, so the chunk is split into what comes
        before, the filter, and what comes after. */
    template <Entry entry>
    void processFiltered (float* left, float* right, int count) noexcept
    {
        alignas (16) Chunk mid, side;
        juce::uint32 heard = 0;
        const auto source = sourceFor (entry, left, right);
        FirstHalf<entry> firstHalf (signedInputGain (entry), tracker.latest(), inputPeaks);
        const __m128 midKept = maskOf (! settings.muteMid);

        for (int i = 0; i < count; i += lanes)
        {
            const auto in = source.load (i);
            const int silentLanes = _mm_movemask_ps (in.silence());

            if (silentLanes == allLanesSilent) [[unlikely]]
                continue;

            const auto samples = firstHalf (in, i);
            _mm_store_ps (mid.data() + i, _mm_and_ps (samples.mid(), midKept));
            _mm_store_ps (side.data() + i, samples.side());
            heard |= static_cast<juce::uint32> (silentLanes ^ allLanesSilent) << i;
        }

        inputPeaks = firstHalf.peaks;

        if (heard == 0)
            return;

        const auto usedSide = std::span (side).first (static_cast<std::size_t> (count));

        if (heard == everySampleOf (count)) [[likely]]
            filter.process (usedSide);
        else
            filter.processSelected (usedSide, heard);

        LastStep lastStep (controls.outputGain(), outputPeaks);
        const __m128 flip = leftFlip();

        for (int i = 0; i < count; i += lanes)
        {
            const int silentLanes = static_cast<int> (~heard >> i) & allLanesSilent;

            if (silentLanes == allLanesSilent) [[unlikely]]
                continue;

            const auto samples = joined (_mm_load_ps (mid.data() + i), _mm_load_ps (side.data() + i), flip);
            lastStep (samples, silentLanes, left + i, right + i);
        }

        outputPeaks = lastStep.peaks;
    }

    const ChainSettings settings;
    const Controls controls;
    ImageTracker& tracker;
    SafeBassFilter& filter;
    PeakPair inputPeaks, outputPeaks;
};
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

    Block<Controls> block (settings, controls, tracker, filter);
    const int wholeChunks = numSamples - numSamples % chunkSize;

    for (int start = 0; start < wholeChunks; start += chunkSize)
        block.processChunk (left + start, right + start, start, chunkSize);

    if (const int rest = numSamples - wholeChunks; rest > 0)
    {
        // Padded with silence, which the chain skips.
        Chunk paddedLeft {}, paddedRight {};
        std::copy_n (left + wholeChunks, rest, paddedLeft.begin());
        std::copy_n (right + wholeChunks, rest, paddedRight.begin());
        block.processChunk (paddedLeft.data(), paddedRight.data(), wholeChunks, rest);
        std::copy_n (paddedLeft.begin(), rest, left + wholeChunks);
        std::copy_n (paddedRight.begin(), rest, right + wholeChunks);
    }

    return block.peaks();
}
