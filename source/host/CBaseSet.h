// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// An ordered set of the objects that the host's engine is told about.

#pragma once

#include <cstdint>
#include <vector>

class CRemoteObject;

/** Holds each object once, in the order of adding, and owns none of them. */
class CBaseSet
{
public:
    /** [host-main] Appends. A null pointer, or an object that is in the set already, changes nothing. */
    void AddMember (CRemoteObject* member);

    /** [host-main] Those behind move up. An object that is not in the set changes nothing. */
    void RemoveMember (const CRemoteObject* member);

    /** [host-main] Appends what the other set has and this one has not. */
    void UnionWith (const CBaseSet& other);

    /** [host-main] Counts from 1; null outside the set. */
    CRemoteObject* GetMemberN (std::int32_t number) const;

    /** [host-main] */
    void Clear() { members.clear(); }

    /** [host-main] */
    std::int32_t GetNumMembers() const noexcept { return static_cast<std::int32_t> (members.size()); }

private:
    std::vector<CRemoteObject*> members;
};
