// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The one place where the group meets the plug-in whose group it is. It stands with the entry points, so that
// groups can be used where there is no plug-in.

#include "CProcessGroup.h"

#include "platform/WindowSystem.h"

CProcessGroup* CProcessGroup::CreateProcessGroup()
{
    platform::initialiseMacRTAS();
    return makePlugInGroup();
}
