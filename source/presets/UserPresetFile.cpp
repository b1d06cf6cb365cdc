// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Turns preset trees into the bytes of a file and back.

#include "UserPresetFile.h"

#include "PresetKeys.h"
#include "XmlGuard.h"
#include "ZlibBody.h"

#include <engine/ParameterTable.h>

#include <algorithm>
#include <cmath>
#include <optional>

namespace
{
constexpr std::string_view headerText = "QUORVEXDSP Preset File:::::";
constexpr char compressedMark = 'c';

bool isParameterName (const juce::String& name)
{
    return std::any_of (
        parameterTable.begin(), parameterTable.end(), [&] (const auto& row) { return name == row.name; });
}

/** So that nothing bad goes live, or is saved again. Gives the names of the parameters with bad values. */
juce::StringArray limitParameterValues (juce::ValueTree& tree)
{
    juce::StringArray seen, withoutValue, corrected;

    for (auto child : tree)
    {
        const auto name = child.getProperty (presetKey::parameterName).toString();

        if (! isParameterName (name))
            continue;

        // Of several nodes of one name only the first is ever read.
        const bool isFirst = seen.addIfNotAlreadyThere (name);
        const double value = child.getProperty (presetKey::value);

        if (std::isfinite (value) && value >= 0.0 && value <= 1.0)
            continue;

        corrected.addIfNotAlreadyThere (name);

        if (std::isfinite (value))
            child.setProperty (presetKey::value, juce::jlimit (0.0, 1.0, value), nullptr);
        else if (isFirst)
            withoutValue.add (name);
        else
            child.removeProperty (presetKey::value, nullptr);
    }

    // With every node of that name, or recall would take the next one.
    for (int i = tree.getNumChildren(); --i >= 0 && ! withoutValue.isEmpty();)
        if (withoutValue.contains (tree.getChild (i).getProperty (presetKey::parameterName).toString()))
            tree.removeChild (i, nullptr);

    return corrected;
}

/** The text of the body, without the 0 byte. */
std::optional<std::string> readBody (std::string_view body, bool compressed)
{
    if (! compressed)
        return std::string (body.substr (0, body.find ('\0')));

    // One more for the 0 byte.
    return inflateZlib (body, maxXmlTextBytes + 1);
}
} // namespace

std::string UserPresetFile::readHeader (juce::InputStream& stream)
{
    std::string header;

    for (;;)
    {
        const char byte = stream.readByte(); // 0 at the end, too.

        if (byte == 0 || header.size() == maxBytes)
            return header;

        header.push_back (byte);
    }
}

UserPresetFile::Contents UserPresetFile::read (std::string_view bytes)
{
    Contents result;
    juce::MemoryInputStream stream (bytes.data(), bytes.size(), false);
    const auto header = readHeader (stream);

    if (! std::string_view (header).starts_with (headerText))
    {
        result.error = "it is no preset file";
        return result;
    }

    result.compressed = header.back() == compressedMark;
    const auto text =
        readBody (bytes.substr (static_cast<std::size_t> (stream.getPosition())), result.compressed);

    if (! text.has_value())
    {
        result.error = "the compressed part is damaged or too long";
        return result;
    }

    auto xml = parseGuardedXml (*text);
    result.error = xml.error;

    if (xml.element != nullptr)
    {
        result.tree = treeFromXml (*xml.element);
        result.correctedParameters = limitParameterValues (result.tree);
    }

    return result;
}

juce::MemoryBlock UserPresetFile::write (const juce::ValueTree& tree, bool compressed)
{
    juce::MemoryBlock result (headerText.data(), headerText.size());

    if (compressed)
        result.append (&compressedMark, 1);

    const char terminator = '\0';
    result.append (&terminator, 1);

    const auto text = tree.toXmlString();
    const std::string_view body (text.toRawUTF8(), text.getNumBytesAsUTF8() + 1); // With its 0 byte.

    if (compressed)
    {
        const auto stream = deflateZlib (body);
        result.append (stream.getData(), stream.getSize());
    }
    else
        result.append (body.data(), body.size());

    return result;
}

bool UserPresetFile::isFileName (const juce::String& name)
{
    constexpr juce::juce_wchar firstPrintable = 0x20, deleteCharacter = 0x7f, lastControl = 0x9f;
    constexpr juce::juce_wchar firstSurrogate = 0xd800, lastSurrogate = 0xdfff, lastCharacter = 0x10ffff;

    // Both separators, because folders of presets travel between systems.
    if (name.isEmpty() || name == ".." || name.containsAnyOf ("/\\"))
        return false;

    for (auto c = name.getCharPointer(); ! c.isEmpty();)
        if (const auto character = c.getAndAdvance();
            character < firstPrintable || (character >= deleteCharacter && character <= lastControl)
            || (character >= firstSurrogate && character <= lastSurrogate) || character > lastCharacter)
            return false;

    return true;
}
