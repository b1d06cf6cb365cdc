// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Reads a folder of presets.

#include "UserPresetList.h"

#include "PresetFileAccess.h"
#include "UserPresetFile.h"

#include <utility>

namespace
{
/** Presets take a few kilobytes, and no body that may be read is larger than this. What goes beyond is parsed
   each time rather than kept. */
constexpr std::size_t maxKeptBytesPerFile = 256 * 1024;
constexpr std::size_t maxKeptBytes = 16 * 1024 * 1024;
} // namespace

juce::StringArray UserPresetList::readNames (const juce::File& folder)
{
    juce::StringArray names;
    KnownFiles stillKnown;
    std::size_t keptBytes = 0;

    // The pattern ignores case, and JUCE takes a name such as ".q7p" for one without an extension.
    for (const auto& file : folder.findChildFiles (juce::File::findFiles, false, "*.q7p"))
    {
        const auto fileName = file.getFileName();

        if (! fileName.endsWith (UserPresetFile::extension))
            continue;

        const auto name = fileName.dropLastCharacters (juce::String (UserPresetFile::extension).length());

        if (! UserPresetFile::isFileName (name))
            continue;

        Known now;

        if (isPreset (file, name, knownFiles, now))
            names.add (name);

        if (now.bytes.size() <= maxKeptBytesPerFile && keptBytes + now.bytes.size() <= maxKeptBytes)
        {
            keptBytes += now.bytes.size();
            stillKnown.insert_or_assign (name, std::move (now));
        }
    }

    knownFiles = std::move (stillKnown);
    return names;
}

bool UserPresetList::isPreset (const juce::File& file,
                               const juce::String& name,
                               const KnownFiles& old,
                               Known& now)
{
    auto bytes = readFileStart (file, UserPresetFile::maxBytes);

    if (! bytes.has_value())
        return false;

    const auto known = old.find (name);

    now.isPreset = known != old.end() && known->second.bytes == *bytes
                       ? known->second.isPreset
                       : UserPresetFile::read (*bytes).tree.isValid();
    now.bytes = std::move (*bytes);
    return now.isPreset;
}
