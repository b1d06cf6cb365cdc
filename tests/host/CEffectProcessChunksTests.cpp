// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The chunks of an instance: which there are, their bytes, and what comparing and loading them does.

#include "host/ControlledProcess.h"
#include "host/FakeTokenHost.h"
#include "support/NamedRows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <host/CPluginControl_OnOff.h>
#include <host/ChunkDataParser.h>
#include <host/FourCC.h>

#include <array>
#include <cstdint>
#include <cstring>
#include <limits>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace
{
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::int32_t bottom = longControlBottom;
constexpr std::uint32_t controlsChunk = fourCC ("elck");
constexpr std::uint32_t customChunk = fourCC ("own1");

/** A chunk in memory of its own size, as a host keeps it. */
class ChunkMemory
{
public:
    explicit ChunkMemory (std::size_t size)
        : bytes (new unsigned char[size] {})
    {
    }

    SFicPlugInChunk* get() { return reinterpret_cast<SFicPlugInChunk*> (bytes.get()); }
    const unsigned char* body() const { return bytes.get() + ficChunkHeaderSize; }

private:
    std::unique_ptr<unsigned char[]> bytes;
};

std::unique_ptr<CPluginControl_OnOff> bypassControl()
{
    return std::make_unique<CPluginControl_OnOff> (fourCC ("bypa"), "Bypass", 0, true, nullptr, nullptr);
}

/** A bypass, a continuous, a discrete and a plain control, in that order. */
class ChunkFixture
{
public:
    ChunkFixture()
    {
        process.add (bypassControl());
        process.DefineMasterBypassControlIndex (1);
        width = process.add (std::make_unique<ContinuousTestControl> (fourCC ("widt")));
        mode =
            process.add (std::make_unique<CPluginControl_Discrete> (fourCC ("mode"), "Mode", -5, 5, 0, true));
        process.add (std::make_unique<PlainTestControl> ("Plain", fourCC ("plan")));
        process.Initialize();
    }

    static ChunkMemory makeChunk (const std::map<const char*, double>& doubles,
                                  const std::map<const char*, std::int32_t>& integers)
    {
        ChunkDataParser parser;

        for (const auto& [name, value] : integers)
            parser.AddInt32 (name, value);

        for (const auto& [name, value] : doubles)
            parser.AddDouble (name, value);

        ChunkMemory chunk (static_cast<std::size_t> (parser.GetChunkSize()));
        parser.GetChunkData (chunk.get());
        chunk.get()->chunkID = controlsChunk;
        return chunk;
    }

    ControlledProcess process;
    ContinuousTestControl* width;
    CPluginControl_Discrete* mode;
};

TEST (CEffectProcessChunks, AreListedWithTheControlsOnlyIfThereAreSomeBesideTheBypass)
{
    for (const bool hasControl : { false, true })
    {
        ControlledProcess process;
        process.AddChunk (fourCC ("midi"), "MIDI", -152);
        process.AddChunk (customChunk, "Own", 44);
        process.add (bypassControl());
        process.DefineMasterBypassControlIndex (1);

        if (hasControl)
            process.add (std::make_unique<PlainTestControl> ("Plain", 1));

        process.Initialize();
        std::vector<std::uint32_t> ids { fourCC ("midi"), customChunk };

        if (hasControl)
            ids.insert (ids.begin(), controlsChunk);

        std::int32_t numChunks = 0;
        EXPECT_EQ (process.GetNumChunks (&numChunks), 0);
        ASSERT_EQ (static_cast<std::size_t> (numChunks), ids.size());
        std::uint32_t id = 0;

        for (std::int32_t index = 1; index <= numChunks; ++index)
        {
            EXPECT_EQ (process.GetIndexedChunkID (index, &id), 0);
            EXPECT_EQ (id, ids[static_cast<std::size_t> (index - 1)]);
        }

        for (const std::int32_t index : { numChunks + 1, 0, -1, longControlTop, bottom })
        {
            EXPECT_EQ (process.GetIndexedChunkID (index, &id), -7157) << index;
            EXPECT_EQ (id, fourCC ("    "));
        }
    }
}

TEST (CEffectProcessChunks, AreDescribedAndSized)
{
    ChunkFixture f;
    std::array<unsigned char, 256> text {};
    std::int32_t size = 99;

    EXPECT_EQ (f.process.DescribeChunk (controlsChunk, text.data()), 0);
    EXPECT_EQ (std::string (text.begin() + 1, text.begin() + 1 + text[0]), "Complete Controls State");
    EXPECT_EQ (f.process.DescribeChunk (customChunk, text.data()), -7157);
    EXPECT_EQ (text[0], 0);

    EXPECT_EQ (f.process.GetChunkSize (customChunk, &size), -7157);
    EXPECT_EQ (size, 0);

    // Without a custom chunk not even a registered one has a size here.
    f.process.AddChunk (fourCC ("midi"), "MIDI", 8);
    EXPECT_EQ (f.process.GetChunkSize (fourCC ("midi"), &size), -7157);

    f.process.AddChunk (customChunk, "Own", 44);
    EXPECT_EQ (f.process.GetChunkSize (customChunk, &size), 0);
    EXPECT_EQ (size, 100);
    EXPECT_EQ (f.process.GetChunkSize (fourCC ("midi"), &size), 0);
    EXPECT_EQ (size, 64);

    ChunkMemory chunk (ficChunkHeaderSize);
    EXPECT_EQ (f.process.GetChunk (customChunk, chunk.get()), -7157);
    EXPECT_EQ (f.process.SetChunk (customChunk, chunk.get()), 0);
}

TEST (CEffectProcessChunks, HoldControlsOfKnownKinds)
{
    ChunkFixture f;
    f.width->SetValue (longControlTop);
    f.mode->SetValue (f.mode->ConvertDiscreteToControl (-2));

    std::int32_t size = 0;
    EXPECT_EQ (f.process.GetChunkSize (controlsChunk, &size), 0);
    ASSERT_EQ (size, 88);

    ChunkMemory chunk (static_cast<std::size_t> (size));
    EXPECT_EQ (f.process.GetChunk (controlsChunk, chunk.get()), 0);
    EXPECT_EQ (chunk.get()->chunkSize, size);
    constexpr char expected[] = "\1\1\1\1"
                                "d_widt\0\0"
                                "\x40\x24\0\0\0\0\0\0" // 10.0
                                "l_mode\0\0"
                                "\xff\xff\xff\xfe"; // -2
    EXPECT_EQ (std::string (chunk.body(), chunk.body() + 32), std::string (expected, 32));
}

TEST (CEffectProcessChunks, AreSixtyBytesWithoutControlsOfKnownKinds)
{
    FakeTokenHost host;
    ControlledProcess process;
    process.add (bypassControl());
    process.DefineMasterBypassControlIndex (1);
    process.add (std::make_unique<PlainTestControl> ("Plain", fourCC ("plan")));
    process.Initialize();

    std::int32_t size = 0;
    process.GetChunkSize (controlsChunk, &size);
    ASSERT_EQ (size, 60);

    ChunkMemory chunk (60);
    EXPECT_EQ (process.GetChunk (controlsChunk, chunk.get()), 0);
    EXPECT_THAT (std::vector<int> (chunk.body(), chunk.body() + 4), Each (1));
    EXPECT_EQ (process.SetChunk (controlsChunk, chunk.get()), 0);
    EXPECT_THAT (host.dispatched, IsEmpty());
    process.Free();
}

/** What a controls chunk does to a width of 2.5 and a mode of 0. */
struct LoadRow
{
    const char* name;
    std::map<const char*, double> doubles;
    std::map<const char*, std::int32_t> integers;
    double width;
    std::int32_t mode;
    unsigned char same; // as CompareActiveChunk() answers before
};

using CEffectProcessLoad = testing::TestWithParam<LoadRow>;

TEST_P (CEffectProcessLoad, ComparesAndSets)
{
    const auto& row = GetParam();
    ChunkFixture f;
    f.width->SetValue (f.width->ConvertContinuousToControl (2.5));
    auto chunk = ChunkFixture::makeChunk (row.doubles, row.integers);

    unsigned char same = 99;
    EXPECT_EQ (f.process.CompareActiveChunk (chunk.get(), &same), 0);
    EXPECT_EQ (same, row.same);
    EXPECT_NEAR (f.width->GetContinuous(), 2.5, 1.0e-8);

    EXPECT_EQ (f.process.SetChunk (controlsChunk, chunk.get()), 0);
    EXPECT_NEAR (f.width->GetContinuous(), row.width, 1.0e-8); // the scale's steps are finer
    EXPECT_EQ (f.mode->GetDiscrete(), row.mode);
    EXPECT_EQ (f.process.valueOf (1), bottom);
    EXPECT_EQ (f.process.valueOf (4), bottom);

    EXPECT_EQ (f.process.CompareActiveChunk (chunk.get(), &same), 0);
    EXPECT_EQ (same, 1);
}

constexpr auto noNumber = std::numeric_limits<double>::quiet_NaN();

const std::vector<LoadRow> loadRows {
    { "Empty", {}, {}, 2.5, 0, 1 },
    { "Both", { { "widt", 7.0 } }, { { "mode", 3 } }, 7.0, 3, 0 },
    { "BothEnds", { { "widt", 0.0 } }, { { "mode", -5 } }, 0.0, -5, 0 },
    { "OneOnly", {}, { { "mode", 3 } }, 2.5, 3, 0 },
    { "ShownAlike", { { "widt", 2.501 } }, {}, 2.501, 0, 1 },
    { "ShownOtherwise", { { "widt", 2.6 } }, {}, 2.6, 0, 0 },
    { "BeyondTheRange", { { "widt", 1.0e300 } }, { { "mode", 1000000 } }, 10.0, 5, 0 },
    { "NoNumber", { { "widt", noNumber } }, {}, 2.5, 0, 1 },
    { "OfTheOtherType", { { "mode", 3.0 } }, { { "widt", 7 } }, 2.5, 0, 1 },
    { "Bypass", {}, { { "bypa", 1 } }, 2.5, 0, 1 },
    { "PlainControl", {}, { { "plan", 1 } }, 2.5, 0, 1 },
};

INSTANTIATE_ROWS (CEffectProcessLoad, loadRows);

TEST (CEffectProcessChunks, OfOthersAreTheSameAndChangeNothing)
{
    ChunkFixture f;
    auto chunk = ChunkFixture::makeChunk ({}, { { "mode", 3 } });
    unsigned char same = 0;

    // A damaged marker.
    const_cast<unsigned char*> (chunk.body())[0] = 2;
    EXPECT_EQ (f.process.SetChunk (controlsChunk, chunk.get()), 0);
    EXPECT_EQ (f.process.CompareActiveChunk (chunk.get(), &same), 0);
    EXPECT_EQ (same, 1);
    EXPECT_EQ (f.mode->GetDiscrete(), 0);

    // Another ID.
    const_cast<unsigned char*> (chunk.body())[0] = 1;
    chunk.get()->chunkID = customChunk;
    same = 0;
    EXPECT_EQ (f.process.SetChunk (customChunk, chunk.get()), 0);
    EXPECT_EQ (f.process.CompareActiveChunk (chunk.get(), &same), 0);
    EXPECT_EQ (same, 1);
    EXPECT_EQ (f.mode->GetDiscrete(), 0);

    EXPECT_EQ (f.process.SetChunk (controlsChunk, nullptr), 0);
    EXPECT_EQ (f.process.CompareActiveChunk (nullptr, &same), 0);
    EXPECT_EQ (f.process.GetChunk (controlsChunk, nullptr), 0);
}

TEST (CEffectProcessChunks, SetThroughTheHostOrAtOnce)
{
    FakeTokenHost host;
    ChunkFixture f;
    auto chunk = ChunkFixture::makeChunk ({ { "widt", 7.0 } }, { { "mode", 3 } });
    f.process.LoadChunk (chunk.get());

    // With a token service, SetChunk() asks the host for each value.
    EXPECT_EQ (f.process.SetOrUpdateControlFromChunk (3, false), 0);
    EXPECT_EQ (f.mode->GetDiscrete(), 0);
    EXPECT_THAT (host.dispatchedKinds(),
                 ElementsAre ("SETV CTCH 4", "SETV GIAC 77", "SETV CAVL 4", "SETV CTCH 4"));

    EXPECT_EQ (f.process.SetOrUpdateControlFromChunk (3, true), 0);
    EXPECT_EQ (f.mode->GetDiscrete(), 3);
    EXPECT_EQ (host.dispatchedKinds().back(), "CURV CAVL 4");

    host.dispatchResult = FakeTokenHost::failure;
    EXPECT_EQ (f.process.SetOrUpdateControlFromChunk (2, true), FakeTokenHost::failure);
    EXPECT_EQ (f.process.SetOrUpdateControlFromChunk (2, false), FakeTokenHost::failure);
    EXPECT_EQ (f.process.SetChunk (controlsChunk, chunk.get()), 0);

    for (const std::int32_t unknown : { 4, 5, 0, -1 })
        EXPECT_EQ (f.process.SetOrUpdateControlFromChunk (unknown, false), -7401) << unknown;

    f.process.Free();
}
} // namespace
