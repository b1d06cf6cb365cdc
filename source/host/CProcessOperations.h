// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The routines that concern one instance, as the operations of a class that knows nothing better.

#pragma once

#include "RoutineRows.h"

#include <cstdint>

/** One virtual operation for each PROCESS row of FIC_ROUTINES, with the row's parameters. Here each gives the
    row's neutral answer. All operations are [host-main] and return a FicResult. */
class CProcessOperations
{
public:
    CProcessOperations() = default;
    virtual ~CProcessOperations();

    CProcessOperations (const CProcessOperations&) = delete;
    CProcessOperations& operator= (const CProcessOperations&) = delete;

#define PROCESS_OPERATION(selector, Name, answer, parameters, names)                                         \
    virtual std::int32_t Name (FIC_REST parameters);

    FIC_ROUTINES (FIC_SKIP, FIC_SKIP, PROCESS_OPERATION, FIC_SKIP)

#undef PROCESS_OPERATION
};
