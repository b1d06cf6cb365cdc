// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The columns of the table, and how their figures are written.

#include "FiguresTable.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

namespace
{
struct Column
{
    const char* name;
    const char* unit;
    int decimals;
    std::optional<double> (*figure) (const StereoFigures&);
};

using Figures = const StereoFigures&;

constexpr std::array<Column, 7> columns { {
    { "peak L", "dBFS", 1, [] (Figures f) -> std::optional<double> { return f.leftPeakDb; } },
    { "peak R", "dBFS", 1, [] (Figures f) -> std::optional<double> { return f.rightPeakDb; } },
    { "mid RMS", "dBFS", 1, [] (Figures f) -> std::optional<double> { return f.midRmsDb; } },
    { "side RMS", "dBFS", 1, [] (Figures f) -> std::optional<double> { return f.sideRmsDb; } },
    { "side <150 Hz", "dBFS", 1, [] (Figures f) { return f.sideBassRmsDb; } },
    { "correlation", "-1..1", 3, [] (Figures f) { return f.correlation; } },
    { "mono sum", "dB", 1, [] (Figures f) { return f.monoSumLossDb; } },
} };

const char* const columnGap = "  ";
const char* const labelHeading = "signal";

juce::String cellText (std::optional<double> value, int decimals)
{
    if (! value)
        return "n/a";

    if (std::isinf (*value))
        return "-inf";

    const juce::String text (*value, decimals);
    return text.containsAnyOf ("123456789") ? text : text.trimCharactersAtStart ("-"); // no "-0.0"
}

/** One line, its cells made by `cell` and as wide as the column's name asks for. */
template <typename MakeCell>
juce::String line (const juce::String& label, int labelWidth, MakeCell&& cell)
{
    juce::String text = label.paddedRight (' ', labelWidth);

    for (const auto& column : columns)
    {
        constexpr int narrowestCell = 6; // "-123.4"
        const int width = std::max (narrowestCell, juce::String (column.name).length());
        text << columnGap << juce::String (cell (column)).paddedLeft (' ', width);
    }

    return text + "\n";
}
} // namespace

juce::String figuresTable (const std::vector<FiguresRow>& rows)
{
    int labelWidth = juce::String (labelHeading).length();

    for (const auto& row : rows)
        labelWidth = std::max (labelWidth, row.label.length());

    juce::String text = line (labelHeading, labelWidth, [] (const Column& column) { return column.name; })
                        + line ({}, labelWidth, [] (const Column& column) { return column.unit; });

    for (const auto& row : rows)
        text << line (row.label,
                      labelWidth,
                      [&row] (const Column& column)
                      { return cellText (column.figure (row.figures), column.decimals); });

    for (const auto& row : rows)
        if (const auto count = row.figures.numNonFiniteSamples; count > 0)
            text << row.label << ": " << juce::String (static_cast<juce::int64> (count))
                 << (count == 1 ? " sample is" : " samples are")
                 << " not a finite number (NaN or infinite); the frames concerned are left out.\n";

    return text;
}
