// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// What makes an undo step, and what steps bring back, across presets, too.

#include "PresetFixture.h"

#include <gtest/gtest.h>

namespace
{
class Undo : public testing::Test
{
protected:
    /** Counts the steps back to the start, and goes forward again. */
    int countSteps()
    {
        int steps = 0;

        for (; processor.canUndo(); ++steps)
            processor.undoLastParameterChange();

        while (processor.canRedo())
            processor.redoLastParameterChange();

        return steps;
    }

    struct Identity
    {
        bool factory;
        int id;
        juce::String name;

        bool operator== (const Identity&) const = default;
    };

    Identity identity() const
    {
        return { processor.currentPresetIsFactory(),
                 processor.getCurrentPresetID(),
                 processor.getCurrentPresetName() };
    }

    PresetHome home;
    WideLoomAudioProcessor processor;
};
} // namespace

TEST_F (Undo, ADragIsOneStep)
{
    EXPECT_FALSE (processor.canUndoOrRedo());

    for (const float value : { 0.6f, 0.7f, 0.8f })
        processor.setParamAndNotifyHost ("StereoWidth", value, false);

    processor.beginNewTransaction();
    processor.setParamAndNotifyHost ("Mono", 1.0f, true);

    HostLog log (processor);
    processor.undoLastParameterChange();
    EXPECT_EQ (liveValue (processor, "Mono"), 0.0f);
    EXPECT_EQ (liveValue (processor, "StereoWidth"), 0.8f);

    log.lines.clear();
    processor.undoLastParameterChange();
    EXPECT_EQ (liveValue (processor, "StereoWidth"), 0.5f);
    EXPECT_EQ (treeValue (processor, "StereoWidth"), 0.5f);
    EXPECT_TRUE (log.lines.contains ("StereoWidth=0.5"));
    EXPECT_EQ (log.lines.size(), 1 + numParameters) << "the name and every parameter are told again";
    EXPECT_FALSE (processor.canUndo());
    EXPECT_EQ (processor.getCurrentPresetName(), "Init*") << "undo does not take the mark away";

    processor.redoLastParameterChange();
    processor.redoLastParameterChange();
    EXPECT_FALSE (processor.canRedo());
    EXPECT_EQ (liveValue (processor, "StereoWidth"), 0.8f);
    EXPECT_EQ (liveValue (processor, "Mono"), 1.0f);
}

TEST_F (Undo, TheValueThatTheTreeHasAddsNothing)
{
    processor.setParameter (indexOf (ParameterId::pan), 1.0f);
    const HostLog log (processor);

    processor.setParamAndNotifyHost ("Pan", 0.5f, true);
    processor.setParamAndNotifyHost ("pan", 0.25f, true);

    EXPECT_EQ (log.lines, (juce::StringArray { "Pan=0.5" })) << "the host is told of known names";
    EXPECT_FALSE (processor.canUndo());
    EXPECT_FALSE (processor.currentPresetWasModified());
}

TEST_F (Undo, AnEqualValueOpensNoTransaction)
{
    processor.setParamAndNotifyHost ("Pan", 0.75f, false);
    processor.setParamAndNotifyHost ("Pan", 0.75f, true);
    processor.setParamAndNotifyHost ("Mono", 1.0f, true);
    EXPECT_EQ (countSteps(), 1);
}

TEST_F (Undo, AutomationIsOverriddenByTheTree)
{
    processor.setParamAndNotifyHost ("Pan", 0.75f, true);
    processor.setParameter (indexOf (ParameterId::stereoWidth), 1.0f);
    EXPECT_EQ (countSteps(), 1);
    EXPECT_EQ (liveValue (processor, "StereoWidth"), 0.5f);
}

TEST_F (Undo, MuteOptionIsOneStepAndNeverBothAtOnce)
{
    const HostLog log (processor);
    processor.setMuteMsOption (MuteMsOption::muteSideOnly);
    processor.setMuteMsOption (MuteMsOption::muteMidOnly);

    EXPECT_EQ (log.lines, (juce::StringArray { "MuteMid=0", "MuteSide=1", "MuteMid=1", "MuteSide=0" }));
    EXPECT_EQ (countSteps(), 2);

    processor.setParamAndNotifyHost ("Pan", 0.75f, false);
    processor.setMuteMsOption (static_cast<MuteMsOption> (7));
    processor.setParamAndNotifyHost ("Mono", 1.0f, true);
    EXPECT_EQ (countSteps(), 4) << "an unknown option still closes the step";
}

TEST_F (Undo, ClearingTheHistoryKeepsTheValues)
{
    processor.setParamAndNotifyHost ("Pan", 0.75f, true);
    processor.clearUndoHistory();
    EXPECT_FALSE (processor.canUndoOrRedo());
    EXPECT_EQ (liveValue (processor, "Pan"), 0.75f);

    const HostLog log (processor);
    processor.undoLastParameterChange();
    EXPECT_EQ (log.lines.size(), 1 + numParameters) << "quiet, but the host hears the tree";
}

TEST_F (Undo, TypedNamesAreSteps)
{
    processor.setCurrentPresetNameUndoable ("One");
    processor.setCurrentPresetNameUndoable ("Two");
    processor.undoLastParameterChange();
    EXPECT_EQ (processor.getCurrentPresetName(), "One");
    processor.undoLastParameterChange();
    EXPECT_EQ (processor.getCurrentPresetName(), "Init");
}

TEST_F (Undo, IdentityFollowsTheNameAcrossPresets)
{
    savePreset (processor, "Mine", 0.75f);
    processor.loadFactoryPresetUndoableWithID (0);
    processor.clearUndoHistory();

    processor.loadFactoryPresetUndoableWithID (3);
    ASSERT_TRUE (processor.loadUserPresetUndoableWithID (0));
    processor.loadFactoryPresetUndoableWithID (5);

    const Identity init { true, 0, "Init" };
    const Identity third { true, 3, "TRACK Stereo 200%" };
    const Identity mine { false, 0, "Mine" };
    const Identity fifth { true, 5, "GROUP Stereo 150% + SafeBass" };

    for (const auto& expected : { mine, third, init })
    {
        processor.undoLastParameterChange();
        EXPECT_EQ (identity(), expected) << expected.name;
    }

    for (const auto& expected : { third, mine, fifth })
    {
        processor.redoLastParameterChange();
        EXPECT_EQ (identity(), expected) << expected.name;
    }
}

TEST_F (Undo, ANameInBothListsIsTakenFromTheListOfItsType)
{
    savePreset (processor, "Init", 0.75f);
    ASSERT_TRUE (processor.loadUserPresetUndoableWithID (0));
    processor.loadFactoryPresetUndoableWithID (3);
    processor.undoLastParameterChange();
    EXPECT_EQ (identity(), (Identity { false, 0, "Init" }));
}

TEST_F (Undo, ANameThatIsNowhereLeavesTheIdentityInRange)
{
    savePreset (processor, "Mine", 0.75f);
    savePreset (processor, "Other", 0.25f);
    processor.loadUserPresetUndoableWithID (1);
    processor.setCurrentPresetNameUndoable ("Nowhere");
    processor.setCurrentPresetNameUndoable ("Elsewhere");
    home.presetsFolder().deleteRecursively();

    processor.undoLastParameterChange();
    EXPECT_EQ (identity(), (Identity { false, 0, "Nowhere" }));
}

TEST_F (Undo, AStepWithinAPresetLeavesTheIdentity)
{
    processor.loadFactoryPresetUndoableWithID (3);
    processor.setParamAndNotifyHost ("Pan", 0.75f, true);
    processor.undoLastParameterChange();
    EXPECT_EQ (identity(), (Identity { true, 3, "TRACK Stereo 200%*" }));
}
