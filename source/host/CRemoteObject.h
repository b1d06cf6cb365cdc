// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Base of everything that the host's real-time engine is told about.

#pragma once

#include "CPlugInBuffer.h"
#include "HostInterface.h"

/** An object whose address the host knows. It never moves. References to it in messages are addresses of this
 * base. */
class CRemoteObject
{
public:
    virtual ~CRemoteObject() = default;

    CRemoteObject (const CRemoteObject&) = delete;
    CRemoteObject& operator= (const CRemoteObject&) = delete;

    /** [host-main] Sends the object's description. */
    virtual void DescribeToDAE() = 0;

    /** [host-main] Makes the object known to the host if it is not yet, as it must be before a message refers
       to it. What never comes to that, as after a constructor that threw, the host does not remember. */
    void RegisterWithDAE();

protected:
    explicit CRemoteObject (FicRemoteObjectKind kind);

    /** [host-main] Sends a message to this object, registered before the first one. */
    void SendToDAE (const CPlugInBuffer& message);

private:
    FicRemoteObjectKind remoteKind;
    bool isRegistered = false;
};
