// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Which group a test gets where a plug-in would make its own.

#include "host/GroupMaker.h"

#include "host/CProcessGroup.h"

CProcessGroup* (*groupMaker)() = nullptr;

CProcessGroup* makePlugInGroup()
{
    return groupMaker == nullptr ? nullptr : groupMaker();
}
