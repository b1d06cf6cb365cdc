// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Appends numbers, addresses and sets as words, and registers the members of each set.

#include "CPlugInOutputStream.h"

#include "CRemoteObject.h"

void CPlugInOutputStream::WriteNumber (std::int32_t number)
{
    buffer.AppendWord (static_cast<std::uintptr_t> (static_cast<std::intptr_t> (number)));
}

void CPlugInOutputStream::WriteReference (const void* address)
{
    buffer.AppendWord (reinterpret_cast<std::uintptr_t> (address));
}

void CPlugInOutputStream::WriteFunction (FicWorkerProc function)
{
    buffer.AppendWord (reinterpret_cast<std::uintptr_t> (function));
}

void CPlugInOutputStream::WriteSet (const CBaseSet& set)
{
    WriteNumber (set.GetNumMembers());

    for (std::int32_t number = 1; number <= set.GetNumMembers(); ++number)
    {
        auto* const member = set.GetMemberN (number);
        member->RegisterWithDAE();
        WriteReference (member);
    }
}
