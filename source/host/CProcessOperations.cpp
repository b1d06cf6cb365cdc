// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The routines that concern one instance, as the operations of a class that knows nothing better.

#include "CProcessOperations.h"

CProcessOperations::~CProcessOperations() = default;

#define PROCESS_OPERATION(selector, Name, answer, parameters, names)                                         \
    std::int32_t CProcessOperations::Name (FIC_REST parameters)                                              \
    {                                                                                                        \
        return host::neutralAnswer<answer> (FIC_REST names);                                                 \
    }

FIC_ROUTINES (FIC_SKIP, FIC_SKIP, PROCESS_OPERATION, FIC_SKIP)

#undef PROCESS_OPERATION
