// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The host's real-time engine: takes the plug-ins' descriptions and calls their workers.

#pragma once

#include "HostFaults.h"
#include "HostObjects.h"
#include "RemoteObjects.h"

#include <map>
#include <shared_mutex>

namespace refhost
{
/** Descriptions come on the main thread; any number of threads render meanwhile, each its own plug-ins. */
class RemoteEngine
{
public:
    /** Of one plug-in; stays good when the plug-in goes. */
    using PlugIn = std::shared_ptr<RemotePlugIn>;

    RemoteEngine (HostFaults& faultsToUse, HostComplaints& complaintsToUse);

    /** [host-main] From a plug-in. */
    std::int32_t registerObject (void* object, std::int32_t kind);
    std::int32_t call (void* object, const std::uintptr_t* words, std::int32_t numWords);

    /** [host-main] Null unless such a plug-in is described and can be rendered. */
    PlugIn find (std::uint32_t typeID, std::int32_t processIndex) const;

    /** [host-main] Objects in the books, 0 when all plug-ins have gone. */
    int getNumObjects() const;
    int getNumPlugIns() const { return static_cast<int> (plugIns.size()); }

    /** [real-time] Lets the plug-in's worker render one block, with `quantum` in the globals. The pointers
       are those of as many channels as there are ports; the worker says how many samples each has to hold.
       False when the plug-in has gone. */
    bool render (RemotePlugIn& plugIn, float* const* inputs, float* const* outputs, std::int32_t quantum);

    /** What the globals give as the host's empty output. */
    float* emptyOutput = nullptr;

private:
    bool takeMessage (void* object, RemoteMessage& message);
    bool describePlugIn (void* object, RemoteMessage& message);
    bool readPorts (RemoteMessage& message,
                    const std::map<void*, RemotePort>& ports,
                    void* object,
                    std::vector<std::int32_t>& numbers) const;
    bool readId (RemoteMessage& message, SFicPlugInId& id) const;
    void forget (void* object);
    bool protect (bool shouldProtect);

    HostFaults& faults;
    HostComplaints& complaints;
    std::map<void*, std::int32_t> kinds;
    std::map<void*, RemotePort> inputs, outputs;
    std::map<void*, RemoteWorker> workers;
    std::map<void*, RemoteData> data;
    std::map<void*, PlugIn> plugIns;
    void* leaving = nullptr; // a plug-in that has sent its last description

    std::shared_mutex scheduling; // shared by those who render, held alone while descriptions come
    bool isProtected = false;
};
} // namespace refhost
