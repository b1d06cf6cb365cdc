// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// What a preset sets that differs from "Init", and the stamps that it carries.

#include "PresetListing.h"

#include "ParameterListing.h"
#include "presets/PresetKeys.h"

#include <algorithm>

namespace
{
/** What the preset sets in another way than `first`. */
std::vector<PresetValue> differences (const juce::ValueTree& preset, const juce::ValueTree& first)
{
    const auto plain = presetValues (first);
    auto values = presetValues (preset);
    const auto isSame = [&plain] (const PresetValue& value)
    {
        return std::any_of (plain.begin(),
                            plain.end(),
                            [&value] (const PresetValue& other)
                            { return other.row == value.row && other.value == value.value; });
    };

    values.erase (std::remove_if (values.begin(), values.end(), isSame), values.end());
    return values;
}

const char* listName (const RingPreset& preset)
{
    return preset.isFactory ? "factory" : "user";
}

/** Text out of a file without what a terminal would take for commands. */
juce::String printable (const juce::String& text)
{
    constexpr juce::juce_wchar firstPrintable = 0x20, deleteCharacter = 0x7f, lastControl = 0x9f;
    juce::String result;

    for (auto c = text.getCharPointer(); ! c.isEmpty();)
    {
        const auto character = c.getAndAdvance();
        const bool isControl =
            character < firstPrintable || (character >= deleteCharacter && character <= lastControl);
        result += isControl ? juce::juce_wchar ('?') : character;
    }

    return result;
}

juce::String parameterNameOf (const juce::ValueTree& child)
{
    return child.getProperty (presetKey::parameterName).toString();
}
} // namespace

juce::String PresetValue::text() const
{
    return parameterValueText (*row, value);
}

std::vector<PresetValue> presetValues (const juce::ValueTree& tree)
{
    std::vector<PresetValue> values;

    for (const auto& row : parameterTable)
        if (const auto child = tree.getChildWithProperty (presetKey::parameterName, row.name);
            child.isValid())
            values.push_back ({ &row, static_cast<float> (child.getProperty (presetKey::value)) });

    return values;
}

juce::String presetListing (const std::vector<RingPreset>& ring)
{
    const juce::String listHeading ("list"), nameHeading ("name");
    int nameWidth = nameHeading.length();
    constexpr int listWidth = 7; // of "factory"

    for (const auto& preset : ring)
        nameWidth = std::max (nameWidth, preset.name.length());

    const auto line =
        [nameWidth] (const juce::String& list, const juce::String& name, const juce::String& rest)
    {
        return (list.paddedRight (' ', listWidth) + "  " + name.paddedRight (' ', nameWidth) + "  " + rest)
                   .trimEnd()
               + "\n";
    };

    auto listing = line (listHeading, nameHeading, "differs from the first in");

    for (const auto& preset : ring)
    {
        juce::StringArray texts;

        for (const auto& difference : differences (preset.tree, ring.front().tree))
            texts.add (juce::String (difference.row->name) + "=" + difference.text());

        listing << line (listName (preset), preset.name, texts.joinIntoString (", "));
    }

    return listing;
}

juce::var presetListingJson (const std::vector<RingPreset>& ring)
{
    juce::Array<juce::var> presets;

    for (const auto& preset : ring)
    {
        juce::Array<juce::var> values;

        for (const auto& difference : differences (preset.tree, ring.front().tree))
        {
            auto* const value = new juce::DynamicObject();
            values.add (value);
            value->setProperty ("name", difference.row->name);
            value->setProperty ("value", readableValue (difference.value));
            value->setProperty ("text", difference.text());
        }

        auto* const object = new juce::DynamicObject();
        presets.add (object);
        object->setProperty ("list", listName (preset));
        object->setProperty ("position", preset.position);
        object->setProperty ("name", preset.name);
        object->setProperty ("differences", values);
    }

    return presets;
}

juce::String presetDescription (const UserPresetFile::Contents& contents)
{
    const auto& tree = contents.tree;
    std::vector<std::pair<juce::String, juce::String>> lines;
    juce::StringArray foreign;
    lines.emplace_back ("file", contents.compressed ? "compressed" : "plain");

    for (int i = 0; i < tree.getNumProperties(); ++i)
        lines.emplace_back (printable (tree.getPropertyName (i).toString()),
                            printable (tree[tree.getPropertyName (i)].toString()));

    for (const auto& value : presetValues (tree))
        lines.emplace_back (value.row->name, value.text());

    for (const auto& child : tree)
    {
        const auto name = parameterNameOf (child);

        if (std::none_of (parameterTable.begin(),
                          parameterTable.end(),
                          [&name] (const auto& row) { return name == row.name; }))
            foreign.add (printable (name.isNotEmpty() ? name : child.getType().toString()));
    }

    if (! foreign.isEmpty())
        lines.emplace_back ("not of this effect", foreign.joinIntoString (", "));

    int width = 0;

    for (const auto& [name, text] : lines)
        width = std::max (width, name.length());

    juce::String description;

    for (const auto& [name, text] : lines)
        description << (name.paddedRight (' ', width) + "  " + text).trimEnd() << "\n";

    return description;
}
