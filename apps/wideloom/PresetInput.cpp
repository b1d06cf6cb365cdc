// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Reads no more of a file than a preset or a block can be long, and names what is wrong with it.

#include "PresetInput.h"

#include "PresetListing.h"
#include "presets/SessionBlock.h"

#include <filesystem>
#include <fstream>
#include <optional>

namespace
{
Problem about (const std::string& path, const std::string& text)
{
    return "'" + path + "': " + text;
}

Problem readStart (const std::string& path, std::size_t maxBytes, std::string& bytes)
{
    std::error_code error;
    const auto place = std::filesystem::absolute (path, error);

    if (const auto status = std::filesystem::status (place, error); ! std::filesystem::exists (status))
        return about (path, "it cannot be opened: " + error.message());
    else if (! std::filesystem::is_regular_file (status))
        return about (path, "it is no plain file");

    std::ifstream file (place, std::ios::binary);
    bytes.resize (maxBytes);
    file.read (bytes.data(), static_cast<std::streamsize> (maxBytes));

    if (! file.is_open() || file.bad())
        return about (path, "it cannot be read; look at its permissions");

    bytes.resize (static_cast<std::size_t> (file.gcount()));
    return {};
}
} // namespace

Problem readPresetFile (const std::string& path, UserPresetFile::Contents& contents)
{
    std::string bytes;

    if (auto problem = readStart (path, UserPresetFile::maxBytes, bytes))
        return problem;

    contents = UserPresetFile::read (bytes);

    if (! contents.tree.isValid())
        return about (path, contents.error.isEmpty() ? "it is no preset file" : contents.error.toStdString());

    return {};
}

Problem findEmptiness (const juce::ValueTree& preset)
{
    return presetValues (preset).empty() ? Problem ("it sets none of the effect's parameters") : Problem();
}

Problem readSessionFile (const std::string& path, juce::MemoryBlock& block)
{
    std::string bytes;

    if (auto problem = readStart (path, maxSessionBlockBytes, bytes))
        return problem;

    if (const auto parsed = readSessionBlock (bytes.data(), static_cast<int> (bytes.size()));
        parsed.element == nullptr)
        return about (path, parsed.error.toStdString() + "; --save-state writes such files");

    block.replaceAll (bytes.data(), bytes.size());
    return {};
}
