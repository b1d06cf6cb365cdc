// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The factory presets: their trees, and loading them.

#include "PresetFixture.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>

namespace
{
/** What a preset sets, as the bits of its floats: sessions and preset files hold them exactly. */
struct FactoryRow
{
    const char* name;
    std::uint32_t stereoWidth, safeBass, safeBassFreq;
};

constexpr FactoryRow factoryRows[] {
    { "Init", 0x3F000000, 0x00000000, 0x3E926E98 },
    { "TRACK Stereo 125%", 0x3F200000, 0x00000000, 0x3E926E98 },
    { "TRACK Stereo 150%", 0x3F400000, 0x00000000, 0x3E926E98 },
    { "TRACK Stereo 200%", 0x3F800000, 0x00000000, 0x3E926E98 },
    { "GROUP Stereo 125% + SafeBass", 0x3F200000, 0x3F800000, 0x3EFAC711 },
    { "GROUP Stereo 150% + SafeBass", 0x3F400000, 0x3F800000, 0x3EFAC711 },
    { "GROUP Stereo 200% + SafeBass", 0x3F800000, 0x3F800000, 0x3EFAC711 },
    { "MASTER Stereo 105% + SafeBass", 0x3F066666, 0x3F800000, 0x3E926E98 },
    { "MASTER Stereo 110% + SafeBass", 0x3F0CCCCD, 0x3F800000, 0x3E926E98 },
    { "MASTER Stereo 115% + SafeBass", 0x3F133333, 0x3F800000, 0x3E926E98 },
    { "MASTER SafeBass 80 Hz", 0x3F000000, 0x3F800000, 0x3E116873 },
    { "MASTER SafeBass 100 Hz", 0x3F000000, 0x3F800000, 0x3E3B645A },
    { "MASTER SafeBass 150 Hz", 0x3F000000, 0x3F800000, 0x3E926E98 },
    { "MASTER SafeBass 250 Hz", 0x3F000000, 0x3F800000, 0x3EFAC711 },
};

std::uint32_t expectedBits (const FactoryRow& preset, const ParameterRow& parameter)
{
    switch (parameter.id)
    {
        case ParameterId::stereoWidth:
            return preset.stereoWidth;
        case ParameterId::safeBass:
            return preset.safeBass;
        case ParameterId::safeBassFreq:
            return preset.safeBassFreq;
        default:
            return std::bit_cast<std::uint32_t> (parameter.defaultValue);
    }
}

class FactoryPresets : public testing::Test
{
protected:
    PresetHome home;
    WideLoomAudioProcessor processor;
};
} // namespace

TEST_F (FactoryPresets, HaveTheShapeOfAFileAndTheirOwnIdentity)
{
    const auto names = processor.getAllFactoryPresetNames();
    ASSERT_EQ (names.size(), 14);
    EXPECT_EQ (names[0], "Init");
    EXPECT_EQ (names[13], "MASTER SafeBass 250 Hz");

    auto tree = processor.getFactoryPresetTree (7);
    ASSERT_EQ (tree.getNumProperties(), 4);
    EXPECT_EQ (tree.getPropertyName (1).toString(), "PresetName");
    EXPECT_EQ (tree.getPropertyName (2).toString(), "PresetID");
    EXPECT_TRUE (tree["PresetID"].isInt());
    EXPECT_EQ (tree["PresetType"].toString(), "Factory");
    EXPECT_EQ (tree.getNumChildren(), numParameters);
    EXPECT_EQ (processor.getParamValueFromValueTree (&tree, indexOf (ParameterId::stereoWidth)), 0.525f);
    EXPECT_FALSE (processor.getFactoryPresetTree (14).isValid());
}

TEST_F (FactoryPresets, HoldTheirThreeValuesAndTheDefaultsOfAllOthers)
{
    const auto names = processor.getAllFactoryPresetNames();
    int presetID = 0;

    for (const auto& preset : factoryRows)
    {
        auto tree = processor.getFactoryPresetTree (presetID);
        EXPECT_EQ (names[presetID], preset.name);
        EXPECT_EQ (tree["PresetName"].toString(), preset.name);
        EXPECT_EQ (static_cast<int> (tree["PresetID"]), presetID);

        for (const auto& row : parameterTable)
        {
            const float value = processor.getParamValueFromValueTree (&tree, indexOf (row.id));
            EXPECT_EQ (std::bit_cast<std::uint32_t> (value), expectedBits (preset, row))
                << preset.name << " " << row.name;
        }

        ++presetID;
    }
}

TEST_F (FactoryPresets, LoadingIsOneStepAndResetsEverything)
{
    processor.setParamAndNotifyHost ("InputGain", 0.75f, false);
    HostLog log (processor);

    EXPECT_TRUE (processor.loadFactoryPresetUndoableWithID (5));

    EXPECT_EQ (log.lines.size(), 1 + numParameters);
    EXPECT_EQ (log.lines[0], "display");
    EXPECT_EQ (log.lines[2], "StereoWidth=0.75");
    EXPECT_EQ (processor.getCurrentPresetName(), "GROUP Stereo 150% + SafeBass");
    EXPECT_EQ (processor.getCurrentPresetID(), 5);
    EXPECT_EQ (liveValue (processor, "SafeBassFreq"), 0.4898f);
    EXPECT_EQ (liveValue (processor, "InputGain"), 0.5f);

    processor.setParamAndNotifyHost ("Mono", 1.0f, false);
    processor.undoLastParameterChange();
    EXPECT_EQ (processor.getCurrentPresetName(), "GROUP Stereo 150% + SafeBass*");
    processor.undoLastParameterChange();
    EXPECT_EQ (processor.getCurrentPresetName(), "Init*");
    EXPECT_EQ (liveValue (processor, "InputGain"), 0.75f);
}

TEST_F (FactoryPresets, LoadingTheCurrentOneAgainAddsNoStepAndGivesTheStoredValues)
{
    EXPECT_TRUE (processor.loadFactoryPresetUndoableWithID (0));
    EXPECT_FALSE (processor.canUndo());

    processor.loadFactoryPresetUndoableWithID (3);
    processor.setParamAndNotifyHost ("StereoWidth", 0.1f, true);
    processor.loadFactoryPresetUndoableWithID (3);
    EXPECT_EQ (liveValue (processor, "StereoWidth"), 1.0f);
    EXPECT_FALSE (processor.currentPresetWasModified());
}

TEST_F (FactoryPresets, IdsOutsideTheListDoNothing)
{
    processor.setParamAndNotifyHost ("Pan", 0.75f, false);
    const auto before = stateOf (processor);

    for (const int id : { -1, 14, 0x7fffffff })
        EXPECT_FALSE (processor.loadFactoryPresetUndoableWithID (id));

    EXPECT_EQ (stateOf (processor), before);
    processor.setParamAndNotifyHost ("Mono", 1.0f, true);
    processor.undoLastParameterChange();
    EXPECT_FALSE (processor.canUndo()) << "the open step was not closed";
}
