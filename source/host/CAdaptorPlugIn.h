// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// A process as the host's real-time engine is told about it.

#pragma once

#include "CPlugIn.h"
#include "CPlugInPort.h"
#include "CPlugInWorker.h"
#include "S_RTASP_CustomDataAdmin.h"

#include <memory>
#include <string>
#include <vector>

class CProcess;

/** Has as many ports as the process has channels, and one for a side chain and for each channel of its
   auxiliary outputs if its type has them. Whoever destroys it tells the host, with a last description that
   has no ports. */
class CAdaptorPlugIn : public CPlugIn
{
public:
    /** A null `workerFunction` stands for the generic worker. The connections and the process outlive this
       object. Throws -9006, as an std::int32_t, if memory runs out. */
    CAdaptorPlugIn (const SFicPlugInId& newId,
                    CProcess& process,
                    DAEConnection** inputConnections,
                    DAEConnection** outputConnections,
                    FicWorkerProc workerFunction);

    ~CAdaptorPlugIn() override;

    static constexpr std::int32_t maxWorkerNameLength = 64;

private:
    void makePorts (std::int32_t sidechainPort);

    std::int16_t numInputPorts = 0, numOutputPorts = 0; // the side chain and auxiliary outputs included
    std::vector<std::unique_ptr<CPlugInPort>> ports;
    std::unique_ptr<CPlugInWorker> worker;
    S_RTASP_CustomDataAdmin customData;
};
