// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// How long the bottom line's texts stand, with the time driven by hand.

#include <editor/InfoLine.h>

#include <gtest/gtest.h>

namespace
{
constexpr bool important = true;
constexpr bool plain = false;

juce::Time at (double seconds)
{
    constexpr juce::int64 someDayMs = 1700000000000;
    return juce::Time (someDayMs) + juce::RelativeTime::seconds (seconds);
}

TEST (InfoLine, FirstTextGoesAtTheFirstTickAndAPlainOneSixSecondsAfterTheLastChange)
{
    InfoLine line { "first" };
    EXPECT_EQ (line.getText(), "first");
    line.tick (at (0.0));
    EXPECT_EQ (line.getText(), "");

    line.setText ("one", plain, at (0.0));
    line.setText ("two", plain, at (4.0));
    line.tick (at (10.0));
    EXPECT_EQ (line.getText(), "two"); // not yet later than six seconds
    line.tick (at (10.001));
    EXPECT_EQ (line.getText(), "");
}

TEST (InfoLine, ImportantTextStandsThreeSecondsAgainstPlainOnes)
{
    InfoLine line { {} };
    line.setText ("hover", plain, at (0.0));
    line.setText ("saved", important, at (1.0));
    line.setText ("hover", plain, at (2.0));
    line.setText ({}, plain, at (3.0));
    line.tick (at (4.0));
    EXPECT_EQ (line.getText(), "saved");

    // Old enough, but only a tick makes room.
    line.setText ("hover", plain, at (5.0));
    EXPECT_EQ (line.getText(), "saved");
    line.tick (at (5.0));
    EXPECT_EQ (line.getText(), "");
    line.setText ("hover", plain, at (5.1));
    EXPECT_EQ (line.getText(), "hover");
}

TEST (InfoLine, ImportantTextReplacesAnImportantOneAndStartsAnew)
{
    InfoLine line { {} };
    line.setText ("one", important, at (0.0));
    line.setText ("two", important, at (2.0));
    line.tick (at (5.0));
    EXPECT_EQ (line.getText(), "two");
    line.tick (at (5.1));
    EXPECT_EQ (line.getText(), "");
}
} // namespace
