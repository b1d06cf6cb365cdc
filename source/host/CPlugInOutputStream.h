// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Turns numbers, references and sets of objects into the words of a message.

#pragma once

#include "CBaseSet.h"
#include "CPlugInBuffer.h"
#include "HostInterface.h"

#include <cstdint>

/** Appends to a buffer that must outlive it. */
class CPlugInOutputStream
{
public:
    explicit CPlugInOutputStream (CPlugInBuffer& bufferToFill) noexcept
        : buffer (bufferToFill)
    {
    }

    /** [host-main] Negative numbers keep their sign in the wider word. */
    void WriteNumber (std::int32_t number);

    /** [host-main] A four-character code. */
    void WriteCode (std::uint32_t code) { buffer.AppendWord (code); }

    /** [host-main] The address as it is: of an object, or of text that lives as long as the object that it
     * describes. */
    void WriteReference (const void* address);

    /** [host-main] A word of the host's that goes back to it. */
    void WriteWord (std::uintptr_t word) { buffer.AppendWord (word); }

    /** [host-main] */
    void WriteFunction (FicWorkerProc function);

    /** [host-main] The number of members, then a reference to each, which is registered before. */
    void WriteSet (const CBaseSet& set);

private:
    CPlugInBuffer& buffer;
};
