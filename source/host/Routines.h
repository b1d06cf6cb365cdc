// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The numbered routines that a host calls.

#pragma once

#include "HostInterface.h"

#include <cstdint>

/** [host-main] Sets `*routine` to the selector's routine and returns 0, or to null and returns
 * ficNoSuchRoutine. */
extern "C" std::int32_t PI_GetRoutineDescriptor (std::int32_t selector, FicRoutine* routine);
