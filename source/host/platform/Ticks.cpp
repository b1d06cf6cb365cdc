// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The host's clock, in sixtieths of a second.

#include "Ticks.h"

#include <chrono>

namespace platform
{
namespace
{
constexpr std::int64_t ticksPerSecond = 60;
constexpr std::int64_t millisecondsPerSecond = 1000;

std::int64_t machineTicks()
{
    using namespace std::chrono;
    const auto now = duration_cast<milliseconds> (steady_clock::now().time_since_epoch());
    return static_cast<std::int64_t> (now.count()) * ticksPerSecond / millisecondsPerSecond;
}

TickSource currentSource = machineTicks;
} // namespace

std::int64_t TickCount()
{
    return currentSource();
}

void setTickSource (TickSource source) noexcept
{
    currentSource = source == nullptr ? machineTicks : source;
}
} // namespace platform
