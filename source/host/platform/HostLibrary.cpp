// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Looks up what the running program, the host, exports.

#include "HostLibrary.h"

#include <dlfcn.h>

namespace platform
{
namespace
{
HostFunction findInProgram (const char* name)
{
    return reinterpret_cast<HostFunction> (dlsym (RTLD_DEFAULT, name));
}

HostLookup currentLookup = findInProgram;
} // namespace

HostFunction findHostFunction (const char* name)
{
    return currentLookup (name);
}

void setHostLookup (HostLookup lookup) noexcept
{
    currentLookup = lookup == nullptr ? findInProgram : lookup;
}
} // namespace platform
