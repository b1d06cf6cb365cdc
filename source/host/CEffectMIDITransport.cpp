// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Calls the functions of the host's transport that its version of the interface has.

#include "CEffectMIDITransport.h"

#include "CEffectMIDIWorld.h"

namespace
{
/** The interface versions from which on the host has the reads. */
constexpr std::int32_t versionOfTempo = 2;
constexpr std::int32_t versionOfPositions = 7;

/** Calls one of the interface's functions if its version has it. */
template <typename Function, typename... Arguments>
std::int32_t read (CEffectMIDIWorld& world,
                   std::int32_t minimumVersion,
                   Function SFicTransport::*function,
                   Arguments... arguments)
{
    const auto* const transport = world.GetTransport (minimumVersion);

    if (transport == nullptr || transport->*function == nullptr)
        return ficTransportTooOld;

    return (transport->*function) (transport, arguments...);
}
} // namespace

std::int32_t CEffectMIDITransport::GetCurrentTempo (double* beatsPerMinute) const
{
    return read (*world, versionOfTempo, &SFicTransport::GetCurrentTempo, beatsPerMinute);
}

std::int32_t CEffectMIDITransport::GetCurrentMeter (std::int32_t* numerator, std::int32_t* denominator) const
{
    return read (*world, versionOfTempo, &SFicTransport::GetCurrentMeter, numerator, denominator);
}

std::int32_t CEffectMIDITransport::IsTransportPlaying (unsigned char* playing) const
{
    return read (*world, versionOfTempo, &SFicTransport::IsTransportPlaying, playing);
}

std::int32_t CEffectMIDITransport::GetCurrentTDMSampleLocation (std::int64_t* samples) const
{
    return read (*world, versionOfPositions, &SFicTransport::GetCurrentTDMSampleLocation, samples);
}

std::int32_t CEffectMIDITransport::GetCurrentRTASSampleLocation (std::int64_t* samples) const
{
    return read (*world, versionOfPositions, &SFicTransport::GetCurrentRTASSampleLocation, samples);
}

std::int32_t CEffectMIDITransport::GetCustomTickPosition (std::int64_t* ticks,
                                                          std::int64_t samplePosition) const
{
    return read (*world, versionOfPositions, &SFicTransport::GetCustomTickPosition, ticks, samplePosition);
}
