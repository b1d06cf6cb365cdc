// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The host as plug-ins see it: what stands behind the functions that the program exports.

#pragma once

#include "HostFaults.h"
#include "HostObjects.h"
#include "HostTransport.h"
#include "RemoteEngine.h"
#include "TokenService.h"

namespace refhost
{
/** What the host offers. */
struct HostOffer
{
    bool variableQuanta = true;
    bool tokenService = true;
    bool isAlive = true;
    std::int32_t maxQuantum = 1024; ///< samples
    std::int32_t servicesVersion = 1;
};

/** [host-main] One at a time stands behind the exported functions, from its construction to its end. Every
    plug-in has to be gone before. */
class HostServices
{
public:
    explicit HostServices (HostOffer offerToUse = {});
    ~HostServices();
    HostServices (const HostServices&) = delete;
    HostServices& operator= (const HostServices&) = delete;

    /** What the exported functions use. Null when there is no host. */
    static HostServices* current() noexcept { return currentHost; }

    HostOffer offer;
    HostFaults faults;
    HostComplaints complaints;
    HostObjects objects;
    TokenService tokens;
    RemoteEngine engine;
    HostTransport transport;

    /** What a plug-in finds wrong with the books of a host that it has left: what is still there, as text;
        empty when all is gone. */
    std::string leftInTheBooks() const;

    /** The callback for SetXCMDProc, which gives the remote object manager. */
    static std::int32_t remoteCallback (std::int32_t code, const SFicRemoteObjectManager** manager);

    const SFicServices* getTable() const noexcept { return &table; }

    // Behind the exported functions.
    std::int32_t gestalt (std::uint32_t selector, std::int32_t* answer) const;
    FicObject newObject (std::int32_t kind, const SFicListener* listener);
    void releaseObject (FicObject object);
    std::int32_t enter (FicObject section);
    std::int32_t leave (FicObject section);

private:
    static SFicServices makeTable (std::int32_t version);

    SFicServices table;

    static HostServices* currentHost;
};
} // namespace refhost
