// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the host gives a client of its MIDI service: here, its transport.

#pragma once

#include "HostInterface.h"

#include <array>
#include <cstdint>

class CProcess;

/** One node of a MIDI channel. This effect takes no notes and makes none. */
class CEffectMIDINode
{
public:
    virtual ~CEffectMIDINode() = default;

    /** [host-main] Takes the name that goes with the instance's number. */
    virtual void RenewName (std::int32_t instanceID) = 0;
};

/** Plain data, whose address the host gets: it writes its transport interface to the first word. The
   interface and its version are read while rendering, the rest on the main thread alone. */
class CEffectMIDIWorld
{
public:
    /** [host-main] Registers with the newest interface version from `highestVersion` down that the host has.
       The result is the host's for the last version tried, and never 0 if there is no interface. */
    std::int32_t RegisterMIDI (std::int32_t highestVersion, std::int32_t newInstanceID, CProcess& process);

    /** [host-main] Takes another instance number and has the nodes renew their names. */
    void RefreshMIDINodesFromChunk (std::int32_t newInstanceID);

    /** [host-main] Zeroes everything. */
    void ClearWorld();

    /** [any] Null if there is none of at least this version. */
    const SFicTransport* GetTransport (std::int32_t minimumVersion);

    /** [any] 0 without an interface. */
    std::int32_t GetInterfaceVersion();

    static constexpr int numChannels = 16;

    const SFicTransport* transportInterface = nullptr;
    std::int32_t interfaceVersion = 0;
    std::int32_t instanceID = 0;
    std::array<CEffectMIDINode*, numChannels> inputNodes {}, outputNodes {};
    std::uintptr_t unusedWords[2] {};
    std::array<CEffectMIDINode*, numChannels> otherNodes {};
};

/** [host-main] Asks the host for one version of its interface, which it writes to `transport`. */
std::int32_t DirectMidi_RegisterClient (std::int32_t version,
                                        CProcess& process,
                                        void* client,
                                        const SFicTransport** transport);

/** [host-main] */
std::int32_t DirectMidi_FreeClient (const SFicTransport* transport);
