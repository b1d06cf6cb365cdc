// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// A host's framework for tests of groups and routines: counts what is asked of it and fails where it is told
// to.

#pragma once

#include "host/HostInterface.h"

#include <cstdint>
#include <string>
#include <vector>

/** Takes the place of the running program as the host, from its construction to its end. One at a time. */
class FakeFramework
{
public:
    FakeFramework();
    ~FakeFramework();

    bool isThere = true;
    std::string missingFunction;

    bool makesCriticalSection = true;
    bool hasServices = true;
    std::int32_t initFicResult = 0;
    std::int32_t gestaltResult = 0;
    std::int32_t gestaltAnswer = 1;
    unsigned char isAlive = 1;
    bool makesServer = true;
    bool makesTokenTask = true;
    unsigned char lettingIn = 1; // the answer of TryToEnterCriticalSection
    SFicServices services;

    std::int32_t maximumQuantum = 512; // samples
    std::int32_t midiVersion = 7;      // the newest interface of the MIDI service; 0: no service
    const SFicTransport* transport = nullptr;
    std::int32_t unregisterResult = 0;

    /** Objects of the host that the plug-in has and did not release. */
    int numObjects = 0;
    int numInitFicCalls = 0;
    int criticalSectionDepth = 0;
    int numTimesEntered = 0;
    std::vector<int> depthsAtEvents; // of the critical section, whenever events were polled
    std::vector<std::int32_t> midiVersionsAsked;
    SFicPlugInSpec midiClient {};
    int numMidiClients = 0;
    int bundleCount = 0; // retained less released

    FicObject newObject();
};
