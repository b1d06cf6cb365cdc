// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The host's transport, as its clients read it.

#pragma once

#include "HostFaults.h"
#include "HostObjects.h"

#include <memory>

namespace refhost
{
/** What a transport shows. Set on the main thread, read on the real-time thread. */
struct TransportPosition
{
    std::atomic<double> beatsPerMinute { 120.0 };
    std::atomic<std::int32_t> numerator { 4 }, denominator { 4 };
    std::atomic<bool> isPlaying { false };
    std::atomic<std::int64_t> stoppedSample { 0 }, playingSample { 0 };

    /** Ticks, 960,000 a quarter note, per sample. */
    std::atomic<std::int64_t> ticksPerSample { 0 };
};

/** Gives each client an interface of the version that the host has. Of a lower version, what only higher
    ones hold is null. */
class HostTransport
{
public:
    HostTransport (HostFaults& faultsToUse, HostComplaints& complaintsToUse);
    ~HostTransport();
    HostTransport (const HostTransport&) = delete;
    HostTransport& operator= (const HostTransport&) = delete;

    static constexpr std::int32_t highestVersion = 7;

    /** 0: there is no transport. A change holds for clients that register from now on. */
    std::int32_t version = highestVersion;

    TransportPosition position;

    std::int32_t addClient (std::int32_t clientVersion, const SFicTransport** transport);
    std::int32_t removeClient (const SFicTransport* transport);

    int getNumClients() const { return static_cast<int> (clients.size()); }

private:
    struct Client;

    HostFaults& faults;
    HostComplaints& complaints;
    std::vector<std::unique_ptr<Client>> clients;
};
} // namespace refhost
