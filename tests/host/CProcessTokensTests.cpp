// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Tokens to the host and from it: their bytes, their order, and what they bring about.

#include "host/TokenFixture.h"
#include "support/NamedRows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <host/CDAEError.h>
#include <host/FourCC.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace
{
using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::int32_t widthID = TokenFixture::widthID;
constexpr std::int32_t value = 0x12345678;

/** The bytes of a token: six numbers, then what follows them up to its length. */
TEST (CProcessTokens, HaveExactBytes)
{
    struct Row
    {
        std::size_t which; // of the tokens that are sent
        std::int32_t nameID;
        std::uint32_t type, subType;
        std::int16_t length;
        std::vector<unsigned char> payload;
    };

    TokenFixture f;
    f.initialize();
    f.process.TouchControl (1);
    f.process.ReleaseControl (1);
    f.process.SetControlValue (1, value);
    f.process.UpdateControlValue (1, value);
    ASSERT_EQ (f.host.dispatched.size(), 8u);

    // A value's bytes in host order, on the machines that this is built for.
    const std::vector<unsigned char> bytes { 0x78, 0x56, 0x34, 0x12 };
    constexpr auto set = fourCC ("SETV"), current = fourCC ("CURV");

    for (const auto& [which, nameID, type, subType, length, payload] :
         std::vector<Row> { { 0, widthID, set, fourCC ("CTCH"), 44, { 1, 0, 1, 0, 0, 0 } },
                            { 1, FakeTokenHost::groupNameID, set, fourCC ("GIAC"), 38, {} },
                            { 2, widthID, set, fourCC ("CTCH"), 44, { 0, 0, 1, 0, 0, 0 } },
                            { 5, widthID, set, fourCC ("CAVL"), 42, bytes },
                            { 7, widthID, current, fourCC ("CAVL"), 42, bytes } })
    {
        SCOPED_TRACE (which);
        const std::array<std::uint32_t, 6> numbers {
            static_cast<std::uint32_t> (nameID), type, subType, fourCC ("DGDN"), fourCC ("Ctrl"),
            static_cast<std::uint32_t> (nameID)
        };
        std::vector<unsigned char> sent (static_cast<std::size_t> (length));
        std::memcpy (sent.data(), &f.host.dispatched[which], sent.size());
        EXPECT_EQ (std::memcmp (sent.data(), numbers.data(), sizeof (numbers)), 0);
        EXPECT_THAT (std::vector (sent.begin() + sizeof (numbers), sent.begin() + 36), testing::Each (0));
        EXPECT_EQ (sent[36] + 256 * sent[37], length);
        EXPECT_EQ (std::vector (sent.begin() + ficTokenHeaderLength, sent.end()), payload);
    }
}

/** T and R touch and release, V sets a value; the tokens are t for a touch, g a grab, r a release, v a value.
 */
struct TouchRow
{
    const char* actions;
    const char* tokens;
    std::int32_t control = 1;
};

char shorthand (const SFicSDSToken& token)
{
    if (token.tokenSubType == FIC_TOKEN_TOUCH)
        return token.payload[0] == 1 ? 't' : 'r';

    return token.tokenSubType == FIC_TOKEN_GRABBED ? 'g' : 'v';
}

TEST (CProcessTouch, SendsWhatTheHostNeeds)
{
    constexpr TouchRow rows[] = { { "T", "tg" },       { "TR", "tgr" },      { "TTR", "tg" },
                                  { "TTRR", "tgr" },   { "TRTR", "tgrtgr" }, { "V", "tgvr" },
                                  { "TVVR", "tgvvr" }, { "RR", "" },         { "RTR", "tgr" },
                                  { "TRVTV", "", 3 },  { "TRV", "", -1 } };

    for (const auto& row : rows)
    {
        TokenFixture f;
        f.initialize();

        for (const char action : std::string (row.actions))
            EXPECT_EQ (action == 'T'   ? f.process.TouchControl (row.control)
                       : action == 'R' ? f.process.ReleaseControl (row.control)
                                       : f.process.SetControlValue (row.control, value),
                       0);

        std::string tokens;
        std::transform (
            f.host.dispatched.begin(), f.host.dispatched.end(), std::back_inserter (tokens), shorthand);
        EXPECT_EQ (tokens, row.tokens) << row.actions;
    }
}

TEST (CProcessValues, OfOneControlAreTouchedApart)
{
    TokenFixture f;
    f.initialize();
    f.process.TouchControl (1);
    f.process.TouchControl (2);
    f.process.ReleaseControl (1);
    EXPECT_THAT (f.host.dispatchedKinds(),
                 ElementsAre ("SETV CTCH 2", "SETV GIAC 77", "SETV CTCH 3", "SETV GIAC 77", "SETV CTCH 2"));
}

TEST (CProcessValues, AreSetOnlyByTheHostsAnswer)
{
    TokenFixture f;
    f.initialize();
    f.host.dispatchResult = FakeTokenHost::failure;
    EXPECT_EQ (f.process.SetControlValue (1, value), FakeTokenHost::failure);
    EXPECT_EQ (f.process.valueOf (1), longControlBottom);
    EXPECT_EQ (f.process.UpdateControlValue (1, 5), FakeTokenHost::failure);
    EXPECT_EQ (f.process.valueOf (1), 5);

    f.host.dispatchResult = ficSuccess;
    f.host.answer = [&] (const SFicSDSToken& token)
    {
        if (token.tokenType == FIC_TOKEN_SET && token.tokenSubType == FIC_TOKEN_VALUE)
            f.process.UpdateControlValue (1, readTokenValue (token).value());
    };
    EXPECT_EQ (f.process.SetControlValue (1, value), 0);
    EXPECT_EQ (f.process.valueOf (1), value);
    EXPECT_EQ (f.host.dispatchedKinds().at (f.host.dispatched.size() - 2), "CURV CAVL 2");
}

TEST (CProcessValues, AreSetAtOnceBeforeTheControlsAreRegistered)
{
    TokenFixture f;
    EXPECT_EQ (f.process.SetControlValue (1, value), 0);
    EXPECT_EQ (f.process.valueOf (1), value);
    EXPECT_THAT (f.host.dispatched, IsEmpty());
}

/** What a token from the host to "Width" brings about. */
struct IncomingRow
{
    const char* name;
    SFicSDSToken token;
    std::vector<std::string> calls;
    std::int32_t valueAfterwards;
    std::vector<std::string> dispatched;
};

SFicSDSToken withLength (SFicSDSToken token, std::int16_t length)
{
    token.tokenLength = length;
    return token;
}

using CProcessIncoming = testing::TestWithParam<IncomingRow>;

constexpr std::int32_t valueBefore = 5;

TEST_P (CProcessIncoming, IsActedUponAndGivenBack)
{
    const auto& row = GetParam();
    TokenFixture f;
    f.process.UpdateControlValue (1, valueBefore);
    f.initialize();
    f.send (row.token);

    EXPECT_EQ (f.process.DoIdle(), 0);
    EXPECT_EQ (f.process.calls, row.calls);
    EXPECT_EQ (f.process.valueOf (1), row.valueAfterwards);
    EXPECT_EQ (f.host.dispatchedKinds(), row.dispatched);
    EXPECT_THAT (f.host.calls, ElementsAre ("take", "done", "idle"));
}

SFicSDSToken currentValue (std::int32_t newValue)
{
    return makeValueToken (widthID, FIC_TOKEN_CURRENT, newValue);
}

const auto otherToken = makeToken (widthID, fourCC ("SETV"), fourCC ("abcd"), FIC_PROTOCOL_CONTROL, 38);
const auto getToken = makeToken (widthID, FIC_TOKEN_GET, FIC_TOKEN_VALUE, FIC_PROTOCOL_CONTROL, 42);
const auto highlightToken = makeToken (widthID, FIC_TOKEN_SET, FIC_TOKEN_HIGHLIGHT, FIC_PROTOCOL_CONTROL, 56);

const std::vector<IncomingRow> incomingRows {
    { "EchoOfTheValue", currentValue (valueBefore), { "update 11=5" }, valueBefore, {} },
    { "AnotherValue", currentValue (6), { "update 11=6" }, 6, {} },
    { "ValueCutShort", withLength (currentValue (6), 41), {}, valueBefore, {} },
    { "NegativeLength", withLength (currentValue (6), -1), {}, valueBefore, {} },
    { "Question", getToken, {}, valueBefore, { "CURV CAVL 2" } },
    { "Highlight", highlightToken, { "highlight 1" }, valueBefore, {} },
    { "HighlightWithNothing", withLength (highlightToken, 38), { "highlight 1" }, valueBefore, {} },
    { "HugeLength", withLength (highlightToken, 32767), { "highlight 1" }, valueBefore, {} },
    { "Other", otherToken, { "token" }, valueBefore, {} },
};

INSTANTIATE_ROWS (CProcessIncoming, incomingRows);

TEST (CProcessIdle, ReadsHighlightsFromTheirBytes)
{
    TokenFixture f;
    f.initialize();
    auto token = highlightToken;

    for (std::size_t i = 0; i < sizeof (token.payload); ++i)
        token.payload[i] = static_cast<unsigned char> (i + 1);

    f.send (token, FIC_TOKEN_SET);
    f.send (withLength (token, 41), FIC_TOKEN_SET);

    f.host.ticksPerToken = 2;
    f.process.DoIdle();
    EXPECT_EQ (f.process.highlight.first, 0x0201);
    EXPECT_EQ (f.process.highlight.second, 0x0403);
    EXPECT_EQ (f.process.highlight.text[0], 5);
    EXPECT_EQ (f.process.highlight.text[11], 16);
    EXPECT_EQ (f.process.highlight.third, 0x1211);

    f.process.DoIdle();
    EXPECT_EQ (f.process.highlight.second, 0x0003);
    EXPECT_EQ (f.process.highlight.text[0], 0);
}

TEST (CProcessIdle, StopsAfterTwoTicks)
{
    TokenFixture f;
    f.initialize();

    for (int i = 0; i < 5; ++i)
        f.send (otherToken);

    f.host.ticksPerToken = 1;
    f.process.DoIdle();
    EXPECT_THAT (f.host.calls, ElementsAre ("take", "done", "take", "done", "idle"));

    f.host.ticksPerToken = 100;
    f.process.DoIdle();
    EXPECT_EQ (f.host.waiting.size(), 2u);

    f.host.ticksPerToken = 0;
    f.process.DoIdle();
    EXPECT_THAT (f.host.waiting, IsEmpty());
}

TEST (CProcessIdle, ServesAllInstancesAndOnlyThoseThatLive)
{
    TokenFixture f;
    f.initialize();

    auto other = std::make_unique<ControlledProcess>();
    other->add (std::make_unique<PlainTestControl> ("Other"));
    other->Initialize();
    const auto othersTask = f.host.taskValue ("Other", FIC_TOKEN_CURRENT);

    f.host.waiting.emplace_back (otherToken, othersTask);
    f.process.DoIdle();
    EXPECT_THAT (other->calls, ElementsAre ("token"));

    other->Free();
    f.host.waiting.emplace_back (otherToken, othersTask);
    f.host.waiting.emplace_back (otherToken, 0);
    f.host.waiting.emplace_back (otherToken, f.host.taskValue ("Width", FIC_TOKEN_CURRENT) + 1);
    f.process.DoIdle();
    EXPECT_THAT (other->calls, ElementsAre ("token"));
    EXPECT_THAT (f.process.calls, IsEmpty());
    EXPECT_EQ (f.host.numTokensLent, 0);
}

TEST (CProcessIdle, GivesATokenBackWhoseHandlerThrows)
{
    TokenFixture f;
    f.initialize();
    f.process.onToken = [] { throw CDAEError (PlainTestControl::unknownTextCode); };
    f.send (otherToken);
    EXPECT_THROW (f.process.DoIdle(), CDAEError);
    EXPECT_EQ (f.host.numTokensLent, 0);
}

TEST (CProcessIdle, SurvivesATokenThatEndsTheProcess)
{
    FakeTokenHost host;
    auto process = std::make_unique<ControlledProcess>();
    process->add (std::make_unique<PlainTestControl> ("Width"));
    process->Initialize();

    for (int i = 0; i < 2; ++i)
        host.waiting.emplace_back (otherToken, host.taskValue ("Width", FIC_TOKEN_CURRENT));

    process->onToken = [&]
    {
        process->Free();
        process.reset();
    };
    EXPECT_EQ (process->DoTokenIdle(), 0);
    EXPECT_EQ (process, nullptr);
    EXPECT_EQ (host.numTokensLent, 0);
    EXPECT_THAT (host.waiting, IsEmpty());
}

TEST (CProcessIdle, RunsMessagesBeforeTokens)
{
    TokenFixture f;
    f.initialize();
    f.process.runMessages = [&]
    {
        f.host.calls.push_back ("messages");
        return true;
    };
    f.send (otherToken);
    f.process.DoIdle();
    EXPECT_THAT (f.host.calls, ElementsAre ("messages", "take", "done", "idle"));
}
} // namespace
