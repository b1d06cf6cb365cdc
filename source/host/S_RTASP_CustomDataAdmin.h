// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The data block by which a worker knows which instance it renders, and how.

#pragma once

#include "CPlugInData.h"
#include "HostInterface.h"

#include <cstddef>
#include <cstdint>

class CProcess;

/** The block as the worker reads it. */
struct SRTASPCustomData
{
    CProcess* process;
    DAEConnection** inputConnections;
    DAEConnection** outputConnections;
    std::int32_t numInputs, numOutputs; ///< audio channels, without a side chain
    std::int32_t sidechainPort;         ///< counts from 1; 0 for none
    std::int32_t variableQuanta;        ///< not 0 if blocks have the length that the globals say
};

#if UINTPTR_MAX == UINT64_MAX
static_assert (sizeof (SRTASPCustomData) == 40 && offsetof (SRTASPCustomData, inputConnections) == 8
               && offsetof (SRTASPCustomData, outputConnections) == 16
               && offsetof (SRTASPCustomData, numInputs) == 24
               && offsetof (SRTASPCustomData, numOutputs) == 28
               && offsetof (SRTASPCustomData, sidechainPort) == 32
               && offsetof (SRTASPCustomData, variableQuanta) == 36);
#endif

/** The block's two copies. */
class S_RTASP_CustomDataAdmin : public CPlugInData
{
public:
    S_RTASP_CustomDataAdmin()
        : CPlugInData (sizeof (SRTASPCustomData))
    {
    }

    /** [host-main] Sets all seven members of the local copy. */
    void SetAll (const SRTASPCustomData& values);

    /** [host-main] The members, each read by Access(). */
    SRTASPCustomData GetAll();
};
