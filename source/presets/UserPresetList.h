// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The list of the presets in a folder.

#pragma once

#include <juce_core/juce_core.h>

#include <cstddef>
#include <map>
#include <string>

/** The folder is the list: every call opens and reads every file again. Only the parsing is spared, for files
    whose bytes are those that were parsed last. [message] */
class UserPresetList
{
public:
    /** The names of the presets in the folder, in the order in which the file system gives them. Files that
       are no presets, or damaged, are left out. */
    juce::StringArray readNames (const juce::File& folder);

private:
    /** What is known of one file. */
    struct Known
    {
        std::string bytes;
        bool isPreset = false;
    };

    using KnownFiles = std::map<juce::String, Known>;

    static bool isPreset (const juce::File& file,
                          const juce::String& name,
                          const KnownFiles& old,
                          Known& now);

    KnownFiles knownFiles;
};
