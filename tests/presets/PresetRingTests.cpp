// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Stepping through the ring of factory and user presets while the folder changes.

#include "PresetFixture.h"

#include <gtest/gtest.h>

namespace
{
class PresetRing : public testing::Test
{
protected:
    void restoreIdentity (bool factory, const char* name)
    {
        const auto text = "<Q7PLUGINSETTINGS programName=\"" + juce::String (name)
                          + "\" stepFactoryPresets=\"" + (factory ? "1" : "0") + "\"/>";
        juce::MemoryOutputStream block;
        block.writeInt (0x21324356);
        block.writeInt (text.length());
        block.writeString (text);
        processor.setStateInformation (block.getData(), static_cast<int> (block.getDataSize()));
    }

    PresetHome home;
    WideLoomAudioProcessor processor;
};
} // namespace

TEST_F (PresetRing, GoesThroughBothListsAndNeverEnds)
{
    savePreset (processor, "A", 0.25f);
    savePreset (processor, "B", 0.75f);
    processor.loadFactoryPresetUndoableWithID (0);

    auto ring = processor.getAllFactoryPresetNames();
    ring.addArray (processor.getAllUserPresetNames());

    for (int step = 1; step <= ring.size() + 1; ++step)
    {
        processor.loadNextPreset();
        EXPECT_EQ (processor.getCurrentPresetName(), ring[step % ring.size()]) << step;
    }

    for (int step = ring.size(); step >= -1; --step)
    {
        processor.loadPrevPreset();
        EXPECT_EQ (processor.getCurrentPresetName(), ring[(step + ring.size()) % ring.size()]) << step;
    }

    EXPECT_EQ (processor.getCurrentPresetID(), 1);
    EXPECT_FALSE (processor.currentPresetIsFactory());
}

TEST_F (PresetRing, WithoutUserPresetsIsTheFactoryList)
{
    processor.loadPrevPreset();
    EXPECT_EQ (processor.getCurrentPresetName(), "MASTER SafeBass 250 Hz");
    processor.loadNextPreset();
    EXPECT_EQ (processor.getCurrentPresetName(), "Init");
}

TEST_F (PresetRing, ReadsTheFolderAtEachStep)
{
    {
        WideLoomAudioProcessor other;
        savePreset (other, "New", 0.75f);
    }

    processor.loadPrevPreset();
    EXPECT_EQ (processor.getCurrentPresetName(), "New");

    home.presetFile ("New").deleteFile();
    processor.loadPrevPreset();
    EXPECT_EQ (processor.getCurrentPresetName(), "MASTER SafeBass 250 Hz")
        << "from position 0 of an empty list";
}

TEST_F (PresetRing, StepsBackFromPastAShrunkList)
{
    for (const char* name : { "A", "B", "C" })
        savePreset (processor, name, 0.75f);

    ASSERT_TRUE (processor.loadUserPresetUndoableWithID (2));
    home.presetsFolder().deleteRecursively();
    home.presetsFolder().createDirectory();
    processor.loadPrevPreset();
    EXPECT_EQ (processor.getCurrentPresetName(), "Init");
}

TEST_F (PresetRing, StepsBackFromAFactoryPositionPastTheList)
{
    for (int i = 0; i < 20; ++i)
        savePreset (processor, juce::String (i), 0.75f);

    ASSERT_TRUE (processor.loadUserPresetUndoableWithID (19));
    restoreIdentity (true, "Nowhere");
    ASSERT_EQ (processor.getCurrentPresetID(), 19);

    processor.loadPrevPreset();
    EXPECT_TRUE (processor.currentPresetIsFactory());
    EXPECT_EQ (processor.getCurrentPresetID(), 13);

    restoreIdentity (true, "Nowhere");
    processor.loadNextPreset();
    EXPECT_FALSE (processor.currentPresetIsFactory());
    EXPECT_EQ (processor.getCurrentPresetID(), 0);
}

TEST_F (PresetRing, AModifiedNameHasOneMarkAndIsInNoList)
{
    processor.setCurrentPresetNameUndoable ("*Star*");
    EXPECT_EQ (processor.getProgramName (5), "*Star*");
    processor.setParamAndNotifyHost ("Pan", 0.75f, true);
    EXPECT_EQ (processor.getProgramName (0), "Star*");

    processor.loadFactoryPresetUndoableWithID (4);
    processor.changeProgramName (0, "Init");
    processor.setParamAndNotifyHost ("Pan", 0.75f, true);
    processor.updateCurrentPresetID();
    EXPECT_EQ (processor.getCurrentPresetID(), 4);
}
