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
struct BytesRow
{
    const char* name;
    std::function<void (TokenFixture&)> act;
    std::size_t which; // of the tokens that are sent
    std::int32_t nameID;
    std::uint32_t type, subType;
    std::int16_t length;
    std::vector<unsigned char> payload;
};

using CProcessTokenBytes = testing::TestWithParam<BytesRow>;

TEST_P (CProcessTokenBytes, AreExact)
{
    const auto& row = GetParam();
    TokenFixture f;
    f.initialize();
    row.act (f);
    ASSERT_GT (f.host.dispatched.size(), row.which);

    constexpr std::size_t unusedOffset = 32, lengthOffset = 36;
    std::vector<unsigned char> expected (unusedOffset);
    const std::array<std::uint32_t, 6> numbers {
        static_cast<std::uint32_t> (row.nameID), row.type, row.subType, fourCC ("DGDN"), fourCC ("Ctrl"),
        static_cast<std::uint32_t> (row.nameID)
    };
    std::memcpy (expected.data(), numbers.data(), sizeof (numbers));

    std::vector<unsigned char> sent (static_cast<std::size_t> (row.length));
    std::memcpy (sent.data(), &f.host.dispatched[row.which], sent.size());

    EXPECT_TRUE (std::equal (expected.begin(), expected.end(), sent.begin()));

    std::int16_t length = 0;
    std::memcpy (&length, sent.data() + lengthOffset, sizeof (length));
    EXPECT_EQ (length, row.length);
    EXPECT_EQ (std::vector<unsigned char> (sent.begin() + ficTokenHeaderLength, sent.end()), row.payload);
}

void touch (TokenFixture& f)
{
    f.process.TouchControl (1);
    f.process.ReleaseControl (1);
}

void setValue (TokenFixture& f)
{
    f.process.SetControlValue (1, value);
}

void updateValue (TokenFixture& f)
{
    f.process.UpdateControlValue (1, value);
}

// A value's bytes in host order, on the machines that this is built for.
const std::vector<unsigned char> valueBytes { 0x78, 0x56, 0x34, 0x12 };

const std::vector<BytesRow> bytesRows {
    { "Touch", touch, 0, widthID, fourCC ("SETV"), fourCC ("CTCH"), 44, { 1, 0, 1, 0, 0, 0 } },
    { "Grab", touch, 1, FakeTokenHost::groupNameID, fourCC ("SETV"), fourCC ("GIAC"), 38, {} },
    { "Release", touch, 2, widthID, fourCC ("SETV"), fourCC ("CTCH"), 44, { 0, 0, 1, 0, 0, 0 } },
    { "Set", setValue, 2, widthID, fourCC ("SETV"), fourCC ("CAVL"), 42, valueBytes },
    { "Current", updateValue, 0, widthID, fourCC ("CURV"), fourCC ("CAVL"), 42, valueBytes },
};

INSTANTIATE_ROWS (CProcessTokenBytes, bytesRows);

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
    for (const auto& row : { TouchRow { "T", "tg" },
                             { "TR", "tgr" },
                             { "TTR", "tg" },
                             { "TTRR", "tgr" },
                             { "TRTR", "tgrtgr" },
                             { "V", "tgvr" },
                             { "TVVR", "tgvvr" },
                             { "RR", "" },
                             { "RTR", "tgr" },
                             { "TRVTV", "", 3 },
                             { "TRV", "", -1 } })
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
