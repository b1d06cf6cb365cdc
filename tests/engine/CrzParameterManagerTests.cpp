// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The parameter table at indices and names that it does not have.

#include <engine/WideLoomAudioProcessor.h>

#include <gtest/gtest.h>

TEST (CrzParameterManager, AnswersNeutrallyOutsideTheTable)
{
    const WideLoomAudioProcessor processor;
    auto& manager = *processor.getParameterManager();

    EXPECT_EQ (manager.getParameterName (17), "SafeBass");
    EXPECT_EQ (manager.getParameterName (18), "reserved");
    EXPECT_EQ (manager.getParameterName (49), "reserved");
    EXPECT_EQ (manager.getParameterName (-1), "invalid parameter");
    EXPECT_EQ (manager.getParameter (18), nullptr);
    EXPECT_EQ (manager.getParameter ("pan"), nullptr);
    EXPECT_EQ (manager.getParameterIndex ("pan"), -1);
    EXPECT_EQ (manager.getParameterValue ("pan"), 0.0f);
    EXPECT_EQ (manager.getParameterValue (18), 0.0f);
    EXPECT_EQ (manager.getParameterValueAsText (-1), "");
}
