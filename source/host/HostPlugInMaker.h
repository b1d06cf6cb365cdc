// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// What a native real-time type asks of its processes: to announce themselves to the host's real-time engine.

#pragma once

#include "HostInterface.h"

#include <cstdint>

/** Implemented by processes that run natively. */
class HostPlugInMaker
{
public:
    virtual ~HostPlugInMaker() = default;

    /** [host-main] Called once, on a process that is initialised. Returns a FicResult; on an error the
       process is freed again. */
    virtual std::int32_t CreateHostPlugIn (SFicPlugInId id) = 0;
};
