// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// What hides behind the border's opaque types on the host's side.

#pragma once

#include <host/HostInterface.h>

#include <atomic>
#include <deque>
#include <memory>
#include <string>
#include <vector>

/** The bundle as the host hands it to the plug-in. */
struct FicBundle
{
    std::string path;
    std::atomic<int> numReferences { 1 }; ///< the host's own one included
};

/** A token on its way to a plug-in. */
struct WaitingToken
{
    std::unique_ptr<SFicSDSToken> token;
    FicObject listener;
    std::uintptr_t taskValue;
};

/** A server, critical section, listener or token task. */
struct FicObjectRecord
{
    enum class Kind
    {
        server,
        criticalSection,
        listener,
        tokenTask
    };

    Kind kind;
    SFicListener listener {};         ///< of a listener
    std::deque<WaitingToken> waiting; ///< of a token task
    int depth = 0;                    ///< of a critical section: how often it is entered
};

namespace refhost
{
/** What a plug-in did that it must not do. The host goes on, and the tests look at it. */
using HostComplaints = std::vector<std::string>;

/** The host's objects, as long as they live. */
class HostObjects
{
public:
    FicObject make (FicObjectRecord::Kind kind);

    /** False when there is no such object. */
    bool release (FicObject object);

    bool contains (FicObject object, FicObjectRecord::Kind kind) const;
    int count (FicObjectRecord::Kind kind) const;

    auto begin() const { return objects.begin(); }
    auto end() const { return objects.end(); }

private:
    std::vector<std::unique_ptr<FicObjectRecord>> objects;
};
} // namespace refhost
