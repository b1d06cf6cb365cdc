// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Places everything in a fixed frame and writes it down.

#include "LinePlot.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace
{
// Pixels.
constexpr double width = 640, height = 360;
constexpr double left = 60, right = 620, top = 20, bottom = 310;
constexpr double labelGap = 8, titleGap = 36;
constexpr double legendStep = 20, legendDash = 24;

/** The editor's accent first; told apart in grey, too. */
struct Style
{
    const char *colour, *dashes;
};

constexpr std::array<Style, 4> styles { {
    { "#086fa1", "none" },
    { "#ff3500", "8 4" },
    { "#333333", "2 3" },
    { "#5a9e00", "12 3 2 3" },
} };

double share (const PlotAxis& axis, double value)
{
    if (axis.isLogarithmic)
        return std::log (value / axis.low) / std::log (axis.high / axis.low);

    return (value - axis.low) / (axis.high - axis.low);
}

juce::String number (double pixels)
{
    return juce::String (pixels, 1);
}

juce::String lineFrom (double x1, double y1, double x2, double y2, const juce::String& look)
{
    return "<line x1=\"" + number (x1) + "\" y1=\"" + number (y1) + "\" x2=\"" + number (x2) + "\" y2=\""
           + number (y2) + "\" " + look + "/>\n";
}

juce::String textAt (double x, double y, const juce::String& anchor, const juce::String& text)
{
    return "<text x=\"" + number (x) + "\" y=\"" + number (y) + "\" text-anchor=\"" + anchor + "\">" + text
           + "</text>\n";
}

juce::String strokeOf (std::size_t index)
{
    const auto& style = styles[index % styles.size()];
    return juce::String ("fill=\"none\" stroke-width=\"2\" stroke=\"") + style.colour
           + "\" stroke-dasharray=\"" + style.dashes + "\"";
}

/** Pixels. */
struct Place
{
    double x, y;
};

Place between (Place a, Place b, double shareOfTheWay)
{
    return { a.x + shareOfTheWay * (b.x - a.x), a.y + shareOfTheWay * (b.y - a.y) };
}

/** From which share of the way from `a` to `b` up to which share it runs between the frame's upper and lower
    edge. The first is not below the second when no part of it does. */
std::pair<double, double> partInFrame (Place a, Place b)
{
    double from = 0.0, to = 1.0;

    for (const auto& [depthOfA, depthOfB] :
         { std::pair { a.y - top, b.y - top }, { bottom - a.y, bottom - b.y } })
    {
        if (depthOfA < 0.0)
            from = depthOfB > 0.0 ? std::max (from, depthOfA / (depthOfA - depthOfB)) : 1.0;
        else if (depthOfB < 0.0)
            to = std::min (to, depthOfA / (depthOfA - depthOfB));
    }

    return { from, to };
}

/** The parts of a line in the frame. Cut here because not every viewer cuts as a clip path of SVG says. */
std::vector<std::vector<Place>> partsInFrame (const std::vector<Place>& line)
{
    std::vector<std::vector<Place>> parts;
    bool goesOn = false;

    for (std::size_t i = 1; i < line.size(); ++i)
    {
        const auto [from, to] = partInFrame (line[i - 1], line[i]);

        if (from < to)
        {
            if (! goesOn)
                parts.push_back ({ between (line[i - 1], line[i], from) });

            parts.back().push_back (between (line[i - 1], line[i], to));
        }

        goesOn = from < to && to == 1.0;
    }

    return parts;
}
} // namespace

LinePlot::LinePlot (PlotAxis horizontal, PlotAxis vertical, double legendAtX, double legendAtY)
    : xAxis (std::move (horizontal)),
      yAxis (std::move (vertical)),
      legendX (left + legendAtX * (right - left)),
      legendY (top + legendAtY * (bottom - top))
{
}

void LinePlot::add (PlotLine line)
{
    lines.push_back (std::move (line));
}

double LinePlot::xOf (double value) const
{
    return left + share (xAxis, value) * (right - left);
}

double LinePlot::yOf (double value) const
{
    return bottom - share (yAxis, value) * (bottom - top);
}

juce::String LinePlot::grid() const
{
    const juce::String look = "stroke=\"#dddddd\"";
    juce::String svg;

    for (const auto& [value, label] : xAxis.marks)
        svg << lineFrom (xOf (value), top, xOf (value), bottom, look)
            << textAt (xOf (value), bottom + 2 * labelGap, "middle", label);

    for (const auto& [value, label] : yAxis.marks)
        svg << lineFrom (left, yOf (value), right, yOf (value), look)
            << textAt (left - labelGap, yOf (value) + labelGap / 2, "end", label);

    svg << textAt ((left + right) / 2, bottom + titleGap, "middle", xAxis.title)
        << textAt (left, top - labelGap, "middle", yAxis.title);
    return svg;
}

juce::String LinePlot::curve (std::size_t index) const
{
    std::vector<Place> line;

    for (const auto& [x, y] : lines[index].points)
        line.push_back ({ xOf (x), yOf (y) });

    juce::String svg;

    for (const auto& part : partsInFrame (line))
    {
        juce::String points;

        for (const auto& [x, y] : part)
            points << number (x) << "," << number (y) << " ";

        svg << "<polyline points=\"" << points.trimEnd() << "\" " << strokeOf (index) << "/>\n";
    }

    const double y = legendY + legendStep * static_cast<double> (index);
    return svg + lineFrom (legendX, y, legendX + legendDash, y, strokeOf (index))
           + textAt (legendX + legendDash + labelGap, y + labelGap / 2, "start", lines[index].name);
}

juce::String LinePlot::toSvg() const
{
    juce::String svg = "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 " + number (width) + " "
                       + number (height) + "\" width=\"" + number (width) + "\" height=\"" + number (height)
                       + "\" font-family=\"sans-serif\" font-size=\"12\">\n"
                         "<rect width=\"100%\" height=\"100%\" fill=\"#ffffff\"/>\n"
                       + grid();

    for (std::size_t i = 0; i < lines.size(); ++i)
        svg << curve (i);

    return svg + "</svg>\n";
}
