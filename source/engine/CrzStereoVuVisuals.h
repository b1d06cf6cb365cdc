// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Peak levels of a stereo pair: the record that travels to the meters, and the pair that the audio thread
// raises.

#pragma once

#include "RealTime.h"

/** Peaks since the last look: linear, 0.0 upward, not limited to 1.0. */
struct CrzStereoVuVisuals
{
    float left = 0.0f;
    float right = 0.0f;

    void reset() noexcept { *this = {}; }
};

/** A pair of peaks shared by the audio thread, which raises it, and the message thread, which takes it away.
    A reset that falls into a raise may show an older value once more; it is only seen, never heard. */
class SharedStereoPeaks
{
public:
    /** [audio] A NaN never raises a peak. */
    void raise (const CrzStereoVuVisuals& peaks) noexcept
    {
        raise (left, peaks.left);
        raise (right, peaks.right);
    }

    /** [any] Gives the peaks and sets them back to 0.0. */
    CrzStereoVuVisuals take() noexcept
    {
        return { left.exchange (0.0f, std::memory_order_relaxed),
                 right.exchange (0.0f, std::memory_order_relaxed) };
    }

private:
    static void raise (std::atomic<float>& peak, float candidate) noexcept
    {
        if (candidate > peak.load (std::memory_order_relaxed))
            peak.store (candidate, std::memory_order_relaxed);
    }

    std::atomic<float> left { 0.0f };
    std::atomic<float> right { 0.0f };
};
