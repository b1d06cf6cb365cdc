// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The host's count of who uses the bundle that the plug-in was loaded from.

#include "Bundle.h"

#include "HostLibrary.h"

namespace platform
{
namespace
{
// Bundles are counted before the framework is looked up and after it may have gone, hence not through its
// stubs.
template <typename Proc>
void callIfThere (const char* name, CFBundleRef bundle)
{
    if (const auto function = findHostFunction (name); function != nullptr)
        reinterpret_cast<Proc> (function) (bundle);
}
} // namespace

void retainBundle (CFBundleRef bundle)
{
    callIfThere<FicRetainBundleProc> ("FicRetainBundle", bundle);
}

void releaseBundle (CFBundleRef bundle)
{
    callIfThere<FicReleaseBundleProc> ("FicReleaseBundle", bundle);
}
} // namespace platform
