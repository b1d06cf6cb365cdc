// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Counts the calls of each point and lets those fail that are meant to.

#include "HostFaults.h"

#include <limits>
#include <new>

namespace refhost
{
void HostFaults::fail (HostPoint point, Kind kind, int firstCall, int numCalls, std::int32_t code)
{
    auto& plan = planOf (point);
    const int first = plan.numCalls + firstCall;
    plan.lastFailure = -1;
    plan.kind = kind;
    plan.code = code;
    plan.firstFailure = first;
    plan.lastFailure = numCalls == forEver ? std::numeric_limits<int>::max() : first + numCalls - 1;
}

void HostFaults::clear()
{
    for (auto& plan : plans)
        plan.lastFailure = -1;
}

std::int32_t HostFaults::next (HostPoint point)
{
    auto& plan = planOf (point);
    const int call = ++plan.numCalls;

    if (call < plan.firstFailure || call > plan.lastFailure)
        return ficSuccess;

    if (plan.kind == Kind::badAlloc)
        throw std::bad_alloc();

    if (plan.kind == Kind::exception)
        throw "thrown by the host";

    return plan.code;
}

int HostFaults::getNumCalls (HostPoint point) const noexcept
{
    return plans[static_cast<std::size_t> (point)].numCalls;
}
} // namespace refhost
