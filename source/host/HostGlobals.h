// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// What all parts of the adapter share, once per loaded bundle. [host-main]

#pragma once

#include "HostInterface.h"

#include <cstdint>

class CProcessGroup;

/** From NewMachOPlugIn to CloseMachOPlugIn; owned by the entry points. */
extern CProcessGroup* gProcessGroup;

/** The host's objects: null until there is an instance and the host offers them. The group releases them. */
extern FicObject gOurFicServer;
extern FicObject gOurTokenTask;

/** Instances made so far; never lowered. */
extern std::int16_t gInstanciationNum;

/** From SetXCMDProc; may be null. */
extern FicXCMDProc gXCMDProcPtr;
