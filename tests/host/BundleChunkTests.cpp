// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Chunks in and out of the plug-in: its own, those of others, and bytes that are none.

#include "BundleFixture.h"

#include <cstring>

namespace
{
using Bytes = refhost::HostInstance::Bytes;
using refhost::ChunkRecord;

Bytes bytesOf (const std::string& text)
{
    const auto* const first = reinterpret_cast<const std::byte*> (text.data());
    return { first, first + text.size() };
}

/** A list of one whole number, as the plug-in's own. */
std::string numberEntry (const std::string& name, std::uint32_t value)
{
    auto body = std::string ("\1\1\1\1", 4) + "l_" + name;
    body.append (4 - body.size() % 4, '\0');

    for (int shift = 24; shift >= 0; shift -= 8)
        body += static_cast<char> (value >> shift & 0xff);

    return body;
}

class BundleChunks : public BundleWithInstance
{
protected:
    void SetUp() override
    {
        BundleWithInstance::SetUp();
        instance->setValue (stereoWidth, 1 << 30);
    }

    std::int32_t set (ChunkRecord& chunk, std::uint32_t chunkID) const
    {
        return pi.SetChunk (typeCode, instance->getIndex(), chunkID, chunk.get());
    }

    /** A chunk of this plug-in with any body. */
    static ChunkRecord chunkOf (std::uint32_t chunkID, const Bytes& body)
    {
        ChunkRecord chunk (body.size());
        auto& header = *chunk.get();
        header.manufacturerID = manufacturerCode;
        header.productID = productCode;
        header.typeID = typeCode;
        header.chunkID = chunkID;
        std::copy (body.begin(), body.end(), chunk.body());
        return chunk;
    }
};

TEST_F (BundleChunks, AreListedInTheirOrder)
{
    const std::pair<std::uint32_t, std::string> expected[] = { { FIC_CHUNK_CONTROLS,
                                                                 "Complete Controls State" },
                                                               { FIC_CHUNK_MIDI, "MIDI Connection Data" },
                                                               { FIC_CHUNK_JUCE, "Juce Audio Plugin Data" } };
    const auto index = instance->getIndex();
    std::int32_t number = 0;
    EXPECT_EQ (pi.GetNumChunks (typeCode, index, &number), ficSuccess);
    EXPECT_EQ (number, 3);

    for (std::int32_t i = 0; i < 3; ++i)
    {
        const auto& [id, description] = expected[i];
        std::uint32_t chunkID = 0;
        std::array<unsigned char, 256> text {};
        EXPECT_EQ (pi.GetIndexedChunkID (typeCode, index, i + 1, &chunkID), ficSuccess);
        EXPECT_EQ (chunkID, id);
        EXPECT_EQ (pi.DescribeChunk (typeCode, index, chunkID, text.data()), ficSuccess);
        EXPECT_EQ (std::string (reinterpret_cast<char*> (text.data()) + 1, text[0]), description);
    }

    std::uint32_t chunkID = 0;
    EXPECT_EQ (pi.GetIndexedChunkID (typeCode, index, 4, &chunkID), ficChunkNotHandled);
    EXPECT_EQ (chunkID, FIC_CODE (' ', ' ', ' ', ' '));
}

TEST_F (BundleChunks, RestoreWhatTheyWereMadeFrom)
{
    const auto state = stateOf (*instance);
    EXPECT_GT (state.size(), 8u);
    const auto other = insert();
    EXPECT_NE (stateOf (*other), state);
    EXPECT_EQ (other->setChunk (FIC_CHUNK_JUCE, state), ficSuccess);
    EXPECT_EQ (stateOf (*other), state);
}

TEST_F (BundleChunks, CarryTheirMakersCodesAndVersion)
{
    std::int32_t size = 0;
    ASSERT_EQ (pi.GetChunkSize (typeCode, instance->getIndex(), FIC_CHUNK_CONTROLS, &size), ficSuccess);
    EXPECT_EQ (size, 60);
    ChunkRecord chunk (4);
    std::memset (chunk.get(), 0x5a, 60);
    ASSERT_EQ (pi.GetChunk (typeCode, instance->getIndex(), FIC_CHUNK_CONTROLS, chunk.get()), ficSuccess);
    const auto& header = *chunk.get();
    EXPECT_EQ (header.chunkSize, 60);
    EXPECT_EQ (header.version, 0x00010100);
    EXPECT_EQ (header.manufacturerID, manufacturerCode);
    EXPECT_EQ (header.productID, productCode);
    EXPECT_EQ (header.typeID, typeCode);
    EXPECT_EQ (header.chunkID, FIC_CHUNK_CONTROLS);

    for (int i = 0; i < 32; ++i)
        EXPECT_EQ (header.chunkName[i], i < 4 ? 0 : 0x5a) << i;

    EXPECT_EQ (std::memcmp (chunk.body(), "\1\1\1\1", 4), 0);
}

TEST_F (BundleChunks, OfOthersAreRefused)
{
    const auto state = stateOf (*instance);
    instance->setValue (stereoWidth, lowest);
    const auto before = stateOf (*instance);

    for (const bool isMaker : { true, false })
    {
        auto chunk = chunkOf (FIC_CHUNK_JUCE, state);
        (isMaker ? chunk.get()->manufacturerID : chunk.get()->productID) ^= 1;
        unsigned char same = 7;
        EXPECT_EQ (set (chunk, FIC_CHUNK_JUCE), ficChunkNotHandled);
        EXPECT_EQ (pi.CompareActiveChunk (typeCode, instance->getIndex(), chunk.get(), &same),
                   ficChunkNotHandled);
        EXPECT_EQ (same, 7);
        EXPECT_EQ (stateOf (*instance), before);
    }
}

TEST_F (BundleChunks, ThatAreDamagedChangeNothing)
{
    const auto good = stateOf (*instance);
    instance->setValue (stereoWidth, lowest);
    const auto before = stateOf (*instance);

    // The last byte ends the text; all before it is there without it, too.
    for (std::size_t length = 0; length + 1 < good.size(); ++length)
    {
        instance->setChunk (FIC_CHUNK_JUCE, Bytes (good.begin(), good.begin() + static_cast<long> (length)));
        ASSERT_EQ (stateOf (*instance), before) << length;
    }

    // Sizes that no chunk can have.
    for (const std::int32_t size : { lowest, -1, 0, 1, 55, 56 })
    {
        for (const auto id : { FIC_CHUNK_CONTROLS, FIC_CHUNK_MIDI, FIC_CHUNK_JUCE })
        {
            auto chunk = chunkOf (id, good);
            chunk.get()->chunkSize = size;
            set (chunk, id);
            unsigned char same = 0;
            pi.CompareActiveChunk (typeCode, instance->getIndex(), chunk.get(), &same);
            ASSERT_EQ (stateOf (*instance), before) << size;
        }
    }
}

TEST_F (BundleChunks, OfRandomBytesDoNoHarm)
{
    TestRandom random (testSeed());
    const auto good = stateOf (*instance);
    const std::vector<std::uint32_t> ids { FIC_CHUNK_CONTROLS, FIC_CHUNK_MIDI, FIC_CHUNK_JUCE };
    constexpr int numRounds = 2000;

    for (int round = 0; round < numRounds; ++round)
    {
        auto body = random.chance (0.5) ? good : bytesOf (numberEntry ("Instance ID", 1));

        for (int i = random.between (1, 4); i > 0; --i)
            body[static_cast<std::size_t> (random.between (0, static_cast<int> (body.size()) - 1))] =
                static_cast<std::byte> (random.between (0, 255));

        if (random.chance (0.3))
            body.resize (static_cast<std::size_t> (random.between (0, static_cast<int> (body.size()))));

        const auto id = random.oneOf (ids);
        auto chunk = chunkOf (id, body);
        unsigned char same = 0;
        set (chunk, id);
        pi.CompareActiveChunk (typeCode, instance->getIndex(), chunk.get(), &same);
    }

    // Still alive and willing.
    EXPECT_EQ (instance->setChunk (FIC_CHUNK_JUCE, good), ficSuccess);
    EXPECT_EQ (stateOf (*instance), good);
}
} // namespace
