// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Puts names, ranges, defaults and texts of all parameters side by side.

#include "ParameterListing.h"

#include <engine/ParameterTable.h>

#include <algorithm>
#include <array>
#include <span>

namespace
{
constexpr std::array<float, 2> switchValues { 0.0f, 1.0f };

/** All the values that a switch or choice can have, normalised; none for a continuous parameter. */
std::span<const float> valuesOf (const ParameterRow& row)
{
    const std::span<const float> choices (choice::all);

    switch (row.shape)
    {
        case ParameterShape::onOff:
            return switchValues;
        case ParameterShape::twoChoices:
            return choices.first (2);
        case ParameterShape::threeChoices:
            return choices;
        case ParameterShape::continuous:
            break;
    }

    return {};
}

const char* kindOf (const ParameterRow& row)
{
    if (row.shape == ParameterShape::continuous)
        return "continuous";

    return row.shape == ParameterShape::onOff ? "switch" : "choice";
}

juce::String settableTexts (const ParameterRow& row)
{
    if (row.shape == ParameterShape::continuous)
        return parameterValueText (row, 0.0f) + " to " + parameterValueText (row, 1.0f);

    juce::StringArray texts;

    for (const float value : valuesOf (row))
        texts.add (parameterValueText (row, value));

    const auto joined = texts.joinIntoString (", ");
    return row.shape == ParameterShape::onOff ? "off, on (shown as " + joined + ")" : joined;
}
} // namespace

juce::String parameterValueText (const ParameterRow& row, float value)
{
    return CrzParameterValueMapper (nullptr, row.mapping).normed2RealValueAsString (value);
}

double readableValue (float value)
{
    constexpr int significantDigits = 8;
    return juce::String (value, significantDigits).getDoubleValue();
}

juce::String parameterListing()
{
    const juce::String nameHeading ("name"), defaultHeading ("default");
    int nameWidth = nameHeading.length(), defaultWidth = defaultHeading.length();

    for (const auto& row : parameterTable)
    {
        nameWidth = std::max (nameWidth, juce::String (row.name).length());
        defaultWidth = std::max (defaultWidth, parameterValueText (row, row.defaultValue).length());
    }

    const auto line =
        [&] (const juce::String& name, const juce::String& defaultText, const juce::String& values)
    {
        return name.paddedRight (' ', nameWidth) + "  " + defaultText.paddedRight (' ', defaultWidth) + "  "
               + values + "\n";
    };

    auto listing = line (nameHeading, defaultHeading, "values");

    for (const auto& row : parameterTable)
        listing << line (row.name, parameterValueText (row, row.defaultValue), settableTexts (row));

    return listing;
}

juce::var parameterListingJson()
{
    juce::Array<juce::var> rows;

    for (const auto& row : parameterTable)
    {
        auto* const object = new juce::DynamicObject();
        rows.add (object);
        object->setProperty ("index", indexOf (row.id));
        object->setProperty ("name", row.name);
        object->setProperty ("kind", kindOf (row));
        object->setProperty ("default", readableValue (row.defaultValue));
        object->setProperty ("defaultText", parameterValueText (row, row.defaultValue));

        if (row.shape == ParameterShape::continuous)
        {
            object->setProperty ("lowestText", parameterValueText (row, 0.0f));
            object->setProperty ("highestText", parameterValueText (row, 1.0f));
            continue;
        }

        juce::Array<juce::var> values;

        for (const float value : valuesOf (row))
        {
            auto* const entry = new juce::DynamicObject();
            values.add (entry);
            entry->setProperty ("value", readableValue (value));
            entry->setProperty ("text", parameterValueText (row, value));
        }

        object->setProperty ("values", values);
    }

    return rows;
}
