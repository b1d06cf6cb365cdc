// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The ports of a plug-in as the host's engine is told about them.

#pragma once

#include "CRemoteObject.h"

#include <cstdint>

class CBaseSet;
class CPlugIn;

/** One input or output. */
class CPlugInPort : public CRemoteObject
{
public:
    void DescribeToDAE() override;

    /** [host-main] Counts from 1. */
    std::int32_t GetPortNumber() const noexcept { return portNumber; }

    /** [host-main] The host's word for what is connected, 0 when the port is open. */
    std::uintptr_t GetConnection() const noexcept { return connection; }
    void SetConnection (std::uintptr_t newConnection) noexcept { connection = newConnection; }

protected:
    CPlugInPort (FicRemoteObjectKind kind, CPlugIn& owner, const CBaseSet& siblings, std::int32_t number);

private:
    std::uintptr_t connection = 0;
    CPlugIn& plugIn;
    std::int32_t portNumber;
};

/** An input. With a number of 0 it takes the next one in the plug-in's set. */
class CPlugInInput : public CPlugInPort
{
public:
    CPlugInInput (CPlugIn& owner, std::int32_t number);
};

/** An output. With a number of 0 it takes the next one in the plug-in's set. */
class CPlugInOutput : public CPlugInPort
{
public:
    CPlugInOutput (CPlugIn& owner, std::int32_t number);
};
