// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Makes an object known to the host's engine before its first message.

#include "CRemoteObject.h"

#include "DAERemoteObject.h"

CRemoteObject::CRemoteObject (FicRemoteObjectKind kind)
    : remoteKind (kind)
{
}

void CRemoteObject::RegisterWithDAE()
{
    if (! isRegistered)
        isRegistered = DAERemoteObjectRegister (this, remoteKind);
}

void CRemoteObject::SendToDAE (const CPlugInBuffer& message)
{
    RegisterWithDAE();
    DAERemoteObjectCall (this, message);
}
