// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The functions that plug-ins look up by name in the running program. The linker is told to export these and
// nothing else.

#include "HostServices.h"

#include <type_traits>

using refhost::HostPoint;
using refhost::HostServices;

namespace
{
constexpr std::int32_t frameworkVersion = 0x00010000;

/** Counts the call. The fault, or what the function does with the host. */
template <typename Function>
std::int32_t answer (HostPoint point, Function&& function)
{
    auto* const host = HostServices::current();

    if (host == nullptr)
        return ficFrameworkMissing;

    const auto fault = host->faults.next (point);
    return fault != ficSuccess ? fault : function (*host);
}

FicObject make (HostPoint point, FicObjectRecord::Kind kind)
{
    auto* const host = HostServices::current();
    return host == nullptr || host->faults.next (point) != ficSuccess ? nullptr : host->objects.make (kind);
}
} // namespace

#define REFHOST_EXPORT extern "C" __attribute__ ((visibility ("default"))) // NOLINT: attributes of a linkage

REFHOST_EXPORT std::int32_t FicGetFrameworkVersion()
{
    return answer (HostPoint::FicGetFrameworkVersion, [] (HostServices&) { return frameworkVersion; });
}

REFHOST_EXPORT const SFicServices* FicGetServices()
{
    auto* const host = HostServices::current();
    const bool isThere = host != nullptr && host->faults.next (HostPoint::FicGetServices) == ficSuccess;
    return isThere ? host->getTable() : nullptr;
}

REFHOST_EXPORT std::int32_t FicGestalt (std::uint32_t selector, std::int32_t* value)
{
    return answer (HostPoint::FicGestalt, [&] (auto& host) { return host.gestalt (selector, value); });
}

REFHOST_EXPORT std::int32_t FicGetMaximumRTASQuantum()
{
    return answer (HostPoint::FicGetMaximumRTASQuantum, [] (auto& host) { return host.offer.maxQuantum; });
}

REFHOST_EXPORT unsigned char FicIsAlive()
{
    auto* const host = HostServices::current();
    return host != nullptr && host->faults.next (HostPoint::FicIsAlive) == ficSuccess && host->offer.isAlive;
}

REFHOST_EXPORT FicObject FicNewServer()
{
    return make (HostPoint::FicNewServer, FicObjectRecord::Kind::server);
}

REFHOST_EXPORT FicObject FicCreateCriticalSection()
{
    return make (HostPoint::FicCreateCriticalSection, FicObjectRecord::Kind::criticalSection);
}

REFHOST_EXPORT std::int32_t FicEnterCriticalSection (FicObject section)
{
    return answer (HostPoint::FicEnterCriticalSection, [&] (auto& host) { return host.enter (section); });
}

REFHOST_EXPORT std::int32_t FicLeaveCriticalSection (FicObject section)
{
    return answer (HostPoint::FicLeaveCriticalSection, [&] (auto& host) { return host.leave (section); });
}

REFHOST_EXPORT std::int32_t FicSDSReserveName (std::int32_t parentID, const char* name, std::int32_t* nameID)
{
    return answer (HostPoint::FicSDSReserveName,
                   [&] (auto& host) { return host.tokens.reserveName (parentID, name, nameID); });
}

REFHOST_EXPORT std::int32_t FicSDSGetNameId (std::int32_t parentID, const char* name, std::int32_t* nameID)
{
    return answer (HostPoint::FicSDSGetNameId,
                   [&] (auto& host) { return host.tokens.findName (parentID, name, nameID); });
}

REFHOST_EXPORT std::int32_t FicSDSDispatchToken (const SFicSDSToken* token)
{
    return answer (HostPoint::FicSDSDispatchToken,
                   [&] (auto& host) { return host.tokens.dispatch (*token); });
}

REFHOST_EXPORT std::int32_t FicSDSGetTokenAndTaskVal (FicObject task,
                                                      SFicSDSToken** token,
                                                      std::uintptr_t* taskValue)
{
    return answer (HostPoint::FicSDSGetTokenAndTaskVal,
                   [&] (auto& host) { return host.tokens.take (task, token, taskValue); });
}

REFHOST_EXPORT std::int32_t FicSDSDoneWithToken (SFicSDSToken* token)
{
    return answer (HostPoint::FicSDSDoneWithToken, [&] (auto& host) { return host.tokens.done (token); });
}

REFHOST_EXPORT std::int32_t FicPersonalityDoIdle()
{
    return answer (HostPoint::FicPersonalityDoIdle, [] (HostServices&) { return ficSuccess; });
}

REFHOST_EXPORT std::int32_t FicRegisterDirectMIDIClient (std::int32_t version,
                                                         void* /*client*/,
                                                         const SFicPlugInSpec* spec,
                                                         const SFicTransport** transport)
{
    return answer (HostPoint::FicRegisterDirectMIDIClient,
                   [&] (auto& host)
                   {
                       if (spec == nullptr)
                           host.complaints.push_back ("a transport client does not say what it is");

                       return host.transport.addClient (version, transport);
                   });
}

REFHOST_EXPORT std::int32_t FicUnRegisterDirectMIDIClient (const SFicTransport* transport)
{
    return answer (HostPoint::FicUnRegisterDirectMIDIClient,
                   [&] (auto& host) { return host.transport.removeClient (transport); });
}

REFHOST_EXPORT std::int32_t FicRetainBundle (CFBundleRef bundle)
{
    return answer (HostPoint::FicRetainBundle,
                   [bundle] (HostServices&)
                   {
                       ++bundle->numReferences;
                       return ficSuccess;
                   });
}

REFHOST_EXPORT std::int32_t FicReleaseBundle (CFBundleRef bundle)
{
    return answer (HostPoint::FicReleaseBundle,
                   [bundle] (HostServices&)
                   {
                       --bundle->numReferences;
                       return ficSuccess;
                   });
}

REFHOST_EXPORT unsigned char FicEventAvail (EventRecord** event)
{
    auto* const host = HostServices::current();

    if (host != nullptr)
        host->faults.next (HostPoint::FicEventAvail);

    if (event != nullptr)
        *event = nullptr;

    return 0;
}

// Each row of the table is there, with the type that the table says.
#define REFHOST_CHECK(Result, Name, parameters)                                                              \
    static_assert (std::is_same_v<decltype (&(Name)), Name##Proc>);
FIC_HOST_FUNCTIONS (REFHOST_CHECK)
#undef REFHOST_CHECK
#undef REFHOST_EXPORT
