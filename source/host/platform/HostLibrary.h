// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Looks up what the running program, the host, exports.

#pragma once

namespace platform
{
/** Any function of the host, until it is cast to its own type. */
using HostFunction = void (*)();
using HostLookup = HostFunction (*) (const char* name);

/** [host-main] The host's function of that name, or null. */
HostFunction findHostFunction (const char* name);

/** [host-main] Looks elsewhere from now on; null goes back to the running program. For tests and programs
   that link the adapter. */
void setHostLookup (HostLookup lookup) noexcept;
} // namespace platform
