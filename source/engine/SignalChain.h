// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The whole effect on one stereo pair: gains, channel stage, mid/side width, pan, mutes and Safe Bass.

#pragma once

#include "ChainSettings.h"
#include "CrzStereoVuVisuals.h"
#include "ImageTracker.h"
#include "SafeBassFilter.h"

/** The peaks that a block showed at the two measuring points. */
struct ChainPeaks
{
    CrzStereoVuVisuals input;  ///< after input gain, swap, flip and mono
    CrzStereoVuVisuals output; ///< as written
};

/** The signal chain, four samples at a time. Each lane does in single precision exactly what the chain does
   for one sample, in the same order, so the result is bit for bit that of a plain loop over the samples:

        L, R  = input gain, then swap, sign flip and mono sum
        mid   = (R + L) * 0.5 * mid factor        side = (R - L) * 0.5 * side factor
        R     = (mid + side) * right factor       L    = (mid - side) * left factor
        mutes and Safe Bass on a second (R + L) * 0.5 and (R - L) * 0.5, then output gain

    Factors of 1.0 stand for steps that are not taken. Samples that are 0.0 in both channels are skipped: not
    written, not metered, not filtered. Used by the audio thread alone. */
class SignalChain
{
public:
    /** [audio] Processes in place; `left` and `right` hold `numSamples` samples each and do not overlap. */
    template <LiveControls Controls>
    ChainPeaks process (const ChainSettings& settings,
                        const Controls& controls,
                        SafeBassFilter& filter,
                        float* left,
                        float* right,
                        int numSamples) noexcept;

private:
    ImageTracker tracker;
};

#include "SignalChainKernel.h"
