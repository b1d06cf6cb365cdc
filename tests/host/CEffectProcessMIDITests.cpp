// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Logging in to the host's MIDI service, its transport, and the chunk that keeps an instance's number.

#include "host/CEffectGroupMIDI.h"
#include "host/CEffectMIDITransport.h"
#include "host/CEffectProcessMIDI.h"
#include "host/CEffectTypeRTAS.h"
#include "host/FakeFramework.h"
#include "host/FakeTransport.h"
#include "host/FourCC.h"
#include "host/HostGlobals.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <vector>

namespace
{
using testing::ElementsAre;

constexpr auto typeCode = fourCC ("type");

/** A client of the MIDI service and nothing else. */
class MidiProcess : public CEffectProcessMIDI
{
public:
    using CEffectProcessMIDI::GetMIDIWorld;
    using CEffectProcessMIDI::IsLoggedIn;

protected:
    void EffectInit() override { MIDILogIn(); }
    std::unique_ptr<CPlugInView> CreateCPlugInView() override { return nullptr; }
};

MidiProcess* latestProcess = nullptr;

class MidiGroup : public CEffectGroupMIDI
{
public:
    MidiGroup()
    {
        gProcessGroup = this;
        DefineManufacturerNamesAndID ("Maker", fourCC ("manu"));
    }

    ~MidiGroup() override
    {
        FreeProcessTypes();
        gProcessGroup = nullptr;
    }

protected:
    void CreateEffectTypes() override
    {
        auto type = std::make_unique<CEffectType> (typeCode, fourCC ("prod"), 0, 0);
        type->AttachEffectProcessCreator (
            []() -> CEffectProcess* { return latestProcess = std::make_unique<MidiProcess>().release(); },
            nullptr);
        AddEffectType (type.release());
    }
};

/** A chunk with one entry or, if `key` is null, none. */
std::vector<unsigned char> midiChunk (const char* key, std::int32_t value)
{
    ChunkDataParser parser;

    if (key != nullptr)
        parser.AddInt32 (key, value);

    std::vector<unsigned char> bytes (static_cast<std::size_t> (parser.GetChunkSize()));
    parser.GetChunkData (reinterpret_cast<SFicPlugInChunk*> (bytes.data()));
    return bytes;
}

class CEffectProcessMIDITest : public testing::Test
{
protected:
    CEffectProcessMIDITest()
    {
        framework.isAlive = 0; // no token service
        framework.transport = &transport;
    }

    MidiProcess& instantiate()
    {
        if (group == nullptr)
        {
            group = std::make_unique<MidiGroup>();
            group->Initialize();
        }

        std::int32_t index = 0;
        EXPECT_EQ (group->InstantiateProcess (typeCode, &index), 0);
        return *latestProcess;
    }

    static std::int32_t set (MidiProcess& process, const char* key, std::int32_t value)
    {
        const auto bytes = midiChunk (key, value);
        return process.SetChunk (FIC_CHUNK_MIDI, reinterpret_cast<const SFicPlugInChunk*> (bytes.data()));
    }

    /** The number in the process's chunk, or 0 if there is none. */
    static std::int32_t numberOf (MidiProcess& process)
    {
        std::int32_t size = 0;
        EXPECT_EQ (process.GetChunkSize (FIC_CHUNK_MIDI, &size), 0);
        std::vector<unsigned char> bytes (static_cast<std::size_t> (size));
        auto* const chunk = reinterpret_cast<SFicPlugInChunk*> (bytes.data());
        EXPECT_EQ (process.GetChunk (FIC_CHUNK_MIDI, chunk), 0);
        EXPECT_EQ (chunk->chunkSize, size);

        ChunkDataParser parser;
        parser.LoadChunk (chunk);
        std::int32_t number = 0;
        parser.FindInt32 ("Instance ID", &number);
        return number;
    }

    FakeFramework framework;
    FakeTransport transport;
    std::unique_ptr<MidiGroup> group;
};
} // namespace

TEST_F (CEffectProcessMIDITest, TakesTheNewestInterfaceThatThereIs)
{
    framework.midiVersion = 4;
    auto& process = instantiate();
    EXPECT_THAT (framework.midiVersionsAsked, ElementsAre (7, 6, 5, 4));
    EXPECT_TRUE (process.IsLoggedIn());
    EXPECT_EQ (process.GetMIDIWorld().GetInterfaceVersion(), 4);
    EXPECT_EQ (framework.midiClient.manufacturerID, fourCC ("manu"));
    EXPECT_EQ (framework.midiClient.productID, fourCC ("prod"));
    EXPECT_EQ (framework.midiClient.typeID, typeCode);
}

TEST_F (CEffectProcessMIDITest, RunsWithoutAService)
{
    for (const bool answersWithoutInterface : { false, true })
    {
        framework.midiVersion = answersWithoutInterface ? 7 : 0;
        framework.transport = nullptr;
        framework.midiVersionsAsked.clear();
        auto& process = instantiate();
        EXPECT_THAT (framework.midiVersionsAsked, ElementsAre (7, 6, 5, 4, 3, 2, 1));
        EXPECT_FALSE (process.IsLoggedIn());
        EXPECT_EQ (process.GetMIDIWorld().GetInterfaceVersion(), 0);
        EXPECT_EQ (numberOf (process), 0);
        EXPECT_EQ (set (process, "Instance ID", 3), -7082);
        EXPECT_EQ (process.ReleaseMIDI(), 0);
        double tempo = -1.0;
        EXPECT_EQ (CEffectMIDITransport (process.GetMIDIWorld()).GetCurrentTempo (&tempo), -9145);
        EXPECT_EQ (tempo, -1.0);
    }

    framework.midiVersion = 7;
    framework.transport = &transport;
    EXPECT_EQ (numberOf (instantiate()), 1) << "the others kept no number";
}

TEST_F (CEffectProcessMIDITest, EachReadTakesItsVersion)
{
    for (std::int32_t version = 1; version <= 7; ++version)
    {
        framework.midiVersion = version;
        const CEffectMIDITransport reads (instantiate().GetMIDIWorld());
        const auto fromTwo = version >= 2 ? 0 : -9145;
        const auto fromSeven = version >= 7 ? 0 : -9145;
        double tempo = 0.0;
        std::int32_t numerator = 0, denominator = 0;
        unsigned char playing = 0;
        std::int64_t place = -1;
        EXPECT_EQ (reads.GetCurrentTempo (&tempo), fromTwo) << version;
        EXPECT_EQ (reads.GetCurrentMeter (&numerator, &denominator), fromTwo) << version;
        EXPECT_EQ (reads.IsTransportPlaying (&playing), fromTwo) << version;
        EXPECT_EQ (reads.GetCurrentTDMSampleLocation (&place), fromSeven) << version;
        EXPECT_EQ (reads.GetCurrentRTASSampleLocation (&place), fromSeven) << version;
        EXPECT_EQ (reads.GetCustomTickPosition (&place, 5), fromSeven) << version;
        EXPECT_EQ (place, version >= 7 ? 5 * transport.ticksPerSample : -1);
    }
}

TEST_F (CEffectProcessMIDITest, LogsOutOnce)
{
    auto& process = instantiate();
    EXPECT_EQ (framework.numMidiClients, 1);
    framework.unregisterResult = -3;
    EXPECT_EQ (process.ReleaseMIDI(), -3);
    EXPECT_TRUE (process.IsLoggedIn());
    framework.unregisterResult = 0;
    EXPECT_EQ (process.ReleaseMIDI(), 0);
    EXPECT_FALSE (process.IsLoggedIn());
    EXPECT_EQ (process.GetMIDIWorld().GetTransport (1), nullptr);
    EXPECT_EQ (process.ReleaseMIDI(), 0);
    EXPECT_EQ (framework.numMidiClients, 0);
}

TEST_F (CEffectProcessMIDITest, ChunksKeepNumbersApart)
{
    auto& first = instantiate();
    auto& second = instantiate();
    EXPECT_EQ (numberOf (first), 1);
    EXPECT_EQ (numberOf (second), 2);

    EXPECT_EQ (set (first, "Instance ID", 5), 0);
    EXPECT_EQ (set (second, "Node ID", 5), 0);
    EXPECT_EQ (numberOf (first), 5);
    EXPECT_EQ (numberOf (second), 6);

    EXPECT_EQ (set (second, "Instance ID", 6), 0);
    EXPECT_EQ (numberOf (second), 6) << "its own number is free";

    EXPECT_EQ (set (second, "Some other ID", 1), -7082);
    EXPECT_EQ (set (second, nullptr, 0), -7082);
    EXPECT_EQ (second.SetChunk (FIC_CHUNK_MIDI, nullptr), -7082);
    EXPECT_TRUE (second.IsLoggedIn());
    EXPECT_EQ (numberOf (second), 6);
    EXPECT_EQ (set (first, "Instance ID", 6), 0);
    EXPECT_EQ (numberOf (first), 7) << "a refused chunk costs nobody a number";
}

TEST_F (CEffectProcessMIDITest, TheChunkIsAsLongAsItsSizeSays)
{
    auto& process = instantiate();
    std::int32_t size = 0;
    EXPECT_EQ (process.GetChunkSize (FIC_CHUNK_MIDI, &size), 0);
    EXPECT_EQ (size, 56 + 4 + 16 + 4);
    process.ReleaseMIDI();
    std::vector<unsigned char> bytes (80);
    auto* const chunk = reinterpret_cast<SFicPlugInChunk*> (bytes.data());
    EXPECT_EQ (process.GetChunk (FIC_CHUNK_MIDI, chunk), 0);
    EXPECT_EQ (chunk->chunkSize, 60);
}

namespace
{
struct NotingNode : CEffectMIDINode
{
    void RenewName (std::int32_t instanceID) override { renewedFor.push_back (instanceID); }

    std::vector<std::int32_t> renewedFor;
};
} // namespace

TEST (CEffectMIDIWorld, HasTheNodesOfAllChannelsRenewTheirNames)
{
    NotingNode input, output, other;
    CEffectMIDIWorld world;
    world.inputNodes.front() = &input;
    world.outputNodes.back() = &output;
    world.otherNodes[7] = &other;
    world.RefreshMIDINodesFromChunk (12);
    EXPECT_EQ (world.instanceID, 12);

    world.ClearWorld();
    EXPECT_EQ (world.instanceID, 0);
    world.RefreshMIDINodesFromChunk (13); // which are nobody's any more

    for (const auto* const node : { &input, &output, &other })
        EXPECT_THAT (node->renewedFor, ElementsAre (12));
}

TEST (CEffectGroupMIDI, GivesOutTheFirstFreeNumber)
{
    constexpr auto highest = std::numeric_limits<std::int32_t>::max();
    MidiGroup group;

    constexpr std::pair<std::int32_t, std::int32_t> rows[] = {
        { 0, 1 },       { 0, 2 },   { 2, 3 }, { 10, 10 }, { 9, 9 }, { 9, 11 }, { highest, highest },
        { highest, 4 }, { -1, -1 }, { -1, 5 }
    };

    for (const auto& [wanted, expected] : rows)
    {
        auto id = wanted;
        group.GetUniqueNodeInfo (&id);
        EXPECT_EQ (id, expected) << wanted;
    }

    group.DeleteUniqueNodeInfo (2);
    group.DeleteUniqueNodeInfo (2);
    group.DeleteUniqueNodeInfo (12345);
    std::int32_t id = 0;
    group.GetUniqueNodeInfo (&id);
    EXPECT_EQ (id, 2);
    group.GetUniqueNodeInfo (nullptr);
    EXPECT_EQ (CProcessGroupInterface::sCriticalSectionScope, 0);
}
