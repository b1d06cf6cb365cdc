// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// When levels are fetched, and what each reader sees of them.

#include <gtest/gtest.h>
#include <host/CMeterManager.h>

#include <array>
#include <cstdint>
#include <utility>

namespace
{
constexpr char mixer = 'm';
constexpr char window = 'w';
constexpr std::int32_t cardPlugInType = 1;

/** A process with two meters. */
class FakeProcess : public CMeterSource
{
public:
    std::int32_t GetPlugInType() const override { return type; }

    void GetMetersFromDSPorRTAS (std::int32_t* values, bool* clips) override
    {
        ++numFetches;

        for (std::size_t i = 0; values != nullptr && i < levels.size(); ++i)
        {
            values[i] = levels[i];
            clips[i] = clipFlags[i];
        }
    }

    bool TestAndClearMetersReady() noexcept override { return std::exchange (ready, false); }

    std::int32_t type = rtasPlugInType;
    std::array<std::int32_t, 2> levels {};
    std::array<bool, 2> clipFlags {};
    bool ready = true;
    int numFetches = 0;
};

class MeterManager : public testing::Test
{
protected:
    void SetUp() override
    {
        meters.AddMeter ('i', 0);
        meters.AddMeter ('o', 0);
        meters.Init (&process);
    }

    /** A block is rendered, the clock goes on, a reader comes. */
    std::int32_t readAfterBlock (char client, std::int32_t index, std::int32_t level)
    {
        process.levels = { level, level + 1 };
        process.ready = true;
        now += 2;
        return read (client, index);
    }

    std::int32_t read (char client, std::int32_t index)
    {
        std::int32_t value = -1;
        meters.AccessMeters (client, values.data(), clips.data(), index, &value, false);
        return value;
    }

    FakeProcess process;
    std::uint32_t now = 1000;
    CMeterManager meters { [this] { return now; } };
    std::array<std::int32_t, 2> values {};
    std::array<bool, 2> clips {};
};

TEST_F (MeterManager, FetchesAtMostEverySecondTick)
{
    EXPECT_EQ (readAfterBlock (mixer, 1, 10), 10);
    process.levels = { 20, 21 };
    process.ready = true;
    EXPECT_EQ (read (mixer, 1), 10);
    ++now;
    EXPECT_EQ (read (mixer, 2), 11);
    EXPECT_TRUE (process.ready) << "a read that fetches nothing leaves the flag";
    ++now;
    EXPECT_EQ (read (mixer, 2), 21);
    EXPECT_FALSE (process.ready);
    EXPECT_EQ (process.numFetches, 2);
}

TEST_F (MeterManager, KeepsItsPaceWhenTheClockWraps)
{
    now = 0xfffffffd;
    meters.Init (&process);
    EXPECT_EQ (readAfterBlock (mixer, 1, 10), 10); // at the last tick before 0
    process.ready = true;
    process.levels = { 20, 20 };
    ++now;
    EXPECT_EQ (read (mixer, 1), 10);
    ++now;
    EXPECT_EQ (read (mixer, 1), 20);
}

TEST_F (MeterManager, WaitsForABlockOnTheComputerOnly)
{
    for (const auto& [type, expected] : { std::pair (rtasPlugInType, 10), std::pair (cardPlugInType, 20) })
    {
        process.type = type;
        meters.Init (&process);
        EXPECT_EQ (readAfterBlock (mixer, 1, 10), 10);
        process.levels = { 20, 20 };
        now += 100;
        EXPECT_EQ (read (mixer, 1), expected) << "type " << type;
    }
}

TEST_F (MeterManager, ShowsAPeakToEachReader)
{
    EXPECT_EQ (readAfterBlock (mixer, 1, 90), 90);
    EXPECT_EQ (readAfterBlock (window, 1, 20), 90) << "the mixer's peak, handed on";
    EXPECT_EQ (readAfterBlock (window, 1, 15), 15) << "its own last level is no peak";
    EXPECT_EQ (readAfterBlock (mixer, 1, 40), 40) << "higher than what the window saw";
    EXPECT_EQ (readAfterBlock (window, CMeterManager::allMeters, 5), -1);
    EXPECT_EQ (values, (std::array<std::int32_t, 2> { 40, 41 }));
    EXPECT_EQ (meters.GetMeter (1)->value, 5);
}

TEST_F (MeterManager, ClearingDropsLevelsAndClips)
{
    process.clipFlags = { false, true };
    readAfterBlock (mixer, 2, 50);
    EXPECT_EQ (clips, process.clipFlags);

    meters.AccessMeters (mixer, values.data(), clips.data(), CMeterManager::allMeters, nullptr, true);
    EXPECT_EQ (process.numFetches, 2) << "what had gathered in the process is gone, too";
    EXPECT_EQ (read (mixer, 2), 0);
    EXPECT_EQ (clips, (std::array<bool, 2> {}));
}

TEST_F (MeterManager, BadIndicesReadZero)
{
    for (std::int32_t index : { 0, 3, -2 })
    {
        EXPECT_EQ (readAfterBlock (mixer, index, 50), 0) << index;
        EXPECT_EQ (meters.GetMeter (index), nullptr) << index;
    }
}

TEST_F (MeterManager, FindsMetersByType)
{
    meters.AddMeter ('i', 0);
    EXPECT_EQ (meters.GetNumMetersOfType ('i'), 2);
    EXPECT_EQ (meters.GetNumMetersOfType ('x'), 0);
    EXPECT_EQ (meters.GetMeterIndexByType ('i', 1), 1);
    EXPECT_EQ (meters.GetMeterIndexByType ('i', 2), 3);
    EXPECT_EQ (meters.GetMeterIndexByType ('i', 3), 0);
    EXPECT_EQ (meters.GetMeterIndexByType ('i', 0), 0);
    EXPECT_EQ (meters.GetMeterIndexByType ('o', 1), 2);
}

TEST_F (MeterManager, DoesWithoutMetersOrProcess)
{
    CMeterManager empty ([this] { return now; });
    std::int32_t value = -1;
    empty.AccessMeters (mixer, nullptr, nullptr, 1, &value, false);
    EXPECT_EQ (value, 0) << "before it has a process";

    empty.Init (&process);
    value = -1;
    empty.AccessMeters (mixer, nullptr, nullptr, 1, &value, false);
    empty.AccessMeters (mixer, nullptr, nullptr, CMeterManager::allMeters, nullptr, true);
    EXPECT_EQ (value, 0);
    EXPECT_EQ (process.numFetches, 2);
}
} // namespace
