// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Gives each client a table with those reads that the host's version has.

#include "HostTransport.h"

#include <algorithm>

namespace refhost
{
namespace
{
constexpr std::int32_t versionNotOffered = -60;
constexpr std::int32_t firstVersionWithTempo = 2;
constexpr std::int32_t firstVersionWithPosition = 7;
} // namespace

struct HostTransport::Client
{
    SFicTransport functions {}; // first: the interface is the client
    HostTransport& owner;

    static HostTransport& ownerOf (const SFicTransport* self)
    {
        return reinterpret_cast<const Client*> (self)->owner;
    }

    /** Stores a value unless this read is to fail. */
    template <typename Value, typename Stored>
    static std::int32_t read (const SFicTransport* self, HostPoint point, Value* target, const Stored& stored)
    {
        if (const auto fault = ownerOf (self).faults.next (point))
            return fault;

        *target = static_cast<Value> (stored);
        return ficSuccess;
    }

    explicit Client (HostTransport& ownerToUse)
        : owner (ownerToUse)
    {
        if (owner.version >= firstVersionWithTempo)
            addTempo();

        if (owner.version >= firstVersionWithPosition)
            addPosition();
    }

    void addTempo()
    {
        functions.GetCurrentTempo = [] (const SFicTransport* self, double* tempo)
        { return read (self, HostPoint::GetCurrentTempo, tempo, ownerOf (self).position.beatsPerMinute); };
        functions.GetCurrentMeter =
            [] (const SFicTransport* self, std::int32_t* numerator, std::int32_t* denominator)
        {
            const auto& position = ownerOf (self).position;
            const auto fault = read (self, HostPoint::GetCurrentMeter, numerator, position.numerator);

            if (fault == ficSuccess)
                *denominator = position.denominator;

            return fault;
        };
        functions.IsTransportPlaying = [] (const SFicTransport* self, unsigned char* playing)
        { return read (self, HostPoint::IsTransportPlaying, playing, ownerOf (self).position.isPlaying); };
    }

    void addPosition()
    {
        functions.GetCurrentTDMSampleLocation = [] (const SFicTransport* self, std::int64_t* sample)
        {
            return read (
                self, HostPoint::GetCurrentTDMSampleLocation, sample, ownerOf (self).position.stoppedSample);
        };
        functions.GetCurrentRTASSampleLocation = [] (const SFicTransport* self, std::int64_t* sample)
        {
            return read (
                self, HostPoint::GetCurrentRTASSampleLocation, sample, ownerOf (self).position.playingSample);
        };
        functions.GetCustomTickPosition =
            [] (const SFicTransport* self, std::int64_t* ticks, std::int64_t sample)
        {
            return read (self,
                         HostPoint::GetCustomTickPosition,
                         ticks,
                         ownerOf (self).position.ticksPerSample * sample);
        };
    }
};

HostTransport::HostTransport (HostFaults& faultsToUse, HostComplaints& complaintsToUse)
    : faults (faultsToUse),
      complaints (complaintsToUse)
{
}

HostTransport::~HostTransport() = default;

std::int32_t HostTransport::addClient (std::int32_t clientVersion, const SFicTransport** transport)
{
    if (transport == nullptr || clientVersion < 1 || clientVersion > version)
        return versionNotOffered;

    clients.push_back (std::make_unique<Client> (*this));
    *transport = &clients.back()->functions;
    return ficSuccess;
}

std::int32_t HostTransport::removeClient (const SFicTransport* transport)
{
    if (std::erase_if (clients, [transport] (const auto& client) { return &client->functions == transport; })
        > 0)
        return ficSuccess;

    complaints.push_back ("a transport client leaves that was not there");
    return versionNotOffered;
}
} // namespace refhost
