// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Describes a port by its owner and its number.

#include "CPlugInPort.h"

#include "CPlugIn.h"
#include "CPlugInOutputStream.h"

namespace
{
constexpr std::int32_t portDescription = 1;
} // namespace

CPlugInPort::CPlugInPort (FicRemoteObjectKind kind,
                          CPlugIn& owner,
                          const CBaseSet& siblings,
                          std::int32_t number)
    : CRemoteObject (kind),
      plugIn (owner),
      portNumber (number != 0 ? number : siblings.GetNumMembers() + 1)
{
}

void CPlugInPort::DescribeToDAE()
{
    CPlugInBuffer message;
    CPlugInOutputStream stream (message);
    stream.WriteNumber (portDescription);
    stream.WriteReference (static_cast<CRemoteObject*> (&plugIn));
    stream.WriteNumber (portNumber);
    SendToDAE (message);
}

CPlugInInput::CPlugInInput (CPlugIn& owner, std::int32_t number)
    : CPlugInPort (ficRemoteInput, owner, owner.inputs, number)
{
}

CPlugInOutput::CPlugInOutput (CPlugIn& owner, std::int32_t number)
    : CPlugInPort (ficRemoteOutput, owner, owner.outputs, number)
{
}
