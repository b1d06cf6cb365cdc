// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Fetches levels when they are due, and shows one reader the peaks that another one has fetched.

#include "CMeterManager.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace
{
constexpr std::uint32_t ticksBetweenUpdates = 2;
}

CMeterManager::CMeterManager (std::function<std::uint32_t()> tickCount)
    : ticks (std::move (tickCount))
{
}

void CMeterManager::Init (CMeterSource* owner)
{
    process = owner;
    plugInType = owner == nullptr ? 0 : owner->GetPlugInType();

    // The first read fetches, however long the machine has been running.
    lastUpdateTick = ticks() - ticksBetweenUpdates;
}

void CMeterManager::AddMeter (char type, char orientation)
{
    auto meter = std::make_unique<MeterRecord>();
    meter->type = type;
    meter->orientation = orientation;
    meters.push_back (std::move (meter));
}

const MeterRecord* CMeterManager::GetMeter (std::int32_t index) const noexcept
{
    return index >= 1 && index <= GetNumberOfMeters() ? meters[static_cast<std::size_t> (index - 1)].get()
                                                      : nullptr;
}

std::int32_t CMeterManager::GetNumMetersOfType (char type) const noexcept
{
    return static_cast<std::int32_t> (std::count_if (
        meters.begin(), meters.end(), [type] (const auto& meter) { return meter->type == type; }));
}

std::int32_t CMeterManager::GetMeterIndexByType (char type, std::int32_t n) const noexcept
{
    std::int32_t numSeen = 0;

    for (std::int32_t index = 1; index <= GetNumberOfMeters(); ++index)
        if (GetMeter (index)->type == type && ++numSeen == n)
            return index;

    return 0;
}

void CMeterManager::AccessMeters (
    char client, std::int32_t* values, bool* clips, std::int32_t index, std::int32_t* value, bool clear)
{
    if (clear)
    {
        clearMeters (values, clips);
        return;
    }

    const bool wantsOne = index != allMeters && value != nullptr;

    if (wantsOne)
        *value = 0;

    const bool isFresh = fetchIfDue (values, clips);

    if (values == nullptr || clips == nullptr)
        return;

    for (std::size_t i = 0; i < meters.size(); ++i)
    {
        auto& meter = *meters[i];
        auto shown = meter.value;

        if (isFresh)
        {
            const auto fresh = values[i];
            shown = meter.lastClient == client ? fresh : std::max (meter.value, fresh);
            meter.value = fresh;
            meter.lastClient = client;
            meter.clipped = clips[i];
        }

        values[i] = shown;
        clips[i] = meter.clipped;

        if (wantsOne && index == static_cast<std::int32_t> (i + 1))
            *value = shown;
    }
}

/** Returns whether the arrays now have fresh levels. */
bool CMeterManager::fetchIfDue (std::int32_t* values, bool* clips)
{
    if (process == nullptr)
        return false;

    const auto now = ticks();

    // As a signed difference, so that it holds when the count wraps.
    if (static_cast<std::int32_t> (now - lastUpdateTick) < static_cast<std::int32_t> (ticksBetweenUpdates))
        return false;

    // Cleared before the fetch: a block that ends meanwhile counts for the next one.
    const bool hasRendered = process->TestAndClearMetersReady();

    if (plugInType == rtasPlugInType && ! hasRendered)
        return false;

    lastUpdateTick = now;
    process->GetMetersFromDSPorRTAS (values, clips);
    return true;
}

void CMeterManager::clearMeters (std::int32_t* values, bool* clips)
{
    if (process != nullptr)
        process->GetMetersFromDSPorRTAS (values, clips);

    for (auto& meter : meters)
    {
        meter->value = 0;
        meter->clipped = false;
    }
}
