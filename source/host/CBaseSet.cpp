// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Adds, removes and finds the members of a set.

#include "CBaseSet.h"

#include <algorithm>
#include <cstddef>

void CBaseSet::AddMember (CRemoteObject* member)
{
    if (member != nullptr && std::find (members.begin(), members.end(), member) == members.end())
        members.push_back (member);
}

void CBaseSet::RemoveMember (const CRemoteObject* member)
{
    std::erase (members, member);
}

void CBaseSet::UnionWith (const CBaseSet& other)
{
    if (&other == this)
        return;

    for (auto* const member : other.members)
        AddMember (member);
}

CRemoteObject* CBaseSet::GetMemberN (std::int32_t number) const
{
    if (number < 1 || number > GetNumMembers())
        return nullptr;

    return members[static_cast<std::size_t> (number - 1)];
}
