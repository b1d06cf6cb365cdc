// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The high-pass on the side signal that keeps the low end mono.

#pragma once

#include <juce_audio_basics/juce_audio_basics.h>

#include <optional>
#include <span>

/** Coefficients, and what they were made for. */
struct SafeBassCoefficients
{
    juce::IIRCoefficients coefficients;
    double sampleRate = 0.0; ///< Hz; 0.0 until made

    /** [any] A second-order Butterworth high-pass, 12 dB per octave, at 10 Hz plus 490 Hz times
        `normalisedFrequency`. None when that is no frequency between 0 Hz and half the sample rate. */
    static std::optional<SafeBassCoefficients> make (double sampleRate, double normalisedFrequency) noexcept;
};

/** JUCE's second-order filter with a block form of processSingleSampleRaw(): the same arithmetic, including
   the snap of an output up to 1e-8 to 0.0, with the state in registers. Used by the audio thread alone. */
class SafeBassFilter : public juce::IIRFilter
{
public:
    /** [audio] Takes new coefficients and keeps the history. No lock. */
    void adopt (const juce::IIRCoefficients& newCoefficients) noexcept;

    /** [audio] Filters in place.
        @param side  1 channel x samples */
    void process (std::span<float> side) noexcept;

    /** [audio] Filters only the samples whose bit in `selected` is set, bit 0 for the first; the others are
        neither changed nor seen. At most 32 samples. */
    void processSelected (std::span<float> side, juce::uint32 selected) noexcept;

private:
    struct State;
};
