// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Copies members between the record here and the one in the host's memory.

#include "CSmartStructure.h"

#include <cstring>

CSmartStructure::CSmartStructure (std::size_t sizeInBytes)
    : localCopy (sizeInBytes)
{
}

void* CSmartStructure::Access (SmartMember member)
{
    auto* const local = localCopy.data() + member.offset;

    if (hostAddress != 0)
        std::memcpy (local, reinterpret_cast<const std::byte*> (hostAddress) + member.offset, member.size);

    return local;
}

void CSmartStructure::SetMember (SmartMember member, const void* bytes)
{
    std::memcpy (localCopy.data() + member.offset, bytes, member.size);
}

void CSmartStructure::UpdateAddress()
{
    if (hostAddress != 0)
        std::memcpy (reinterpret_cast<void*> (hostAddress), localCopy.data(), localCopy.size());
}
