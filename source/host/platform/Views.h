// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Whether there can be views at all.

#pragma once

namespace platform
{
/** [host-main] True if processes are to make no views. */
bool NoViews() noexcept;

/** [host-main] For programs that link the adapter and show nothing. Counts for processes made from now on. */
void setNoViews (bool none) noexcept;
} // namespace platform
