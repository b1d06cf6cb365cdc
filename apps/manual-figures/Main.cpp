// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Plots what the manual tells of pan curves, pan laws, bound levels and Safe Bass, by asking the effect
// itself. usage: wideloom_manual_figures FOLDER

#include "LinePlot.h"

#include <engine/ImageFactors.h>
#include <engine/SafeBassFilter.h>

#include <cmath>
#include <complex>
#include <cstdio>
#include <numbers>

namespace
{
constexpr double sampleRate = 48000.0; // Hz
constexpr float neutral = 0.5f;        // of StereoWidth and of Pan
constexpr int numPoints = 200;

double decibels (double factor)
{
    constexpr double lowest = -200.0;
    return factor > 0.0 ? 20.0 * std::log10 (factor) : lowest;
}

PlotAxis panAxis()
{
    return {
        "pan", 0.0, 100.0, false, { { 0, "C" }, { 25, "R25" }, { 50, "R50" }, { 75, "R75" }, { 100, "R100" } }
    };
}

PlotAxis decibelAxis (double low, double high, double step)
{
    static const std::vector<std::pair<double, const char*>> marks {
        { -36, "-36" }, { -30, "-30" }, { -24, "-24" }, { -18, "-18" }, { -12, "-12" },
        { -6, "-6" },   { -3, "-3" },   { 0, "0" },     { 3, "+3" },    { 6, "+6" },
    };
    PlotAxis axis { "dB", low, high, false, {} };

    for (const auto& mark : marks)
        if (mark.first >= low && mark.first <= high && std::fmod (mark.first, step) == 0.0)
            axis.marks.push_back (mark);

    return axis;
}

template <typename Level>
PlotLine panLine (const char* name, const ImageChoices& choices, Level&& levelOf)
{
    PlotLine line { name, {} };

    for (int i = 0; i <= numPoints; ++i)
    {
        // Close together at both ends, where curves step or fall away.
        const double pan = 50.0 * (1.0 - std::cos (std::numbers::pi * i / numPoints));
        const auto factors = imageFactorsFor (neutral, neutral + static_cast<float> (pan * 0.005), choices);
        line.points.emplace_back (pan, decibels (static_cast<double> (levelOf (factors))));
    }

    return line;
}

juce::String panCurves()
{
    LinePlot plot (panAxis(), decibelAxis (-36.0, 3.0, 6.0), 0.03, 0.65);
    const auto far = [] (const ImageFactors& factors) { return factors.left; };
    plot.add (panLine ("linear", { .panCurve = PanCurve::linear }, far));
    plot.add (panLine ("logarithmic", { .panCurve = PanCurve::logarithmic }, far));
    plot.add (panLine ("sin / cos", { .panCurve = PanCurve::sinCos }, far));
    return plot.toSvg();
}

juce::String panLaws()
{
    LinePlot plot (panAxis(), decibelAxis (-0.5, 6.5, 3.0), 0.03, 0.08);
    const auto near = [] (const ImageFactors& factors) { return factors.right; };
    plot.add (panLine ("-0 dB", { .panLaw = PanLaw::minus0dB }, near));
    plot.add (panLine ("-3 dB slope", { .panLaw = PanLaw::minus3dB }, near));
    plot.add (panLine ("-6 dB slope", { .panLaw = PanLaw::minus6dB }, near));
    return plot.toSvg();
}

juce::String boundLevels()
{
    LinePlot plot ({ "stereo width",
                     0.0,
                     200.0,
                     false,
                     { { 0, "0 %" }, { 50, "50 %" }, { 100, "100 %" }, { 150, "150 %" }, { 200, "200 %" } } },
                   decibelAxis (-24.0, 6.5, 6.0),
                   0.6,
                   0.75);
    PlotLine side { "side", {} }, mid { "mid with bind M/S levels", {} };

    for (int i = 0; i <= numPoints; ++i)
    {
        const double percent = 200.0 * i / numPoints;
        const auto factors =
            imageFactorsFor (static_cast<float> (percent * 0.005), neutral, { .bindLevels = true });
        side.points.emplace_back (percent, decibels (static_cast<double> (factors.side)));
        mid.points.emplace_back (percent, decibels (static_cast<double> (factors.mid)));
    }

    plot.add (side);
    plot.add (mid);
    return plot.toSvg();
}

/** What a second-order filter leaves of a frequency. */
double responseAt (double frequency, const juce::IIRCoefficients& filter)
{
    const auto& c = filter.coefficients;
    const auto z = std::polar (1.0, -2.0 * std::numbers::pi * frequency / sampleRate);
    const auto at = [&c] (int i) { return static_cast<double> (c[i]); };
    return std::abs ((at (0) + at (1) * z + at (2) * z * z) / (1.0 + at (3) * z + at (4) * z * z));
}

juce::String safeBass()
{
    constexpr double lowest = 20.0, highest = 2000.0; // Hz
    constexpr double lowestCorner = 10.0, cornerRange = 490.0;
    LinePlot plot ({ "frequency of the side signal, Hz",
                     lowest,
                     highest,
                     true,
                     { { 20, "20" },
                       { 50, "50" },
                       { 100, "100" },
                       { 200, "200" },
                       { 500, "500" },
                       { 1000, "1k" },
                       { 2000, "2k" } } },
                   decibelAxis (-36.0, 6.0, 6.0),
                   0.8,
                   0.6);

    for (const int corner : { 80, 150, 250, 500 })
    {
        const auto made = SafeBassCoefficients::make (sampleRate, (corner - lowestCorner) / cornerRange);
        PlotLine line { juce::String (corner) + " Hz", {} };

        for (int i = 0; i <= numPoints; ++i)
        {
            const double frequency =
                lowest * std::pow (highest / lowest, static_cast<double> (i) / numPoints);
            line.points.emplace_back (frequency, decibels (responseAt (frequency, made->coefficients)));
        }

        plot.add (line);
    }

    return plot.toSvg();
}
} // namespace

int main (int argc, char** argv)
{
    if (argc != 2)
    {
        std::fputs ("usage: wideloom_manual_figures FOLDER\n", stderr);
        return 1;
    }

    const auto folder =
        juce::File::getCurrentWorkingDirectory().getChildFile (juce::CharPointer_UTF8 (argv[1]));
    const std::pair<const char*, juce::String (*)()> figures[] = {
        { "pan-curves.svg", panCurves },
        { "pan-laws.svg", panLaws },
        { "bind-levels.svg", boundLevels },
        { "safe-bass.svg", safeBass },
    };

    for (const auto& [name, draw] : figures)
    {
        if (! folder.getChildFile (name).replaceWithText (draw()))
        {
            std::fprintf (stderr, "wideloom_manual_figures: %s cannot be written\n", name);
            return 1;
        }
    }
}
