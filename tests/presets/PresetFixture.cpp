// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Makes and removes the home, and collects what a host is told.

#include "PresetFixture.h"

#include <gtest/gtest.h>

#include <cstdlib>

PresetHome::PresetHome()
    : folder (juce::File::createTempFile ({})),
      previousHome (std::getenv ("HOME"))
{
    folder.createDirectory();
    ::setenv ("HOME", folder.getFullPathName().toRawUTF8(), 1);
}

PresetHome::~PresetHome()
{
    ::setenv ("HOME", previousHome.c_str(), 1);
    folder.deleteRecursively();
}

HostLog::HostLog (WideLoomAudioProcessor& processorToHear)
    : processor (processorToHear)
{
    processor.addListener (this);
}

HostLog::~HostLog()
{
    processor.removeListener (this);
}

void HostLog::audioProcessorParameterChanged (juce::AudioProcessor*, int index, float value)
{
    lines.add (processor.getParameterManager()->getParameterName (index) + "=" + juce::String (value));
}

juce::String stateOf (WideLoomAudioProcessor& processor)
{
    juce::MemoryBlock block;
    processor.getStateInformation (block);

    juce::String text;
    text << processor.getCurrentPresetValueTree().toXmlString() << block.toBase64Encoding()
         << processor.getCurrentPresetName() << processor.getCurrentPresetID()
         << static_cast<int> (processor.currentPresetIsFactory())
         << static_cast<int> (processor.currentPresetWasModified()) << static_cast<int> (processor.canUndo())
         << static_cast<int> (processor.canRedo());
    return text;
}

float treeValue (WideLoomAudioProcessor& processor, const juce::String& name)
{
    auto tree = processor.getCurrentPresetValueTree();
    return processor.getParamValueFromValueTree (&tree,
                                                 processor.getParameterManager()->getParameterIndex (name));
}

float liveValue (const WideLoomAudioProcessor& processor, const juce::String& name)
{
    return processor.getParameterManager()->getParameterValue (name);
}

void savePreset (WideLoomAudioProcessor& processor, const juce::String& name, float width)
{
    processor.setParamAndNotifyHost ("StereoWidth", width, true);
    const auto saved = processor.saveCurrentPresetFromValueTreeToDisk (name, true);
    ASSERT_TRUE (saved.wasOk()) << saved.getErrorMessage();
}

void writeFile (const juce::File& file, const std::string& bytes)
{
    file.getParentDirectory().createDirectory();
    ASSERT_TRUE (file.replaceWithData (bytes.data(), bytes.size()));
}

std::string readFile (const juce::File& file)
{
    juce::MemoryBlock bytes;
    file.loadFileAsData (bytes);
    return { static_cast<const char*> (bytes.getData()), bytes.getSize() };
}
