// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// A host's token service for tests: notes all that is asked of it, and fails where it is told to.

#pragma once

#include <host/HostInterface.h>

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

/** Takes the place of the running program as the host, with a token task, from its construction to its end.
   One at a time. Time stands still except where a test moves it. */
class FakeTokenHost
{
public:
    FakeTokenHost();
    ~FakeTokenHost();

    FakeTokenHost (const FakeTokenHost&) = delete;
    FakeTokenHost& operator= (const FakeTokenHost&) = delete;

    /** Calls in their order; names and objects by their texts. */
    std::vector<std::string> calls;

    std::map<std::int32_t, std::string> names; // reserved and not released
    std::map<FicObject, SFicListener> listeners;
    std::vector<SFicSDSToken> dispatched;
    std::deque<std::pair<SFicSDSToken, std::uintptr_t>> waiting; // with their task values
    int numTokensLent = 0;

    std::int64_t ticks = 0;
    std::int64_t ticksPerToken = 0;

    // What goes wrong.
    static constexpr std::int32_t failure = -55;
    std::string missingFunction;
    int failingRegistration =
        0; // counted from 1, of all calls that reserve, find or make something; 0 for none
    std::int32_t dispatchResult = 0;

    /** Called while a token is dispatched, as a host that answers at once. */
    std::function<void (const SFicSDSToken&)> answer;

    /** The type of each token dispatched, its subtype and name, as "SETV CAVL 3". */
    std::vector<std::string> dispatchedKinds() const;

    /** The task value of the listener that `name` has for tokens of that type; 0 if there is none. */
    std::uintptr_t taskValue (const std::string& name, std::uint32_t tokenType) const;
    std::int32_t nameID (const std::string& name) const;

    /** [host's functions] Whether this registering call is to fail. */
    bool fails();
    FicObject newObject (const SFicListener& listener);

    static constexpr std::int32_t groupNameID = 77;
    const SFicServices services;
    std::uintptr_t numObjectsMade = 0;
    std::int32_t numNamesReserved = 0;

private:
    int numRegistrations = 0;
};
