// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "CRemoteObject.h"

#include "DAERemoteObject.h"

CRemoteObject::CRemoteObject (FicRemoteObjectKind kind)
{
    DAERemoteObjectRegister (this, kind);
}

void CRemoteObject::SendToDAE (const CPlugInBuffer& message)
{
    DAERemoteObjectCall (this, message);
}
