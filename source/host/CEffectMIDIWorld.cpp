// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Registers clients in the newest version of the interface that the host takes, and lets them go.

#include "CEffectMIDIWorld.h"

#include "CProcess.h"
#include "CProcessGroup.h"
#include "CProcessType.h"
#include "CallNoThrow.h"
#include "FicFunctions.h"
#include "HostGlobals.h"

#include <atomic>
#include <cstddef>
#include <type_traits>

// The address of the world serves as that of its first word.
static_assert (
    std::is_standard_layout_v<CEffectMIDIWorld> && offsetof (CEffectMIDIWorld, transportInterface) == 0);

std::int32_t CEffectMIDIWorld::RegisterMIDI (std::int32_t highestVersion,
                                             std::int32_t newInstanceID,
                                             CProcess& process)
{
    instanceID = newInstanceID;
    std::int32_t result = ficTransportTooOld;

    for (std::int32_t version = highestVersion; version >= 1; --version)
    {
        transportInterface = nullptr;
        result = CallAndTranslateExceptionsToReturnValues (
            [&] { return DirectMidi_RegisterClient (version, process, this, &transportInterface); });

        if (result == ficSuccess && transportInterface != nullptr)
        {
            std::atomic_ref (interfaceVersion).store (version, std::memory_order_relaxed);
            return ficSuccess;
        }
    }

    transportInterface = nullptr; // a refusal may have written to it
    return result != ficSuccess ? result : ficTransportTooOld;
}

void CEffectMIDIWorld::RefreshMIDINodesFromChunk (std::int32_t newInstanceID)
{
    instanceID = newInstanceID;

    for (const auto* const nodes : { &inputNodes, &outputNodes, &otherNodes })
        for (auto* const node : *nodes)
            if (node != nullptr)
                node->RenewName (instanceID);
}

void CEffectMIDIWorld::ClearWorld()
{
    // A block may be reading these two.
    std::atomic_ref (transportInterface).store (nullptr, std::memory_order_relaxed);
    std::atomic_ref (interfaceVersion).store (0, std::memory_order_relaxed);

    instanceID = 0;
    inputNodes.fill (nullptr);
    outputNodes.fill (nullptr);
    unusedWords[0] = unusedWords[1] = 0;
    otherNodes.fill (nullptr);
}

const SFicTransport* CEffectMIDIWorld::GetTransport (std::int32_t minimumVersion)
{
    const auto* const transport = std::atomic_ref (transportInterface).load (std::memory_order_relaxed);
    return GetInterfaceVersion() >= minimumVersion ? transport : nullptr;
}

std::int32_t CEffectMIDIWorld::GetInterfaceVersion()
{
    return std::atomic_ref (interfaceVersion).load (std::memory_order_relaxed);
}

std::int32_t DirectMidi_RegisterClient (std::int32_t version,
                                        CProcess& process,
                                        void* client,
                                        const SFicTransport** transport)
{
    SFicPlugInSpec spec {};

    if (auto* const type = process.GetProcessType(); type != nullptr && gProcessGroup != nullptr)
        gProcessGroup->GetProcessTypeIDs (
            type->GetTypeIndex(), &spec.manufacturerID, &spec.productID, &spec.typeID);

    return host::FicRegisterDirectMIDIClient (version, client, &spec, transport);
}

std::int32_t DirectMidi_FreeClient (const SFicTransport* transport)
{
    return host::FicUnRegisterDirectMIDIClient (transport);
}
