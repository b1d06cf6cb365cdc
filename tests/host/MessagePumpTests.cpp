// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Messages from idle calls: all of them, never inside each other, and owners that vanish among them.

#include "host/platform/MessagePump.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <juce_events/juce_events.h>

#include <optional>
#include <string>
#include <vector>

using testing::ElementsAre;

TEST (MessagePump, RunsWhatWaitsAndWhatThatPosts)
{
    MessagePump pump;
    std::vector<std::string> calls;

    juce::MessageManager::callAsync (
        [&]
        {
            calls.emplace_back ("first");
            juce::MessageManager::callAsync ([&] { calls.emplace_back ("posted by first"); });
        });
    juce::MessageManager::callAsync ([&] { calls.emplace_back ("second"); });

    EXPECT_TRUE (pump.run());
    EXPECT_THAT (calls, ElementsAre ("first", "second", "posted by first"));
    EXPECT_TRUE (pump.run());
    EXPECT_EQ (calls.size(), 3u);
}

TEST (MessagePump, RunsNoMessageInsideAnother)
{
    MessagePump pump;
    MessagePump otherPump;
    std::vector<std::string> calls;

    juce::MessageManager::callAsync (
        [&]
        {
            calls.emplace_back ("first begins");
            EXPECT_TRUE (pump.run());
            EXPECT_TRUE (otherPump.run());
            calls.emplace_back ("first ends");
        });
    juce::MessageManager::callAsync ([&] { calls.emplace_back ("second"); });

    EXPECT_TRUE (pump.run());
    EXPECT_THAT (calls, ElementsAre ("first begins", "first ends", "second"));
}

TEST (MessagePump, TellsThatItsOwnerIsGone)
{
    auto pump = std::make_optional<MessagePump>();
    juce::MessageManager::callAsync ([&] { pump.reset(); });
    EXPECT_FALSE (pump->run());

    MessagePump next;
    bool called = false;
    juce::MessageManager::callAsync ([&] { called = true; });
    EXPECT_TRUE (next.run());
    EXPECT_TRUE (called);
}

TEST (MessagePump, KeepsCallsThatMustNotInterrupt)
{
    MessagePump pump;
    std::vector<std::string> calls;

    juce::MessageManager::callAsync (
        [&]
        {
            MessagePump::callWhenNotRunning ([&] { calls.emplace_back ("afterwards"); });
            calls.emplace_back ("message");
        });
    juce::MessageManager::callAsync ([&] { calls.emplace_back ("last message"); });

    EXPECT_TRUE (pump.run());
    EXPECT_THAT (calls, ElementsAre ("message", "last message", "afterwards"));

    MessagePump::callWhenNotRunning ([&] { calls.emplace_back ("at once"); });
    EXPECT_EQ (calls.back(), "at once");
}
