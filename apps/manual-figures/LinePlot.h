// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// A plot of a few lines with axes and a legend, as SVG.

#pragma once

#include <juce_core/juce_core.h>

#include <vector>

/** One axis: its range, what it shows, and where it has grid lines. */
struct PlotAxis
{
    const char* title;
    double low, high;
    bool isLogarithmic;
    std::vector<std::pair<double, const char*>> marks; ///< value and label
};

/** Points in the axes' units. */
struct PlotLine
{
    juce::String name;
    std::vector<std::pair<double, double>> points;
};

class LinePlot
{
public:
    /** The legend's upper left corner is a share of the plot's frame, where no line runs. */
    LinePlot (PlotAxis horizontal, PlotAxis vertical, double legendAtX, double legendAtY);

    /** What lies outside the frame is cut off. */
    void add (PlotLine line);

    /** A whole SVG file, dark on white. */
    juce::String toSvg() const;

private:
    double xOf (double value) const;
    double yOf (double value) const;
    juce::String grid() const;
    juce::String curve (std::size_t index) const;

    PlotAxis xAxis, yAxis;
    double legendX, legendY; ///< pixels
    std::vector<PlotLine> lines;
};
