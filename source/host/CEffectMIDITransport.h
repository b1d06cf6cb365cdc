// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Reads the host's transport.

#pragma once

#include <cstdint>

class CEffectMIDIWorld;

/** Each read returns 0, or ficTransportTooOld if the host's interface lacks it, or the host's own refusal.
   Only a read that returns 0 has told anything: what a host writes when it refuses does not count. */
class CEffectMIDITransport
{
public:
    /** The world must outlive this object. */
    explicit CEffectMIDITransport (CEffectMIDIWorld& worldToRead) noexcept
        : world (&worldToRead)
    {
    }

    // All of these: [any], without waiting on this side.
    std::int32_t GetCurrentTempo (double* beatsPerMinute) const;
    std::int32_t GetCurrentMeter (std::int32_t* numerator, std::int32_t* denominator) const;
    std::int32_t IsTransportPlaying (unsigned char* playing) const;
    std::int32_t GetCurrentTDMSampleLocation (std::int64_t* samples) const;
    std::int32_t GetCurrentRTASSampleLocation (std::int64_t* samples) const;
    std::int32_t GetCustomTickPosition (std::int64_t* ticks, std::int64_t samplePosition) const;

private:
    CEffectMIDIWorld* world;
};
