// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The host's count of who uses the bundle that the plug-in was loaded from.

#pragma once

#include "../HostInterface.h"

namespace platform
{
/** [host-main] Counts one more or one less user of the bundle, if the host can count. */
void retainBundle (CFBundleRef bundle);
void releaseBundle (CFBundleRef bundle);
} // namespace platform
