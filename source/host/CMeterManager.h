// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The numbered list of a plug-in's meters, shared by several readers.

#pragma once

#include "CMeterSource.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

/** The host's code for plug-ins that render on the computer itself. */
inline constexpr std::int32_t rtasPlugInType = 3;

/** One meter and what its last reader saw. */
struct MeterRecord
{
    std::int32_t value = 0; // the level that was fetched last
    char lastClient = 0;    // who read it
    bool clipped = false;
    char type = 0; // the host's codes
    char orientation = 0;
};

/** Readers name themselves with a byte. Indices count from 1. Levels are fetched from the process at most
   every second tick, so that many readers cost no more than one. */
class CMeterManager
{
public:
    static constexpr std::int32_t allMeters = -1;

    /** `tickCount` gives the time in 60ths of a second; it may wrap. */
    explicit CMeterManager (std::function<std::uint32_t()> tickCount);

    /** [host-main] `owner` outlives this object. Until then there is nothing to fetch. */
    void Init (CMeterSource* owner);

    /** [host-main] Appends a meter, before the host can name one. */
    void AddMeter (char type, char orientation);

    /** [host-main] */
    std::int32_t GetNumberOfMeters() const noexcept { return static_cast<std::int32_t> (meters.size()); }

    /** [host-main] Null if there is no meter of that index. Lives as long as this object. */
    const MeterRecord* GetMeter (std::int32_t index) const noexcept;

    /** [host-main] */
    std::int32_t GetNumMetersOfType (char type) const noexcept;

    /** [host-main] The index of the `n`-th meter of a type, where the first has `n` 1; 0 if there are not as
     * many. */
    std::int32_t GetMeterIndexByType (char type, std::int32_t n) const noexcept;

    /** [host-main] Reads the levels for `client`. `values` and `clips` hold one entry for each meter and come
       back filled; `value`, if not null, gets the level of the meter `index`, or 0 if there is none, and is
       left alone for allMeters. A reader that takes over from another is shown the last level if it is the
       higher one, so that no reader takes a peak away from the rest. With `clear`, all levels and clip flags
       are dropped. */
    void AccessMeters (
        char client, std::int32_t* values, bool* clips, std::int32_t index, std::int32_t* value, bool clear);

private:
    bool fetchIfDue (std::int32_t* values, bool* clips);
    void clearMeters (std::int32_t* values, bool* clips);

    std::uint32_t lastUpdateTick = 0;
    CMeterSource* process = nullptr;
    std::int32_t plugInType = 0;
    std::vector<std::unique_ptr<MeterRecord>> meters;
    std::function<std::uint32_t()> ticks;
};
