// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Lists of named values in chunks that are whole, damaged or random.

#include "support/NamedRows.h"
#include "support/TestSeed.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <host/ChunkDataParser.h>
#include <host/ChunkDataParserDefs.h>

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>
#include <limits>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace
{
using namespace std::string_literals;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::int32_t version = 0x00010100;
const std::string marker = "\1\1\1\1";

/** Shows its lists. */
class OpenParser : public ChunkDataParser
{
public:
    using ChunkDataParser::chunkVersion;
    using ChunkDataParser::names;
    using ChunkDataParser::types;
    using ChunkDataParser::values;
};

/** A chunk in a block of memory of exactly its own size, so that reading past it is caught where memory is
 * checked.
 */
class Chunk
{
public:
    explicit Chunk (std::size_t numBytes)
        : bytes (std::make_unique<unsigned char[]> (numBytes)),
          length (numBytes)
    {
        get()->version = version;
        setSize (static_cast<std::int64_t> (numBytes));
    }

    explicit Chunk (const std::string& body)
        : Chunk (ficChunkHeaderSize + body.size())
    {
        std::memcpy (bytes.get() + ficChunkHeaderSize, body.data(), body.size());
    }

    SFicPlugInChunk* get() const { return reinterpret_cast<SFicPlugInChunk*> (bytes.get()); }
    void setSize (std::int64_t size) const { get()->chunkSize = static_cast<std::int32_t> (size); }

    std::string body() const
    {
        return { reinterpret_cast<const char*> (bytes.get()) + ficChunkHeaderSize,
                 length - ficChunkHeaderSize };
    }

private:
    std::unique_ptr<unsigned char[]> bytes;
    std::size_t length;
};

OpenParser loaded (const Chunk& chunk)
{
    OpenParser parser;
    parser.LoadChunk (chunk.get());
    return parser;
}

/** The body that the parser writes, into memory that was not zero. */
std::string written (const ChunkDataParser& parser)
{
    const Chunk chunk (std::string (static_cast<std::size_t> (parser.GetChunkDataSize()), '#'));
    chunk.setSize (0);
    EXPECT_EQ (parser.GetChunkData (chunk.get()), 0);
    EXPECT_EQ (chunk.get()->chunkSize, parser.GetChunkSize());
    return chunk.body();
}

constexpr auto oddDouble = std::bit_cast<double> (std::uint64_t { 0x8123456789abcdef });
const std::string oddDoubleBytes = "\x81\x23\x45\x67\x89\xab\xcd\xef";

constexpr auto longType = ChunkDataParserDefs::LONG_TYPE, shortType = ChunkDataParserDefs::SHORT_TYPE,
               floatType = ChunkDataParserDefs::FLOAT_TYPE, doubleType = ChunkDataParserDefs::DOUBLE_TYPE;

/** A body and the one entry that it holds. */
struct EntryCase
{
    const char* name;
    std::string entryName;
    std::int32_t type;
    std::uint64_t value;
    std::string bytes; // of the entry
};

const EntryCase entryCases[] = {
    { "Long", "bypa", longType, 1, "l_bypa\0\0\0\0\0\1"s },
    { "LongMinusOne", "bypa", longType, ~0ull, "l_bypa\0\0\xff\xff\xff\xff"s },
    { "LongByteOrder", "bypa", longType, 0x12345678, "l_bypa\0\0\x12\x34\x56\x78"s },
    { "Float", "gain", floatType, 0xbf800000, "f_gain\0\0\xbf\x80\0\0"s },
    { "Double",
      "gain",
      doubleType,
      std::bit_cast<std::uint64_t> (oddDouble),
      "d_gain\0\0"s + oddDoubleBytes },
    { "Short", "mode", shortType, 0x1234, "s_mode\0\0\x12\x34\0\0"s },
    { "ShortMinusTwo", "mode", shortType, ~1ull, "s_mode\0\0\xff\xfe\0\0"s },
    { "NoName", "", longType, 7, "l_\0\0\0\0\0\7"s },
    { "Name1", "a", longType, 7, "l_a\0\0\0\0\7"s },
    { "Name2", "ab", longType, 7, "l_ab\0\0\0\0\0\0\0\7"s },
    { "Name5", "abcde", longType, 7, "l_abcde\0\0\0\0\7"s },
    { "Name6", "abcdef", longType, 7, "l_abcdef\0\0\0\0\0\0\0\7"s },
    { "LongestName", std::string (253, 'n'), longType, 7, "l_" + std::string (253, 'n') + "\0\0\0\0\7"s },
};

using ChunkEntry = testing::TestWithParam<EntryCase>;

// Twice, with another in between: the size of a field shows in where the next one starts.
TEST_P (ChunkEntry, IsReadAndWrittenBack)
{
    const auto& row = GetParam();
    const auto body = marker + row.bytes + "l_x\0\0\0\0\5"s + row.bytes;
    const auto parser = loaded (Chunk (body));

    EXPECT_THAT (parser.names, ElementsAre (row.entryName, "x", row.entryName));
    EXPECT_THAT (parser.types, ElementsAre (row.type, longType, row.type));
    EXPECT_THAT (parser.values, ElementsAre (row.value, 5u, row.value));
    EXPECT_EQ (parser.chunkVersion, version);
    EXPECT_EQ (written (parser), body);
}

// Every byte of the chunk is there; only its size says that the last ones do not count.
TEST_P (ChunkEntry, IsLeftOutWhereItIsCutShort)
{
    const auto& row = GetParam();
    const Chunk chunk (marker + row.bytes + row.bytes);
    const auto bytesBefore = ficChunkHeaderSize + marker.size() + row.bytes.size();

    for (std::size_t numCut = 1; numCut <= row.bytes.size(); ++numCut)
    {
        chunk.setSize (static_cast<std::int64_t> (bytesBefore + row.bytes.size() - numCut));
        ASSERT_THAT (loaded (chunk).values, ElementsAre (row.value)) << numCut << " bytes cut off";
    }
}

INSTANTIATE_ROWS (ChunkEntry, entryCases);

struct DamageCase
{
    const char* name;
    std::string body;
    std::vector<std::string> names; // what is still read
};

const std::string good = "l_good\0\0\0\0\0\1"s;

const DamageCase damageCases[] = {
    { "NoBody", "", {} },
    { "PartOfAMarker", "\1\1\1", {} },
    { "NoMarkerIsNeededBelowFourBytes", "xyz", {} },
    { "MarkerAlone", marker, {} },
    { "OneByteMore", marker + "l", {} },
    { "WrongMarker", "\1\1\1\2" + good, {} },
    { "MarkerOfZeroes", "\0\0\0\0"s + good, {} },
    { "UnknownLetter", marker + good + "x_bad\0\0\0\0\0\0\1"s + good, { "good" } },
    { "CapitalLetter", marker + good + "L_bad\0\0\0\0\0\0\1"s + good, { "good" } },
    { "EmptyNameField", marker + good + "\0\0\0\0\0\0\0\1"s + good, { "good" } },
    { "LetterWithoutSeparator", marker + good + "l\0\0\0\0\0\0\1"s + good, { "good" } },
    { "AnySeparatorWillDo", marker + good + "l-ok\0\0\0\0\0\0\0\1"s + good, { "good", "ok", "good" } },
    { "NoTerminator", marker + good + "l_goodgoodgood", { "good" } },
    { "NoTerminatorInALongName", marker + good + "l_" + std::string (600, 'g'), { "good" } },
    { "LongNameIsCut", marker + "l_" + std::string (254, 'n') + "\0\0\0\7"s, { std::string (253, 'n') } },
};

using DamagedChunk = testing::TestWithParam<DamageCase>;

TEST_P (DamagedChunk, GivesWhatStandsBeforeTheDamage)
{
    const auto& row = GetParam();
    OpenParser parser;
    parser.AddInt32 ("old", 1);

    parser.LoadChunk (Chunk (row.body).get());

    EXPECT_EQ (parser.names, row.names);
    EXPECT_EQ (parser.values.size(), row.names.size());
    EXPECT_EQ (parser.types.size(), row.names.size());
    EXPECT_EQ (parser.chunkVersion, version);
}

INSTANTIATE_ROWS (DamagedChunk, damageCases);

TEST (ChunkDataParser, SizesBelowTheHeaderGiveAnEmptyList)
{
    const Chunk chunk (marker + good);

    for (std::int32_t size :
         { ficChunkHeaderSize - 0, ficChunkHeaderSize - 1, 0, -1, std::numeric_limits<std::int32_t>::min() })
    {
        chunk.setSize (size);
        EXPECT_THAT (loaded (chunk).names, IsEmpty()) << size;
    }

    OpenParser parser;
    parser.AddInt32 ("old", 1);
    parser.LoadChunk (nullptr);
    EXPECT_THAT (parser.names, IsEmpty());
    EXPECT_EQ (parser.GetChunkData (nullptr), 0);
}

TEST (ChunkDataParser, WritesWhatWasAdded)
{
    ChunkDataParser parser;
    EXPECT_EQ (parser.GetChunkSize(), 60);
    EXPECT_EQ (written (parser), marker);

    parser.AddInt32 ("bypa", -1);
    parser.AddDouble ("gain", oddDouble);
    EXPECT_EQ (written (parser), marker + "l_bypa\0\0\xff\xff\xff\xff"s + "d_gain\0\0"s + oddDoubleBytes);

    parser.Clear();
    parser.AddInt32 (nullptr, 7);
    EXPECT_EQ (written (parser), marker + "l_\0\0\0\0\0\7"s);
}

TEST (ChunkDataParser, FindsTheNextOfThatName)
{
    ChunkDataParser parser;
    EXPECT_EQ (parser.FindName ("a"), -1);

    for (const char* name : { "a", "b", "a", "c" })
        parser.AddInt32 (name, 0);

    struct Step
    {
        const char* name;
        std::int32_t index;
    };

    constexpr Step steps[] = {
        { "b", 1 }, { "a", 2 }, { "A", -1 },  { "a", 0 }, { "a", 2 }, { "c", 3 },
        { "c", 3 }, { "a", 0 }, { "ab", -1 }, { "", -1 }, { "b", 1 }, { "b", 1 },
    };

    for (const auto& step : steps)
        EXPECT_EQ (parser.FindName (step.name), step.index) << step.name;

    parser.Clear();
    EXPECT_EQ (parser.FindName ("b"), -1);
    parser.AddInt32 ("b", 0);
    EXPECT_EQ (parser.FindName ("b"), 0);
}

TEST (ChunkDataParser, GivesValuesOfTheirOwnTypeOnly)
{
    OpenParser parser;
    parser.AddInt32 ("int", std::numeric_limits<std::int32_t>::min());
    parser.AddDouble ("double", oddDouble);
    std::int32_t integer = 99;
    double number = 99.0;

    EXPECT_FALSE (parser.FindInt32 ("double", &integer));
    EXPECT_FALSE (parser.FindDouble ("int", &number));
    EXPECT_FALSE (parser.FindInt32 ("none", &integer));
    EXPECT_FALSE (parser.FindInt32 (nullptr, &integer));
    EXPECT_EQ (integer, 99);
    EXPECT_EQ (number, 99.0);

    EXPECT_TRUE (parser.FindDouble ("double", &number));
    EXPECT_TRUE (parser.FindInt32 ("int", &integer));
    EXPECT_TRUE (parser.FindInt32 ("int", nullptr));
    EXPECT_EQ (integer, std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ (std::bit_cast<std::uint64_t> (number), std::bit_cast<std::uint64_t> (oddDouble));

    parser.types.clear();
    EXPECT_TRUE (parser.FindInt32 ("double", &integer)) << "without types, any will do";
}

TEST (ChunkDataParser, ListsThatHavePartedAreAnErrorAndWriteNothing)
{
    using Spoiler = void (*) (OpenParser&);
    constexpr Spoiler spoilers[] = {
        [] (OpenParser& parser) { parser.types[0] = 0; },   [] (OpenParser& parser) { parser.types[0] = 5; },
        [] (OpenParser& parser) { parser.types[0] = -1; },  [] (OpenParser& parser) { parser.names.clear(); },
        [] (OpenParser& parser) { parser.values.clear(); }, [] (OpenParser& parser) { parser.types.clear(); },
    };

    for (const auto spoil : spoilers)
    {
        const Chunk chunk (std::string (40, '#'));
        OpenParser parser;
        parser.AddInt32 ("a", 1);
        spoil (parser);

        EXPECT_EQ (parser.GetChunkData (chunk.get()), -333);
        EXPECT_EQ (chunk.body(), std::string (40, '#'));
        EXPECT_EQ (chunk.get()->chunkSize, ficChunkHeaderSize + 40);
    }
}

/** Good entries, most of the time with some bytes changed or the end cut off. */
std::string randomBody (TestRandom& random)
{
    const std::string likely = "lfds_a\0\1\xff"s;
    std::string body = marker;

    for (int numEntries = random.between (0, 6); numEntries > 0; --numEntries)
        body += random.oneOf (entryCases).bytes;

    for (int numChanges = random.between (0, 3); numChanges > 0; --numChanges)
        body[static_cast<std::size_t> (random.between (0, static_cast<int> (body.size()) - 1))] =
            random.chance (0.5) ? random.oneOf (likely) : static_cast<char> (random.between (0, 255));

    if (random.chance (0.3))
        body.resize (static_cast<std::size_t> (random.between (0, static_cast<int> (body.size()))));

    return body;
}

TEST (ChunkDataParser, TakesRandomBytesAndWritesWhatItUnderstood)
{
    TestRandom random (testSeed());
    constexpr int numRounds = 20000;
    int numEntries = 0;

    for (int round = 0; round < numRounds; ++round)
    {
        const auto body = randomBody (random);
        const auto parser = loaded (Chunk (body));
        ASSERT_EQ (parser.names.size(), parser.values.size());
        ASSERT_EQ (parser.names.size(), parser.types.size());
        ASSERT_LE (parser.GetChunkDataSize(),
                   static_cast<std::int32_t> (std::max (body.size(), marker.size())));

        const auto again = loaded (Chunk (written (parser)));
        ASSERT_EQ (again.names, parser.names);
        ASSERT_EQ (again.values, parser.values);
        ASSERT_EQ (again.types, parser.types);
        numEntries += static_cast<int> (parser.names.size());
    }

    EXPECT_GT (numEntries, numRounds) << "most bodies were refused at their start";
}
} // namespace
