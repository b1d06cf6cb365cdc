// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// A host's framework for tests of groups and routines: counts what is asked of it and fails where it is told
// to.

#include "host/FakeFramework.h"

#include "host/HostFunctionRows.h"
#include "host/UDigiLibAccess.h"
#include "host/platform/HostLibrary.h"

#include <array>

namespace
{
FakeFramework* framework = nullptr;

constexpr std::int32_t answerOfNamedFunction = 17;
constexpr std::int32_t refusalOfMidiService = -50;

std::int32_t getFrameworkVersion()
{
    return answerOfNamedFunction;
}

const SFicServices* getServices()
{
    return framework->hasServices ? &framework->services : nullptr;
}

std::int32_t gestalt (std::uint32_t, std::int32_t* answer)
{
    *answer = framework->gestaltAnswer;
    return framework->gestaltResult;
}

unsigned char isAlive()
{
    return framework->isAlive;
}

FicObject newServer()
{
    return framework->makesServer ? framework->newObject() : nullptr;
}

FicObject createCriticalSection()
{
    return framework->makesCriticalSection ? framework->newObject() : nullptr;
}

std::int32_t enterCriticalSection (FicObject)
{
    ++framework->criticalSectionDepth;
    ++framework->numTimesEntered;
    return ficSuccess;
}

std::int32_t leaveCriticalSection (FicObject)
{
    --framework->criticalSectionDepth;
    return ficSuccess;
}

unsigned char eventAvail (EventRecord**)
{
    framework->depthsAtEvents.push_back (framework->criticalSectionDepth);
    return 0;
}

std::int32_t getMaximumQuantum()
{
    return framework->maximumQuantum;
}

std::int32_t registerMidiClient (std::int32_t version,
                                 void*,
                                 const SFicPlugInSpec* spec,
                                 const SFicTransport** transport)
{
    framework->midiVersionsAsked.push_back (version);

    if (version > framework->midiVersion)
        return refusalOfMidiService;

    framework->midiClient = *spec;
    framework->numMidiClients += framework->transport != nullptr ? 1 : 0;
    *transport = framework->transport;
    return ficSuccess;
}

std::int32_t unregisterMidiClient (const SFicTransport*)
{
    framework->numMidiClients -= framework->unregisterResult == ficSuccess ? 1 : 0;
    return framework->unregisterResult;
}

std::int32_t retainBundle (CFBundleRef)
{
    ++framework->bundleCount;
    return ficSuccess;
}

std::int32_t releaseBundle (CFBundleRef)
{
    --framework->bundleCount;
    return ficSuccess;
}

std::int32_t initFic()
{
    ++framework->numInitFicCalls;
    return framework->initFicResult;
}

FicObject newStandardObject (std::int32_t kind, const SFicListener*)
{
    return kind == ficTokenTaskObject && framework->makesTokenTask ? framework->newObject() : nullptr;
}

void releaseObject (FicObject)
{
    --framework->numObjects;
}

std::int32_t releaseName (std::int32_t)
{
    return ficSuccess;
}

unsigned char tryToEnter (FicObject)
{
    framework->criticalSectionDepth += framework->lettingIn;
    return framework->lettingIn;
}

platform::HostFunction lookUp (const char* name)
{
    static const auto rows = std::to_array<HostFunctionRow> ({
        hostFunctionRow<FicGetFrameworkVersionProc> ("FicGetFrameworkVersion", getFrameworkVersion),
        hostFunctionRow<FicGetServicesProc> ("FicGetServices", getServices),
        hostFunctionRow<FicGestaltProc> ("FicGestalt", gestalt),
        hostFunctionRow<FicIsAliveProc> ("FicIsAlive", isAlive),
        hostFunctionRow<FicNewServerProc> ("FicNewServer", newServer),
        hostFunctionRow<FicCreateCriticalSectionProc> ("FicCreateCriticalSection", createCriticalSection),
        hostFunctionRow<FicEnterCriticalSectionProc> ("FicEnterCriticalSection", enterCriticalSection),
        hostFunctionRow<FicLeaveCriticalSectionProc> ("FicLeaveCriticalSection", leaveCriticalSection),
        hostFunctionRow<FicEventAvailProc> ("FicEventAvail", eventAvail),
        hostFunctionRow<FicGetMaximumRTASQuantumProc> ("FicGetMaximumRTASQuantum", getMaximumQuantum),
        hostFunctionRow<FicRegisterDirectMIDIClientProc> ("FicRegisterDirectMIDIClient", registerMidiClient),
        hostFunctionRow<FicUnRegisterDirectMIDIClientProc> ("FicUnRegisterDirectMIDIClient",
                                                            unregisterMidiClient),
        hostFunctionRow<FicRetainBundleProc> ("FicRetainBundle", retainBundle),
        hostFunctionRow<FicReleaseBundleProc> ("FicReleaseBundle", releaseBundle),
    });

    return framework->isThere && framework->missingFunction != name ? findIn (rows, name) : nullptr;
}
} // namespace

FakeFramework::FakeFramework()
    : services { 1, initFic, newStandardObject, releaseObject, releaseName, tryToEnter }
{
    framework = this;
    platform::setHostLookup (lookUp);
}

FakeFramework::~FakeFramework()
{
    UDigiLibAccess::Terminate();
    platform::setHostLookup (nullptr);
    framework = nullptr;
}

FicObject FakeFramework::newObject()
{
    ++numObjects;
    return reinterpret_cast<FicObject> (this);
}
