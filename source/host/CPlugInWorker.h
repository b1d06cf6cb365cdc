// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The function that renders, as the host's engine is told about it.

#pragma once

#include "CBaseSet.h"
#include "CRemoteObject.h"

#include <array>
#include <string>

class CPlugIn;

/** A worker function with the data blocks that it gets. */
class CPlugInWorker : public CRemoteObject
{
public:
    /** The host keeps the address of the name's text for the life of this object. */
    CPlugInWorker (CPlugIn& owner, FicWorkerProc function, std::string name);

    void DescribeToDAE() override;

    /** [host-main] */
    CPlugIn& GetPlugIn() const noexcept { return plugIn; }
    FicWorkerProc GetFunction() const noexcept { return workerFunction; }

    CBaseSet dataObjects;

private:
    std::array<CBaseSet, 3> otherObjects; // nothing goes there, but the host expects them
    CPlugIn& plugIn;
    FicWorkerProc workerFunction;
    const std::string workerName;
};
