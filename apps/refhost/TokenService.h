// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The host's names, and the tokens that go by them.

#pragma once

#include "HostObjects.h"

#include <functional>
#include <map>

namespace refhost
{
/** [host-main] Delivers tokens to the listeners of their names, and keeps what plug-ins wish to set until the
    host answers. */
class TokenService
{
public:
    TokenService (HostObjects& objectsToUse, HostComplaints& complaintsToUse);

    /** A new name below the parent's (0: below the root). One reserved twice is two names. */
    std::int32_t reserveName (std::int32_t parentID, const char* name, std::int32_t* nameID);

    /** A name that exists. The root has no parent and an empty name. */
    std::int32_t findName (std::int32_t parentID, const char* name, std::int32_t* nameID) const;

    std::int32_t releaseName (std::int32_t nameID);

    /** A token from a plug-in. */
    std::int32_t dispatch (const SFicSDSToken& token);

    /** A token of the host's own, for a control of a plug-in. */
    void send (std::int32_t nameID, std::uint32_t type, std::uint32_t subType, std::int32_t value);

    /** What a task waits for. Returns ficNoToken and a null token when nothing is there. The token stays
        where it is until it is done. */
    std::int32_t take (FicObject task, SFicSDSToken** token, std::uintptr_t* taskValue);
    std::int32_t done (SFicSDSToken* token);

    static constexpr std::int32_t noToken = -1;

    /** A value that a plug-in wishes to set. */
    struct Wish
    {
        std::int32_t nameID, value;
    };

    /** Takes the wishes for the names that belong to somebody, in their order. */
    std::vector<Wish> takeWishes (const std::function<bool (std::int32_t nameID)>& isMine);

    /** No wish is kept any more, as by a host that does not answer. */
    bool keepsWishes = true;

    /** Sees each token that a plug-in sends. */
    std::function<void (const SFicSDSToken&)> observer;

    /** What is in the books. */
    int getNumNames() const { return static_cast<int> (names.size()); }
    int getNumTokensTaken() const { return static_cast<int> (taken.size()); }
    std::string getPath (std::int32_t nameID) const;

private:
    struct Name
    {
        std::int32_t parentID;
        std::string text;
    };

    void deliver (const SFicSDSToken& token);
    bool isSound (const SFicSDSToken& token);

    HostObjects& objects;
    HostComplaints& complaints;
    std::map<std::int32_t, Name> names;
    std::map<SFicSDSToken*, std::unique_ptr<SFicSDSToken>> taken;
    std::vector<Wish> wishes;
    std::int32_t lastNameID = rootID;

    static constexpr std::int32_t rootID = 1;
};

/** The value in a token's payload. */
std::int32_t valueOf (const SFicSDSToken& token);
} // namespace refhost
