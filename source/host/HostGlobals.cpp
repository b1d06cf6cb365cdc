// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The globals of one loaded bundle.

#include "HostGlobals.h"

CProcessGroup* gProcessGroup = nullptr;
FicObject gOurFicServer = nullptr;
FicObject gOurTokenTask = nullptr;
std::int16_t gInstanciationNum = 0;
FicXCMDProc gXCMDProcPtr = nullptr;
