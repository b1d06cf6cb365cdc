// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The settings file that all instances and processes of a user share.

#pragma once

#include <juce_data_structures/juce_data_structures.h>
#include <juce_events/juce_events.h>

#include <memory>

/** Keys with text values, in the XML form of juce::PropertiesFile.

    Not a juce::PropertiesFile, because that writes back everything that it once read, over what others have
   set since, and reads whatever it finds. Here saving reads the file again and sets only the keys that were
   set through this object; the new file takes the old one's place in one step.

    All operations belong to the message thread or to the one that builds the object. */
class PluginSettingsFile : private juce::Timer
{
public:
    /** Reads the file that the options name. A file that is none of this kind has no values. */
    explicit PluginSettingsFile (const juce::PropertiesFile::Options& options);

    /** Saves what is not saved yet. */
    ~PluginSettingsFile() override;

    const juce::File& getFile() const noexcept { return file; }

    /** Empty for a key without a value. */
    juce::String getValue (const juce::String& key) const { return values[key]; }

    /** Also marks the key as this object's own. Saves some time after the last call. */
    void setValue (const juce::String& key, const juce::String& value);

    /** Saves now if there is anything to save. When it fails the old file stays, the answer is false, and the
        next save tries again. */
    bool saveIfNeeded();

private:
    void timerCallback() override { saveIfNeeded(); }
    bool mergeAndWrite();

    juce::File file;
    int millisecondsBeforeSaving;
    juce::StringPairArray values { false };  ///< keys are case-sensitive
    juce::StringPairArray changes { false }; ///< what to set at the next save
    juce::InterProcessLock processLock;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (PluginSettingsFile)
};
