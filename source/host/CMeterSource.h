// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the meter list asks of the process that it belongs to.

#pragma once

#include <cstdint>

/** Implemented by the process. All calls come from the host's main thread. */
class CMeterSource
{
public:
    virtual ~CMeterSource() = default;

    /** [host-main] The host's code for the kind of plug-in that the process is an instance of. */
    virtual std::int32_t GetPlugInType() const = 0;

    /** [host-main] Writes the levels and the clip flags since the last call, one of each for every meter. The
        arrays are the ones given to CMeterManager::AccessMeters, null if the process has no meters. */
    virtual void GetMetersFromDSPorRTAS (std::int32_t* values, bool* clips) = 0;

    /** [host-main] Whether a block has been rendered since the last call of this. In one step: the audio
       thread may be setting the flag at the same time. */
    virtual bool TestAndClearMetersReady() noexcept = 0;
};
