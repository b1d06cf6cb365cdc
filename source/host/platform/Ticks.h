// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The host's clock, in sixtieths of a second.

#pragma once

#include <cstdint>

namespace platform
{
using TickSource = std::int64_t (*)();

/** [any] Ticks of 1/60 s since some fixed moment. Never goes back. */
std::int64_t TickCount();

/** [host-main] Reads another clock from now on; null goes back to the machine's. For tests. */
void setTickSource (TickSource source) noexcept;
} // namespace platform
