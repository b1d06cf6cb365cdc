// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The session block: its bytes, its way through another instance, and blocks that are bad.

#include "PresetFixture.h"

#include <gtest/gtest.h>
#include <presets/DisplayHeight.h>

#include <cmath>
#include <ostream>

namespace
{
/** A block around any text, with any magic. */
std::string blockOf (const std::string& text, juce::uint32 magic = 0x21324356)
{
    juce::MemoryOutputStream block;
    block.writeInt (static_cast<int> (magic));
    block.writeInt (static_cast<int> (text.size()));
    block.write (text.data(), text.size());
    block.writeByte (0);
    return { static_cast<const char*> (block.getData()), block.getDataSize() };
}

std::string element (const std::string& attributes)
{
    return "<Q7PLUGINSETTINGS " + attributes + "/>";
}

void restore (WideLoomAudioProcessor& processor, const std::string& block)
{
    processor.setStateInformation (block.data(), static_cast<int> (block.size()));
}

class SessionState : public testing::Test
{
protected:
    PresetHome home;
    WideLoomAudioProcessor processor;
};

struct BadBlock
{
    const char* name;
    std::string block;
};

void PrintTo (const BadBlock& row, std::ostream* stream)
{
    *stream << row.name;
}

class SessionStateBadBlock : public SessionState, public testing::WithParamInterface<BadBlock>
{
};

const std::string goodAttributes = "programName=\"X\" channelName=\"Y\" lastEditorHeight=\"700\" Pan=\"1\"";

std::vector<BadBlock> badBlocks()
{
    const auto good = blockOf (element (goodAttributes));
    auto negative = good;
    negative[7] = '\x80';
    auto withoutLength = good;
    withoutLength[4] = withoutLength[5] = '\0';

    return { { "Empty", "" },
             { "EightBytes", good.substr (0, 8) },
             { "CutShort", good.substr (0, good.size() - 5) },
             { "ForeignMagic", blockOf (element (goodAttributes), 0x21324357) },
             { "LengthZero", withoutLength },
             { "LengthNegative", negative },
             { "ForeignTag", blockOf ("<Q7PLUGINSETTING " + goodAttributes + "/>") },
             { "TagInLowerCase", blockOf ("<q7pluginsettings " + goodAttributes + "/>") },
             { "NoXml", blockOf ("Q7PLUGINSETTINGS") },
             { "UnknownReference", blockOf (element (goodAttributes + " a=\"&b;\"")) },
             { "DocumentType", blockOf ("<!DOCTYPE a [<!ENTITY b \"c\">]>" + element (goodAttributes)) },
             { "NotUtf8", blockOf (element (goodAttributes + " a=\"\xff\"")) },
             { "TooLong",
               blockOf (element (goodAttributes + " a=\"" + std::string (256 * 1024, 'a') + "\"")) } };
}
} // namespace

TEST_F (SessionState, IsByteForByteAsLaidDown)
{
    const ScopedMainDisplayUserHeight display (900);
    WideLoomAudioProcessor other;
    other.setEditorHeight (600);
    juce::String channel ("Drums & \"Bass\"");
    other.setChannelName (channel);
    other.setExpertMode (true);
    other.setParamAndNotifyHost ("Pan", 0.1f, true);

    juce::MemoryBlock block;
    block.append ("old", 3);
    other.getStateInformation (block);

    const std::string text =
        "<Q7PLUGINSETTINGS defaultEditorHeight=\"450\" lastEditorHeight=\"600\" "
        "colourSchemeBrightnessAsDouble=\"0.300000011920929\" programName=\"Init*\" "
        "channelName=\"Drums &amp; &quot;Bass&quot;\" expertModeAsDouble=\"1.0\" stepFactoryPresets=\"1\" "
        "Bypass=\"0.0\" StereoWidth=\"0.5\" Pan=\"0.1000000014901161\" InputGain=\"0.5\" OutputGain=\"0.5\" "
        "SwapLR=\"0.0\" PhaseFlip=\"0.0\" Mono=\"0.0\" MuteAll=\"0.0\" MuteMid=\"0.0\" MuteSide=\"0.0\" "
        "PanCurve=\"0.1000000014901161\" PanLaw=\"0.0\" MsMode=\"0.0\" PanMode=\"0.1000000014901161\" "
        "PhaseAlignSide=\"0.0\" SafeBassFreq=\"0.2860000133514404\" SafeBass=\"0.0\"/>";
    EXPECT_EQ (std::string (static_cast<const char*> (block.getData()), block.getSize()), blockOf (text));
}

TEST_F (SessionState, RestoresAnotherInstance)
{
    processor.loadFactoryPresetUndoableWithID (9);
    processor.setParamAndNotifyHost ("Pan", 0.123f, true);
    processor.setCurrentColourSchemeBrightness (0.7f);
    processor.setExpertMode (true);
    processor.setEditorHeight (777);
    juce::MemoryBlock block;
    processor.getStateInformation (block);

    WideLoomAudioProcessor other;
    HostLog log (other);
    other.setStateInformation (block.getData(), static_cast<int> (block.getSize()));

    EXPECT_EQ (log.lines, (juce::StringArray { "display" })) << "it is the host that restores";
    EXPECT_EQ (other.getCurrentPresetName(), "MASTER Stereo 115% + SafeBass*");
    EXPECT_FALSE (other.currentPresetWasModified());
    EXPECT_EQ (other.getCurrentPresetID(), 0) << "no preset has the name with its mark";
    EXPECT_EQ (liveValue (other, "Pan"), 0.123f);
    EXPECT_EQ (treeValue (other, "Pan"), 0.123f);
    EXPECT_EQ (other.getCurrentColourSchemeBrightness(), 0.7f);
    EXPECT_TRUE (other.getExpertMode());
    EXPECT_EQ (other.getEditorHeight(), 777);

    EXPECT_TRUE (other.canUndo());
    other.setParamAndNotifyHost ("Mono", 1.0f, true);
    other.undoLastParameterChange();
    EXPECT_FALSE (other.canUndo()) << "restoring opens no step of its own";
    EXPECT_EQ (other.getCurrentPresetName(), "Init*");
}

TEST_F (SessionState, RestoresOverAModifiedPresetAndKeepsTheMark)
{
    WideLoomAudioProcessor other;
    other.loadFactoryPresetUndoableWithID (2);
    juce::MemoryBlock block;
    other.getStateInformation (block);

    savePreset (processor, "Mine", 0.75f);
    processor.setParamAndNotifyHost ("Mono", 1.0f, true);
    processor.setParamAndNotifyHost ("Pan", 0.9f, false);
    ASSERT_EQ (processor.getCurrentPresetName(), "Mine*");
    const int position = processor.getCurrentPresetID();
    processor.setStateInformation (block.getData(), static_cast<int> (block.getSize()));

    const auto expectRestored = [&] (const char* when)
    {
        EXPECT_EQ (processor.getCurrentPresetName(), other.getCurrentPresetName() + "*") << when;

        for (const auto& row : parameterTable)
        {
            EXPECT_EQ (liveValue (processor, row.name), liveValue (other, row.name)) << row.name << when;
            EXPECT_EQ (treeValue (processor, row.name), liveValue (other, row.name)) << row.name << when;
        }
    };

    expectRestored (" after restoring");
    EXPECT_EQ (processor.getCurrentPresetID(), position) << "with its mark the name is in no list";
    EXPECT_TRUE (processor.currentPresetIsFactory());
    processor.undoLastParameterChange();
    EXPECT_EQ (treeValue (processor, "Pan"), liveValue (processor, "Pan"));
    EXPECT_EQ (liveValue (processor, "Mono"), 1.0f) << "the step that was closed before";
    processor.redoLastParameterChange();
    expectRestored (" after redo");
}

TEST_F (SessionState, MissingAttributesHaveTheirDefaults)
{
    processor.setEditorHeight (777);
    const auto defaultHeight = processor.getDefaultEditorHeight();
    processor.setCurrentColourSchemeBrightness (0.7f);
    processor.setExpertMode (true);
    processor.loadFactoryPresetUndoableWithID (5);

    restore (processor, blockOf ("<Q7PLUGINSETTINGS/>"));

    EXPECT_EQ (processor.getDefaultEditorHeight(), defaultHeight);
    EXPECT_EQ (processor.getEditorHeight(), defaultHeight);
    EXPECT_EQ (processor.getCurrentColourSchemeBrightness(), 0.0f);
    EXPECT_EQ (processor.getCurrentPresetName(), "(NO NAME)");
    EXPECT_EQ (processor.getChannelName(), "No Channel Name");
    EXPECT_FALSE (processor.getExpertMode());
    EXPECT_FALSE (processor.currentPresetIsFactory());
    EXPECT_EQ (processor.getCurrentPresetID(), 5);

    for (const auto& row : parameterTable)
        EXPECT_EQ (liveValue (processor, row.name), 0.0f) << row.name;
}

TEST_F (SessionState, FindsTheNamedPresetInTheListThatItNames)
{
    savePreset (processor, "A", 0.75f);
    savePreset (processor, "B", 0.75f);
    const auto names = processor.getAllUserPresetNames();

    restore (processor, blockOf (element ("stepFactoryPresets=\"0\" programName=\"B\"")));
    EXPECT_FALSE (processor.currentPresetIsFactory());
    EXPECT_EQ (processor.getCurrentPresetID(), names.indexOf ("B"));

    restore (processor, blockOf (element ("stepFactoryPresets=\"1\" programName=\"TRACK Stereo 150%\"")));
    EXPECT_TRUE (processor.currentPresetIsFactory());
    EXPECT_EQ (processor.getCurrentPresetID(), 2);

    restore (processor, blockOf (element ("stepFactoryPresets=\"2\" programName=\"Nowhere\"")));
    EXPECT_FALSE (processor.currentPresetIsFactory());
    EXPECT_EQ (processor.getCurrentPresetID(), 2);
}

TEST_F (SessionState, TakesBlocksWithAHeaderLineAndWithAnOverlongLength)
{
    auto block = blockOf ("<?xml version=\"1.0\" encoding=\"UTF-8\"?> " + element (goodAttributes));
    block[5] = '\x7f';
    restore (processor, block);
    EXPECT_EQ (processor.getCurrentPresetName(), "X");
    EXPECT_EQ (processor.getChannelName(), "Y");
}

TEST_F (SessionState, LimitsWhatIsOutOfRange)
{
    struct
    {
        const char* text;
        float value;
    } const values[] { { "nan", 0.0f },   { "inf", 0.0f },   { "-inf", 0.0f },
                       { "1e999", 0.0f }, { "1e300", 1.0f }, { "-0.5", 0.0f },
                       { "1.5", 1.0f },   { "text", 0.0f },  { "0.25", 0.25f } };

    for (const auto& row : values)
    {
        const std::string text (row.text);
        restore (processor,
                 blockOf (element ("Pan=\"" + text + "\" colourSchemeBrightnessAsDouble=\"" + text
                                   + "\" expertModeAsDouble=\"" + text + "\"")));
        EXPECT_EQ (liveValue (processor, "Pan"), row.value) << text;
        EXPECT_EQ (treeValue (processor, "Pan"), row.value) << text;
        EXPECT_TRUE (std::isfinite (processor.getCurrentColourSchemeBrightness())) << text;
    }

    processor.setEditorHeight (500);
    const auto height = processor.getDefaultEditorHeight();

    for (const std::string bad :
         { "0", "-5", "10001", "4294967796", "99999999999999999999999", "", "x", "nan" })
    {
        restore (processor,
                 blockOf (element ("defaultEditorHeight=\"" + bad + "\" lastEditorHeight=\"" + bad + "\"")));
        EXPECT_EQ (processor.getDefaultEditorHeight(), height) << bad;
        EXPECT_EQ (processor.getEditorHeight(), height) << bad;
    }

    restore (processor, blockOf (element ("defaultEditorHeight=\"10000\"")));
    EXPECT_EQ (processor.getEditorHeight(), 10000) << "the height just restored is the other's default";
}

TEST_P (SessionStateBadBlock, ChangesNothing)
{
    processor.setParamAndNotifyHost ("Pan", 0.75f, true);
    const auto before = stateOf (processor);
    const HostLog log (processor);

    restore (processor, GetParam().block);

    EXPECT_EQ (stateOf (processor), before);
    EXPECT_TRUE (log.lines.isEmpty());
}

TEST_F (SessionState, NullAndNegativeSizesChangeNothing)
{
    const auto before = stateOf (processor);
    processor.setStateInformation (nullptr, 100);
    processor.setStateInformation ("VC2!....", -1);
    EXPECT_EQ (stateOf (processor), before);
}

INSTANTIATE_TEST_SUITE_P (Blocks,
                          SessionStateBadBlock,
                          testing::ValuesIn (badBlocks()),
                          [] (const auto& row) { return std::string (row.param.name); });
