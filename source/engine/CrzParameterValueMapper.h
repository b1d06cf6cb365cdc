// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Turns normalised parameter values into the texts that the host and the editor show, and back.

#pragma once

#include <juce_core/juce_core.h>

class CrzParameter;

/** The value text of one parameter. It has no state beyond its kind and may be used from any thread that may
    build a juce::String, so not from the audio thread. */
class CrzParameterValueMapper
{
public:
    /** The kinds of text. Numbers are fixed; the effect's own parameters use some of them only. */
    enum CrzMappingENUM : juce::int32
    {
        mappingNone = 0,
        mappingPercent = 1,
        mappingWidthPercent = 2,
        mappingPlain = 3,
        mappingOnOff = 4,
        mappingBypass = 5,
        mappingMute = 6,
        mappingMuteAll = 7,
        mappingMuteMid = 8,
        mappingMuteSide = 9,
        mappingSafeBass = 10,
        mappingSwap = 11,
        mappingPhaseFlip = 12,
        mappingMono = 13,
        mappingChannelSelect = 14,
        mappingPan99 = 15,
        mappingPan100 = 16,
        mappingLevelDb = 17,
        mappingGain12Db = 18,
        mappingGain24Db = 19,
        mappingSafeBassFreq = 20,
        mappingSampleRateFraction = 21,
        mappingPanCurve = 22,
        mappingPanLaw = 23,
        mappingMsMode = 24,
        mappingPanMode = 25,
        mappingPhaseAlign = 26
    };

    /** `parameter` may be null and is not owned; kind 21 reaches the sample rate through it. */
    CrzParameterValueMapper (CrzParameter* parameter, CrzMappingENUM mapping) noexcept;

    /** The text for a normalised value, 0..1. A value that is not finite reads as 0.0 does. */
    juce::String normed2RealValueAsString (float normalisedValue) const;

    /** The normalised value for a typed text. Unreadable text counts as the number 0; kinds that cannot be
        typed give 0.5. Kind 18 may leave 0..1: the caller limits it. */
    float string2normedValueAsFloat (const juce::String& text) const;

    /** A linear level (1.0 = full scale) in dB with `decimals` places and no unit; "-INF" for 0.0 and for
        whatever has no level (negative, not finite). */
    juce::String valueToDBString (float linearValue, int decimals) const;

private:
    juce::String levelDbText (float value) const;
    juce::String sampleRateFractionText (float value) const;

    CrzParameter* parameter;
    CrzMappingENUM mapping;
};
