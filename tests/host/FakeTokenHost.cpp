// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// A host's token service for tests: notes all that is asked of it, and fails where it is told to.

#include "host/FakeTokenHost.h"

#include "host/HostFunctionRows.h"

#include <host/HostGlobals.h>
#include <host/UDigiLibAccess.h>
#include <host/platform/HostLibrary.h>
#include <host/platform/Ticks.h>

#include <array>
#include <climits>

namespace
{
FakeTokenHost* fake = nullptr;
char tokenTask;

std::string spellOut (std::uint32_t code)
{
    std::string text;

    for (int shift = 3 * CHAR_BIT; shift >= 0; shift -= CHAR_BIT)
        text += static_cast<char> (code >> shift);

    return text;
}

std::int32_t getFrameworkVersion()
{
    return 1;
}

const SFicServices* getServices()
{
    return &fake->services;
}

std::int32_t reserveName (std::int32_t parentID, const char* name, std::int32_t* nameID)
{
    fake->calls.push_back ("reserve " + std::to_string (parentID) + ":" + name);

    if (fake->fails())
        return FakeTokenHost::failure;

    *nameID = ++fake->numNamesReserved;
    fake->names[*nameID] = name;
    return ficSuccess;
}

std::int32_t getNameId (std::int32_t parentID, const char* name, std::int32_t* nameID)
{
    fake->calls.push_back ("find " + std::to_string (parentID) + ":" + name);

    if (fake->fails())
        return FakeTokenHost::failure;

    *nameID = FakeTokenHost::groupNameID;
    return ficSuccess;
}

std::int32_t dispatchToken (const SFicSDSToken* token)
{
    fake->dispatched.push_back (*token);

    if (fake->answer)
        fake->answer (*token);

    return fake->dispatchResult;
}

std::int32_t getToken (FicObject task, SFicSDSToken** token, std::uintptr_t* taskValue)
{
    if (task != gOurTokenTask || fake->waiting.empty())
        return FakeTokenHost::failure;

    *token = new SFicSDSToken (fake->waiting.front().first);
    *taskValue = fake->waiting.front().second;
    fake->waiting.pop_front();
    fake->calls.push_back ("take");
    fake->ticks += fake->ticksPerToken;
    ++fake->numTokensLent;
    return ficSuccess;
}

std::int32_t doneWithToken (SFicSDSToken* token)
{
    delete token;
    fake->calls.push_back ("done");
    --fake->numTokensLent;
    return ficSuccess;
}

std::int32_t personalityDoIdle()
{
    fake->calls.push_back ("idle");
    return ficSuccess;
}

std::int32_t initFic()
{
    return ficSuccess;
}

FicObject newStandardObject (std::int32_t kind, const SFicListener* listener)
{
    fake->calls.push_back ("listen " + std::to_string (listener->nameID) + " "
                           + spellOut (listener->tokenType));
    return kind != ficListenerObject || fake->fails() ? nullptr : fake->newObject (*listener);
}

void releaseObject (FicObject object)
{
    fake->calls.push_back (fake->listeners.erase (object) == 1 ? "release" : "release of nothing");
}

std::int32_t releaseName (std::int32_t nameID)
{
    fake->calls.push_back ("release name " + fake->names[nameID]);
    fake->names.erase (nameID);
    return ficSuccess;
}

unsigned char tryToEnter (FicObject)
{
    return 1;
}

platform::HostFunction lookUp (const char* name)
{
    static const auto rows = std::to_array<HostFunctionRow> ({
        hostFunctionRow<FicGetFrameworkVersionProc> ("FicGetFrameworkVersion", getFrameworkVersion),
        hostFunctionRow<FicGetServicesProc> ("FicGetServices", getServices),
        hostFunctionRow<FicSDSReserveNameProc> ("FicSDSReserveName", reserveName),
        hostFunctionRow<FicSDSGetNameIdProc> ("FicSDSGetNameId", getNameId),
        hostFunctionRow<FicSDSDispatchTokenProc> ("FicSDSDispatchToken", dispatchToken),
        hostFunctionRow<FicSDSGetTokenAndTaskValProc> ("FicSDSGetTokenAndTaskVal", getToken),
        hostFunctionRow<FicSDSDoneWithTokenProc> ("FicSDSDoneWithToken", doneWithToken),
        hostFunctionRow<FicPersonalityDoIdleProc> ("FicPersonalityDoIdle", personalityDoIdle),
    });

    return fake->missingFunction != name ? findIn (rows, name) : nullptr;
}
} // namespace

FakeTokenHost::FakeTokenHost()
    : services { 1, initFic, newStandardObject, releaseObject, releaseName, tryToEnter }
{
    fake = this;
    platform::setHostLookup (lookUp);
    platform::setTickSource ([] { return fake->ticks; });
    UDigiLibAccess::Initialize();
    gOurTokenTask = reinterpret_cast<FicObject> (&tokenTask);
}

FakeTokenHost::~FakeTokenHost()
{
    gOurTokenTask = nullptr;
    UDigiLibAccess::Terminate();
    platform::setTickSource (nullptr);
    platform::setHostLookup (nullptr);
    fake = nullptr;
}

bool FakeTokenHost::fails()
{
    return ++numRegistrations == failingRegistration;
}

FicObject FakeTokenHost::newObject (const SFicListener& listener)
{
    auto* const object = reinterpret_cast<FicObject> (++numObjectsMade);
    listeners[object] = listener;
    return object;
}

std::vector<std::string> FakeTokenHost::dispatchedKinds() const
{
    std::vector<std::string> kinds;

    for (const auto& token : dispatched)
        kinds.push_back (spellOut (token.tokenType) + " " + spellOut (token.tokenSubType) + " "
                         + std::to_string (token.nameID));

    return kinds;
}

std::int32_t FakeTokenHost::nameID (const std::string& name) const
{
    for (const auto& [id, reserved] : names)
        if (reserved == name)
            return id;

    return 0;
}

std::uintptr_t FakeTokenHost::taskValue (const std::string& name, std::uint32_t tokenType) const
{
    for (const auto& [object, listener] : listeners)
        if (listener.nameID == nameID (name) && listener.tokenType == tokenType)
            return listener.taskValue;

    return 0;
}
