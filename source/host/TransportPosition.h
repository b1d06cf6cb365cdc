// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The host's transport as a processor asks for it.

#pragma once

#include "CEffectMIDITransport.h"

#include <juce_audio_basics/juce_audio_basics.h>

#include <cstdint>

/** Where a host's time code starts and how fast it counts. */
struct TimeCode
{
    signed char frameRateCode; ///< as in SFicTimeCodeInfo
    std::int32_t frameOffset;  ///< frames
};

/** [audio] Every field is set; what the host does not tell is that of a stopped transport at the start of a
   song of 120 beats a minute in 4/4. `transport` may be null. `sampleRate` in Hz, above 0. */
juce::AudioPlayHead::PositionInfo positionFrom (const CEffectMIDITransport* transport,
                                                double sampleRate,
                                                TimeCode timeCode);
