// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Calls of the host's remote object manager, through which its real-time engine learns of the plug-in.

#pragma once

#include "CPlugInBuffer.h"
#include "HostInterface.h"

#include <cstdint>

/** [host-main] Makes an object known, so that its address can stand in messages. Without a manager does
   nothing and returns false. */
bool DAERemoteObjectRegister (void* object, FicRemoteObjectKind kind);

/** [host-main] Sends a message to an object. Does nothing without a manager. */
void DAERemoteObjectCall (void* object, const CPlugInBuffer& message);

/** [host-main] The manager is asked for at the first call above, from the callback that the host has set, and
   a refusal is final. Forgetting asks anew, which a new callback needs. */
void DAERemoteObjectForgetManager();
