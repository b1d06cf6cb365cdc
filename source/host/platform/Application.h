// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// What some platforms want around a plug-in's use of their window system. X11 wants nothing of it.

#pragma once

namespace platform
{
/** [host-main] Lives around calls that make temporary objects of the platform. */
class AutoreleaseScope
{
public:
    AutoreleaseScope() noexcept {} // not defaulted: a scope nobody reads is not an unused variable
    ~AutoreleaseScope() {}

    AutoreleaseScope (const AutoreleaseScope&) = delete;
    AutoreleaseScope& operator= (const AutoreleaseScope&) = delete;
};
} // namespace platform
