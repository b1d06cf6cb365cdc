// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The preset tree: its making, its recall and the order in which the host hears of it.

#include "PresetFixture.h"

#include <gtest/gtest.h>

namespace
{
class PresetTree : public testing::Test
{
protected:
    PresetHome home;
    WideLoomAudioProcessor processor;
};

juce::ValueTree treeWith (std::initializer_list<std::pair<const char*, juce::var>> values)
{
    juce::ValueTree tree ("Q7AudioPreset");

    for (const auto& [name, value] : values)
        tree.appendChild (juce::ValueTree ("Parameter", { { "ParameterName", name }, { "Value", value } }),
                          nullptr);

    return tree;
}

juce::StringArray propertyNames (const juce::ValueTree& tree)
{
    juce::StringArray names;

    for (int i = 0; i < tree.getNumProperties(); ++i)
        names.add (tree.getPropertyName (i).toString());

    return names;
}
} // namespace

TEST_F (PresetTree, FreshTreeHoldsNameAndAllParametersInOrder)
{
    const auto& tree = processor.getCurrentPresetValueTree();

    EXPECT_EQ (tree.getType().toString(), "Q7AudioPreset");
    EXPECT_EQ (propertyNames (tree), (juce::StringArray { "Q7PluginName", "PresetName" }));
    EXPECT_EQ (tree["PresetName"].toString(), "Init");
    ASSERT_EQ (tree.getNumChildren(), numParameters);

    for (const auto& row : parameterTable)
    {
        const auto child = tree.getChild (indexOf (row.id));
        EXPECT_EQ (propertyNames (child), (juce::StringArray { "ParameterName", "Value" }));
        EXPECT_EQ (child["ParameterName"].toString(), row.name);
        EXPECT_TRUE (child["Value"].isDouble());
    }
}

TEST_F (PresetTree, RecallTellsTheHostNameFirstThenChildrenInTheirOrder)
{
    auto tree = treeWith ({ { "Pan", 0.25 }, { "NoSuchParameter", 1.0 }, { "Mono", "1" }, { "Pan", 0.75 } });
    tree.setProperty ("PresetName", "Mine", nullptr);
    const HostLog log (processor);

    processor.recallAllParamsFromValueTree (&tree);

    EXPECT_EQ (log.lines, (juce::StringArray { "display", "Pan=0.25", "Mono=1" }));
    EXPECT_EQ (processor.getCurrentPresetName(), "Mine");
    EXPECT_EQ (liveValue (processor, "Pan"), 0.25f) << "of two nodes of one name the first counts";
    EXPECT_EQ (treeValue (processor, "Pan"), 0.25f);
    EXPECT_EQ (liveValue (processor, "StereoWidth"), 0.5f) << "what the tree does not mention stays";
}

TEST_F (PresetTree, RecallWithAnEmptyNameKeepsTheName)
{
    auto tree = treeWith ({ { "Value", "0.625" } });
    tree.setProperty ("PresetName", "", nullptr);
    const HostLog log (processor);

    processor.recallAllParamsFromValueTree (&tree);

    EXPECT_TRUE (log.lines.isEmpty());
    EXPECT_EQ (processor.getCurrentPresetName(), "Init");
}

TEST_F (PresetTree, TextAndNumberGiveTheSameFloat)
{
    for (const auto& value : { juce::var (0.625), juce::var ("0.625") })
    {
        auto tree = treeWith ({ { "Pan", value } });
        EXPECT_EQ (processor.getParamValueFromValueTree (&tree, indexOf (ParameterId::pan)), 0.625f);
    }
}

TEST_F (PresetTree, ReadsNeutrallyWhatIsNotThere)
{
    auto empty = treeWith ({});
    juce::ValueTree invalid;

    EXPECT_EQ (processor.getParamValueFromValueTree (&empty, 0), 0.0f);
    EXPECT_EQ (processor.getParamValueFromValueTree (&invalid, 0), -1.0f);
    EXPECT_EQ (processor.getParamValueFromValueTree (nullptr, 0), -1.0f);

    const auto before = stateOf (processor);
    processor.recallAllParamsFromValueTree (&invalid);
    processor.recallAllParamsFromValueTree (nullptr);
    processor.fillValueTreeWithAllParams (&invalid);
    processor.addAdditionalInfosToValueTree (&invalid);
    processor.setParameterInValueTree (nullptr, "Pan", 1.0f);
    processor.copyAllPresetValuesFromValueTree (invalid);
    EXPECT_EQ (stateOf (processor), before);
}

TEST_F (PresetTree, CopyFromATreeThatLacksAParameterEmptiesItsNodeUndoably)
{
    const auto before = processor.getCurrentPresetValueTree().toXmlString();
    auto source = processor.getCurrentPresetValueTree().createCopy();
    source.removeChild (indexOf (ParameterId::pan), nullptr);
    source.appendChild (juce::ValueTree ("Parameter", { { "ParameterName", "More" } }), nullptr);
    processor.setParameter (indexOf (ParameterId::pan), 0.75f);

    processor.copyAllPresetValuesFromValueTree (source);

    const auto& tree = processor.getCurrentPresetValueTree();
    EXPECT_EQ (tree.getNumChildren(), numParameters) << "nodes are never added";
    EXPECT_EQ (tree.getChild (indexOf (ParameterId::pan)).getNumProperties(), 0);
    EXPECT_EQ (liveValue (processor, "Pan"), 0.75f);

    processor.undoLastParameterChange();
    EXPECT_EQ (tree.toXmlString(), before);

    processor.redoLastParameterChange();
    processor.setParamAndNotifyHost ("Pan", 0.25f, true);
    ASSERT_EQ (tree.getNumChildren(), numParameters + 1);
    EXPECT_EQ (tree.getChild (numParameters)["ParameterName"].toString(), "Pan");
}

TEST_F (PresetTree, StampsElevenPropertiesInOrderAndNotUndoably)
{
    processor.setPlayConfigDetails (2, 4, 48000.0, 64);
    juce::AudioBuffer<float> block (4, 64);
    juce::MidiBuffer midi;
    processor.processBlock (block, midi);

    auto tree = processor.getCurrentPresetValueTree();
    processor.addAdditionalInfosToValueTree (&tree);

    EXPECT_EQ (
        propertyNames (tree).joinIntoString (" "),
        "Q7PluginName PresetName PluginVersion PresetType LastSaved Host InOutChannelConfig SampleRate OS "
        "Language Region User Device");
    EXPECT_EQ (tree["PluginVersion"].toString(), "1.1");
    EXPECT_EQ (tree["PresetType"].toString(), "User");
    EXPECT_EQ (tree["InOutChannelConfig"].toString(), "2 / 4");
    EXPECT_EQ (tree["SampleRate"].toString(), "48000 Hz");
    EXPECT_TRUE (tree["Device"].toString().endsWith ("MB Memory"));
    EXPECT_FALSE (processor.canUndo());
}
