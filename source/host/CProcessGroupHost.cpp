// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The one object behind all routines: the life of its instances, and what it has from the host and the
// platform for them.

#include "CProcessGroup.h"

#include "CProcessType.h"
#include "CallNoThrow.h"
#include "FicFunctions.h"
#include "HostGlobals.h"
#include "platform/ResourceFiles.h"

std::int16_t CProcessGroup::fOpenCount = 0;
std::int16_t CProcessGroup::fResFile = platform::programResourceFile;
std::int16_t CProcessGroup::prevResFile = platform::programResourceFile;

namespace
{
constexpr std::int32_t oldestServices = 1; // version

/** The host's services, or null if it has none that can be used. */
const SFicServices* usableServices()
{
    const auto* const services = host::FicGetServices();
    return services == nullptr || services->version < oldestServices ? nullptr : services;
}

void releaseObject (FicObject& object)
{
    if (const auto* const services = usableServices(); services != nullptr && object != nullptr)
        services->ReleaseObject (object);

    object = nullptr;
}

std::int32_t initFic()
{
    const auto* const services = usableServices();
    return services == nullptr ? std::int32_t { ficServicesTooOld } : services->InitFic();
}

bool hostOffersTokens()
{
    std::int32_t answer = 0;
    return host::FicGestalt (FIC_GESTALT_TOKEN_SERVICE, &answer) == ficSuccess && answer != 0
           && host::FicIsAlive() != 0;
}

void freeFicObjects()
{
    releaseObject (gOurTokenTask);
    releaseObject (gOurFicServer);
}
void createFicObjects()
{
    if (! hostOffersTokens())
        return;

    try
    {
        gOurFicServer = host::FicNewServer();

        // Services that were there a moment ago may not be there any more.
        if (const auto* const services = usableServices(); services != nullptr && gOurFicServer != nullptr)
            gOurTokenTask = services->NewStandardObject (ficTokenTaskObject, nullptr);
    }
    catch (...)
    {
        freeFicObjects();
        throw;
    }
}
} // namespace

std::int32_t CProcessGroup::InstantiateOfType (std::uint32_t type, std::int32_t* process)
{
    if (gOurFicServer == nullptr)
    {
        if (const auto result = initFic(); result != ficSuccess)
            return result;

        createFicObjects();
    }

    if (numLiveProcesses == 0)
        prevResFile = UseResourceFile();

    const auto result = CallAndTranslateExceptionsToReturnValues (
        [&] { return GetProcessTypeFromOSType (type)->InstantiateProcess (process); });

    if (result == ficSuccess)
    {
        ++numLiveProcesses;
        gInstanciationNum = static_cast<std::int16_t> (gInstanciationNum + 1);
    }
    else
    {
        CloseWithoutInstances();
    }

    return result;
}

std::int32_t CProcessGroup::FreeOfType (std::uint32_t type, std::int32_t process)
{
    auto* const found = GetProcessTypeFromOSType (type);

    if (found->GetProcessFromIndex (process) == nullptr)
        return ficUnknownProcess;

    // It is gone even if it ends with an error.
    const auto result =
        CallAndTranslateExceptionsToReturnValues ([&] { return found->FreeProcess (process); });
    --numLiveProcesses;
    CloseWithoutInstances();
    return result;
}

void CProcessGroup::CloseWithoutInstances()
{
    if (numLiveProcesses != 0)
        return;

    freeFicObjects();
    RestoreResourceFile (prevResFile);
}

void CProcessGroup::ReleaseHostObjects()
{
    if (numLiveProcesses != 0)
    {
        numLiveProcesses = 0;
        CloseWithoutInstances();
    }

    releaseObject (criticalSection);
}

std::int16_t CProcessGroup::UseResourceFile()
{
    const auto before = platform::currentResourceFile();

    if (fOpenCount == 0)
        fResFile = platform::openBundleResources();
    else
        platform::useResourceFile (fResFile);

    ++fOpenCount;
    return before;
}

void CProcessGroup::RestoreResourceFile (std::int16_t file)
{
    if (fOpenCount == 0)
        return;

    --fOpenCount;

    if (fOpenCount == 0)
        platform::closeResourceFile (fResFile);

    platform::useResourceFile (file);
}

void CProcessGroup::InitializeCriticalSection()
{
    criticalSection = host::FicCreateCriticalSection();

    if (criticalSection == nullptr)
        throw CDAEError (ficNoCriticalSection);

    if (usableServices() == nullptr)
        throw CDAEError (ficServicesTooOld);
}

std::int32_t CProcessGroup::EnterCriticalSection()
{
    if (criticalSection == nullptr)
        return ficNoCriticalSection;

    const auto result = host::FicEnterCriticalSection (criticalSection);

    if (result == ficSuccess)
        ++criticalSectionDepth;

    return result;
}

std::int32_t CProcessGroup::LeaveCriticalSection()
{
    if (criticalSectionDepth == 0)
        return ficSuccess;

    --criticalSectionDepth;
    return host::FicLeaveCriticalSection (criticalSection);
}

unsigned char CProcessGroup::TryToEnterCriticalSection()
{
    const auto* const services = usableServices();

    if (criticalSection == nullptr || services == nullptr
        || services->TryToEnterCriticalSection (criticalSection) == 0)
        return 0;

    ++criticalSectionDepth;
    return 1;
}

void CProcessGroup::YieldCriticalSection()
{
    const auto depth = criticalSectionDepth;

    while (criticalSectionDepth > 0)
        LeaveCriticalSection();

    EventRecord* event = nullptr;
    host::FicEventAvail (&event);

    while (criticalSectionDepth < depth && EnterCriticalSection() == ficSuccess)
    {
    }
}
