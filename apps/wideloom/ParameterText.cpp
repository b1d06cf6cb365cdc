// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Decides which texts a parameter takes, and leaves turning them into values to its mapper.

#include "ParameterText.h"

#include "NearestName.h"
#include "NumberText.h"
#include "engine/ParameterTable.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <vector>

namespace
{
using Mapper = CrzParameterValueMapper;

/** The kinds that take a number, their unit and their limits in it. */
struct NumberKind
{
    Mapper::CrzMappingENUM mapping;
    const char* unit;
    double lowest, highest;
    const char* accepted;
};

constexpr auto numberKinds = std::to_array<NumberKind> ({
    { Mapper::mappingWidthPercent, "%", 0.0, 200.0, "0 % to 200 %" },
    { Mapper::mappingGain12Db, "db", -12.0, 12.0, "-12 dB to 12 dB" },
    // The frequency at the lower end is the value that means OFF, so it cannot be asked for as a frequency.
    { Mapper::mappingSafeBassFreq, "hz", 10.000001, 500.0, "OFF, or more than 10 Hz up to 500 Hz" },
});

constexpr auto onWords = std::to_array<std::string_view> ({ "on", "true", "yes", "1" });
constexpr auto offWords = std::to_array<std::string_view> ({ "off", "false", "no", "0" });
constexpr double highestPan = 100.0;

const ParameterRow& rowAt (int index)
{
    return parameterTable[static_cast<std::size_t> (index)];
}

std::string shownText (const ParameterRow& row, float value)
{
    return Mapper (nullptr, row.mapping).normed2RealValueAsString (value).toStdString();
}

/** The legal values of a switch or choice. */
std::vector<float> choicesOf (const ParameterRow& row)
{
    if (row.shape == ParameterShape::onOff)
        return { 0.0f, 1.0f };

    const auto count = row.shape == ParameterShape::twoChoices ? 2 : 3;
    return { choice::all.begin(), choice::all.begin() + count };
}

std::optional<float> readChoice (const ParameterRow& row, std::string_view text)
{
    const auto typed = folded (text);

    if (row.shape == ParameterShape::onOff)
    {
        if (std::find (onWords.begin(), onWords.end(), typed) != onWords.end())
            return 1.0f;

        if (std::find (offWords.begin(), offWords.end(), typed) != offWords.end())
            return 0.0f;
    }

    for (const float value : choicesOf (row))
        if (typed == folded (shownText (row, value)))
            return value;

    return {};
}

/** Turns "L30", "R30", "C" and "-30" into the number that the mapper reads. */
std::optional<std::string> panNumber (std::string_view text)
{
    auto typed = folded (text);

    if (typed == "c")
        return "0";

    if (typed.starts_with ('l') || typed.starts_with ('r'))
        typed = (typed[0] == 'l' ? "-" : "") + typed.substr (1);
    else if (typed.starts_with ('+') && ! typed.starts_with ("+-"))
        typed.erase (0, 1);

    const auto digits = typed.starts_with ('-') ? typed.substr (1) : typed;

    if (digits.empty() || digits.find_first_not_of ("0123456789") != std::string::npos)
        return {};

    const auto number = readNumber (digits);
    return number && *number <= highestPan ? std::optional (typed) : std::nullopt;
}

/** The number in front of the unit, if the text is one within the limits. */
std::optional<std::string> numberText (const NumberKind& kind, std::string_view text)
{
    auto typed = folded (text);

    if (typed.ends_with (kind.unit))
        typed.resize (typed.size() - std::string_view (kind.unit).size());

    const auto number = readNumber (typed);
    return number && *number >= kind.lowest && *number <= kind.highest ? std::optional (typed) : std::nullopt;
}

std::optional<float> readContinuous (const ParameterRow& row, std::string_view text)
{
    if (row.mapping == Mapper::mappingSafeBassFreq && folded (text) == "off")
        return 0.0f;

    std::optional<std::string> typed;

    if (row.mapping == Mapper::mappingPan100)
        typed = panNumber (text);

    for (const auto& kind : numberKinds)
        if (kind.mapping == row.mapping)
            typed = numberText (kind, text);

    if (! typed)
        return {};

    return Mapper (nullptr, row.mapping).string2normedValueAsFloat (juce::String (*typed));
}

Problem splitAssignment (std::string_view assignment, int& index, std::string_view& text)
{
    const auto equals = assignment.find ('=');

    if (equals == std::string_view::npos)
        return "'" + std::string (assignment) + "' has no '='; write it as NAME=VALUE";

    text = assignment.substr (equals + 1);
    return findParameter (assignment.substr (0, equals), index);
}
} // namespace

Problem findParameter (std::string_view name, int& index)
{
    for (const auto& row : parameterTable)
    {
        if (name == row.name)
        {
            index = indexOf (row.id);
            return {};
        }
    }

    const auto* nearest = std::min_element (parameterTable.begin(),
                                            parameterTable.end(),
                                            [name] (const auto& a, const auto& b) {
                                                return unlikeness (name, a.name) < unlikeness (name, b.name);
                                            });

    return "there is no parameter '" + std::string (name) + "'; did you mean " + nearest->name
           + "? 'wideloom params' lists them all";
}

Problem readTextSetting (std::string_view assignment, ParameterSetting& setting)
{
    std::string_view text;

    if (auto problem = splitAssignment (assignment, setting.index, text))
        return problem;

    const auto& row = rowAt (setting.index);
    const auto value =
        row.shape == ParameterShape::continuous ? readContinuous (row, text) : readChoice (row, text);

    if (! value)
        return std::string (row.name) + " cannot be '" + std::string (text) + "'; it takes "
               + describeAccepted (setting.index);

    setting.value = *value;
    return {};
}

Problem readNormalisedSetting (std::string_view assignment, ParameterSetting& setting)
{
    std::string_view text;

    if (auto problem = splitAssignment (assignment, setting.index, text))
        return problem;

    if (auto problem = readNormalisedValue (text, setting.value))
        return std::string (rowAt (setting.index).name) + ": " + *problem;

    return {};
}

Problem readNormalisedValue (std::string_view text, float& value)
{
    const auto* end = text.data() + text.size();
    float number = 0.0f;
    const auto [rest, error] = std::from_chars (text.data(), end, number);

    if (error != std::errc {} || rest != end || ! (number >= 0.0f && number <= 1.0f))
        return "'" + std::string (text) + "' is no normalised value; it takes a number from 0 to 1";

    value = number;
    return {};
}

std::string describeAccepted (int index)
{
    const auto& row = rowAt (index);

    if (row.mapping == Mapper::mappingPan100)
        return "L100 to L1, C, R1 to R100, or a whole number from -100 to 100";

    for (const auto& kind : numberKinds)
        if (kind.mapping == row.mapping)
            return kind.accepted;

    std::string result = row.shape == ParameterShape::onOff ? "on or off" : "";

    for (const float value : choicesOf (row))
        result += (result.empty() ? "'" : ", '") + shownText (row, value) + "'";

    return result;
}
