// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Asks each callback of the host's once for its manager, and passes calls on to that.

#include "DAERemoteObject.h"

#include "HostGlobals.h"

namespace
{
/** What the host's callback gave, and which callback it was. */
struct KnownManager
{
    FicXCMDProc asked = nullptr;
    const SFicRemoteObjectManager* manager = nullptr;
};

KnownManager known; // used on the host's main thread alone

const SFicRemoteObjectManager* manager()
{
    if (gXCMDProcPtr != known.asked)
    {
        known = { gXCMDProcPtr, nullptr };
        const SFicRemoteObjectManager* answer = nullptr;

        if (known.asked != nullptr && known.asked (ficRemoteObjectManagerCode, &answer) == ficSuccess)
            known.manager = answer;
    }

    return known.manager;
}
} // namespace

bool DAERemoteObjectRegister (void* object, FicRemoteObjectKind kind)
{
    const auto* const remote = manager();

    if (remote == nullptr || remote->Register == nullptr)
        return false;

    remote->Register (object, kind);
    return true;
}

void DAERemoteObjectCall (void* object, const CPlugInBuffer& message)
{
    if (const auto* const remote = manager(); remote != nullptr && remote->Call != nullptr)
        remote->Call (object, message.GetWords(), message.GetNumWords());
}

void DAERemoteObjectForgetManager()
{
    known = {};
}
