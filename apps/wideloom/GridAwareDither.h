// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Dither for outputs of few bits that leaves alone what needs none.

#pragma once

#include "IntegerSamples.h"

#include <array>
#include <cstdint>

/** Adds triangular noise of two steps from peak to peak before rounding, except to audio that lies on the
    integers' grid already: silence, and what went through unchanged. That is a run of frames, both channels
   on the grid, that is at least `shortestRun` frames long or covers the whole signal; a shorter one may be
   chance.

    The noise is a function of the position alone, so the same input gives the same output however it is cut
    into blocks. */
class GridAwareDither
{
public:
    static constexpr int shortestRun = 1024; ///< frames; also how far it looks ahead

    /** `bits` of the output, up to 16. */
    explicit GridAwareDither (int bits) noexcept;

    /** Takes the next frames and appends to `output` those that are decided. */
    void process (const float* left, const float* right, int numFrames, IntegerBlock& output);

    /** Appends what is still undecided; the signal is over. */
    void finish (IntegerBlock& output);

    std::int64_t getNumClipped() const noexcept { return rounding.getNumClipped(); }

private:
    struct Frame
    {
        float left, right;
    };

    void emit (Frame frame, bool dithered, IntegerBlock& output);
    void emitPending (bool dithered, IntegerBlock& output);

    IntegerRounding rounding;
    std::int64_t numEmitted = 0;
    bool runIsLong = false;

    // The start of a run on the grid, while it is not long enough yet.
    std::array<Frame, shortestRun> pending {};
    std::size_t numPending = 0;
};
