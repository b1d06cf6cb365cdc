// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// A record that is kept twice: here, and in memory of the host's once the host has said where.

#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

/** Where a member lies in the record, in bytes. */
struct SmartMember
{
    std::size_t offset, size;
};

/** Knows nothing of what the bytes mean. The local copy starts as zeros. */
class CSmartStructure
{
public:
    explicit CSmartStructure (std::size_t sizeInBytes);
    virtual ~CSmartStructure() = default;

    CSmartStructure (const CSmartStructure&) = delete;
    CSmartStructure& operator= (const CSmartStructure&) = delete;

    /** [host-main] */
    std::size_t GetSize() const noexcept { return localCopy.size(); }

    /** [host-main] The local copy of a member, read from the host's memory first if that is known. */
    void* Access (SmartMember member);

    /** [host-main] Writes a member's bytes into the local copy. UpdateAddress() takes them to the host. */
    void SetMember (SmartMember member, const void* bytes);

    /** [host-main] Copies the local copy to the host's memory. Does nothing while that is not known. */
    void UpdateAddress();

protected:
    /** The word that the host writes the address of its own record into; 0 until then. */
    std::uintptr_t hostAddress = 0;

private:
    std::vector<std::byte> localCopy;
};
