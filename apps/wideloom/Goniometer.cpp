// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Counts visits in a grid of cells, and paints them with frame, axes and figures.

#include "Goniometer.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <iterator>

namespace
{
// All lengths in pixels.
constexpr int fieldSize = 1000; ///< the square that holds the diamond; one cell of the grid is one pixel
constexpr int margin = 50;
constexpr int headerHeight = 70;
constexpr int footerHeight = 120;
constexpr int imageWidth = fieldSize + 2 * margin;
constexpr int imageHeight = headerHeight + fieldSize + 2 * margin + footerHeight;
constexpr float fieldCentreX = margin + fieldSize / 2.0f;
constexpr float fieldCentreY = headerHeight + margin + fieldSize / 2.0f;
constexpr std::size_t cellsAcross = fieldSize;
constexpr float fieldRadius = fieldSize / 2.0f;

constexpr double scaleStepDb = 3.0;
constexpr double lowestScaleDb = -90.0;

const juce::Colour background (0xff10151c);
const juce::Colour fieldColour (0xff151c26);
const juce::Colour gridColour (0xff2f3b4a);
const juce::Colour axisColour (0xff4a5b70);
const juce::Colour textColour (0xffd6dee8);
const juce::Colour quietTextColour (0xff8a99ab);

/** Colours of rising density. The first is that of a place visited once. */
juce::ColourGradient densityColours()
{
    auto gradient =
        juce::ColourGradient::horizontal (juce::Colour (0xff1d5c7a), 0.0f, juce::Colour (0xfffffbe0), 1.0f);
    gradient.addColour (0.45, juce::Colour (0xff27b3b0));
    gradient.addColour (0.8, juce::Colour (0xffb8ec9a));
    return gradient;
}

juce::Font font (float height, bool bold = false)
{
    return juce::Font (height, bold ? juce::Font::bold : juce::Font::plain);
}

/** A square standing on its corner around the centre of the field. */
juce::Path diamond (float radius)
{
    juce::Path path;
    path.addQuadrilateral (fieldCentreX,
                           fieldCentreY - radius,
                           fieldCentreX + radius,
                           fieldCentreY,
                           fieldCentreX,
                           fieldCentreY + radius,
                           fieldCentreX - radius,
                           fieldCentreY);
    return path;
}

juce::String numberText (std::optional<double> value, int decimals, const char* unit)
{
    if (! value)
        return "n/a";

    return (std::isinf (*value) ? juce::String ("-inf") : juce::String (*value, decimals)) + unit;
}

void drawGrid (juce::Graphics& g)
{
    g.setColour (fieldColour);
    g.fillPath (diamond (fieldRadius));
    g.setColour (gridColour);

    // Each diamond inwards is 6 dB down.
    for (const float radius : { fieldRadius / 2.0f, fieldRadius / 4.0f })
        g.strokePath (diamond (radius), juce::PathStrokeType (1.5f));

    const float halfEdge = fieldRadius / 2.0f;
    g.setColour (axisColour);
    g.drawLine (fieldCentreX, fieldCentreY - fieldRadius, fieldCentreX, fieldCentreY + fieldRadius, 1.5f);
    g.drawLine (fieldCentreX - fieldRadius, fieldCentreY, fieldCentreX + fieldRadius, fieldCentreY, 1.5f);
    g.drawLine (fieldCentreX - halfEdge,
                fieldCentreY - halfEdge,
                fieldCentreX + halfEdge,
                fieldCentreY + halfEdge,
                1.5f);
    g.drawLine (fieldCentreX - halfEdge,
                fieldCentreY + halfEdge,
                fieldCentreX + halfEdge,
                fieldCentreY - halfEdge,
                1.5f);
    g.strokePath (diamond (fieldRadius), juce::PathStrokeType (2.5f));
}

/** The frame's level, on the lower right edge, where no axis ends. */
void drawLevel (juce::Graphics& g, double scaleDb)
{
    constexpr float alongEdge = 0.72f;
    const juce::Rectangle<float> place (fieldCentreX + fieldRadius * (1.0f - alongEdge) + 8.0f,
                                        fieldCentreY + fieldRadius * alongEdge,
                                        120.0f,
                                        24.0f);
    g.setFont (font (20.0f));
    g.setColour (quietTextColour);
    g.drawText (
        juce::String (juce::roundToInt (scaleDb)) + " dBFS", place, juce::Justification::centredLeft, false);
}

struct AxisLabel
{
    const char* text;
    float x, y; ///< in radii of the field, from its centre, y downwards
};

constexpr std::array<AxisLabel, 4> axisLabels { {
    { "M", 0.0f, -1.05f },
    { "S", 1.05f, 0.0f },
    { "L", -0.54f, -0.54f },
    { "R", 0.54f, -0.54f },
} };

void drawAxisLabels (juce::Graphics& g)
{
    constexpr float box = 44.0f;
    g.setFont (font (30.0f, true));
    g.setColour (textColour);

    for (const auto& label : axisLabels)
        g.drawText (label.text,
                    juce::Rectangle<float> (box, box).withCentre (
                        { fieldCentreX + label.x * fieldRadius, fieldCentreY + label.y * fieldRadius }),
                    juce::Justification::centred,
                    false);
}

/** A scale from -1 to 1 with a mark where the correlation lies, and the two other figures beside it. */
void drawFooter (juce::Graphics& g, const StereoFigures& figures)
{
    constexpr float barWidth = 440.0f, barHeight = 10.0f, markRadius = 9.0f;
    const float barX = fieldCentreX - barWidth / 2.0f;
    const float barY = imageHeight - 78.0f;
    const juce::Rectangle<float> bar (barX, barY, barWidth, barHeight);

    g.setColour (gridColour);
    g.fillRoundedRectangle (bar, barHeight / 2.0f);
    g.setColour (axisColour);
    g.fillRect (fieldCentreX - 1.0f, barY - 5.0f, 2.0f, barHeight + 10.0f);

    if (figures.correlation)
    {
        const float x = fieldCentreX + static_cast<float> (*figures.correlation) * barWidth / 2.0f;
        g.setColour (densityColours().getColourAtPosition (0.8));
        g.fillEllipse (juce::Rectangle<float> (2.0f * markRadius, 2.0f * markRadius)
                           .withCentre ({ x, bar.getCentreY() }));
    }

    g.setFont (font (20.0f));
    g.setColour (quietTextColour);
    g.drawText ("-1",
                juce::Rectangle<float> (barX - 50.0f, barY - 10.0f, 40.0f, 30.0f),
                juce::Justification::centredRight,
                false);
    g.drawText ("+1",
                juce::Rectangle<float> (barX + barWidth + 10.0f, barY - 10.0f, 40.0f, 30.0f),
                juce::Justification::centredLeft,
                false);

    g.setColour (textColour);
    g.drawText ("correlation " + numberText (figures.correlation, 2, "") + "     side "
                    + numberText (figures.sideRmsDb, 1, " dBFS") + "     mono sum "
                    + numberText (figures.monoSumLossDb, 1, " dB"),
                juce::Rectangle<float> (0.0f, barY + 26.0f, imageWidth, 30.0f),
                juce::Justification::centred,
                false);
}
} // namespace

Goniometer::Goniometer (double largestPeakDb)
    : scaleDb (std::max (lowestScaleDb,
                         scaleStepDb * std::ceil (std::max (largestPeakDb, lowestScaleDb) / scaleStepDb))),
      pixelsPerUnit (fieldRadius * std::pow (10.0, -scaleDb / 20.0)),
      visits (cellsAcross * cellsAcross)
{
}

void Goniometer::add (const float* left, const float* right, int numSamples) noexcept
{
    // Places are counted from the middle of the first cell. Mid or side at full scale lies on the frame, half
    // a cell outside the middle of the last one.
    constexpr double frame = 0.5, lastCell = fieldSize - 1.0;
    const double belowLastCell = std::nextafter (lastCell, 0.0);

    for (int i = 0; i < numSamples; ++i)
    {
        // The corners of the diamond are mid or side at full scale: (L + R) / 2 = 1.
        double x = fieldSize / 2.0 + 0.5 * (static_cast<double> (right[i]) - left[i]) * pixelsPerUnit - 0.5;
        double y = fieldSize / 2.0 - 0.5 * (static_cast<double> (left[i]) + right[i]) * pixelsPerUnit - 0.5;

        // Written so that a sample that is not finite stays out.
        if (! (x >= -frame && y >= -frame && x <= lastCell + frame && y <= lastCell + frame))
            continue;

        x = std::clamp (x, 0.0, belowLastCell);
        y = std::clamp (y, 0.0, belowLastCell);

        // Each visit is spread over the four cells around it, which keeps slow curves free of steps.
        const auto column = static_cast<std::size_t> (x);
        const auto row = static_cast<std::size_t> (y);
        const auto right1 = static_cast<float> (x - static_cast<double> (column));
        const auto below1 = static_cast<float> (y - static_cast<double> (row));
        float* const cell = visits.data() + row * cellsAcross + column;
        cell[0] += (1.0f - right1) * (1.0f - below1);
        cell[1] += right1 * (1.0f - below1);
        cell[cellsAcross] += (1.0f - right1) * below1;
        cell[cellsAcross + 1] += right1 * below1;
    }
}

namespace
{
/** Weighs each cell with its neighbours, 1-2-1 both ways, so that single visits read as dots and many as a
    surface. A cell at an edge lacks a neighbour and stays as it is. */
std::vector<float> smoothed (const std::vector<float>& cells)
{
    const auto weighed = [] (const std::vector<float>& from, std::size_t i, std::size_t stride)
    { return 0.25f * from[i - stride] + 0.5f * from[i] + 0.25f * from[i + stride]; };

    std::vector<float> across (cells);

    for (std::size_t row = 0; row < cells.size(); row += cellsAcross)
        for (std::size_t i = row + 1; i < row + cellsAcross - 1; ++i)
            across[i] = weighed (cells, i, 1);

    std::vector<float> result (across);

    for (std::size_t i = cellsAcross; i + cellsAcross < across.size(); ++i)
        result[i] = weighed (across, i, cellsAcross);

    return result;
}

/** What counts as the brightest: the density that all but a few of the places visited stay below, so that the
    one place where a signal rests in its pauses does not darken all others. 0 when nothing was visited. */
float busyDensity (const std::vector<float>& cells)
{
    constexpr double shareBelow = 0.995;
    std::vector<float> visited;
    visited.reserve (cells.size());
    std::copy_if (
        cells.begin(), cells.end(), std::back_inserter (visited), [] (float count) { return count > 0.0f; });

    if (visited.empty())
        return 0.0f;

    const auto position = static_cast<std::ptrdiff_t> (shareBelow * static_cast<double> (visited.size() - 1));
    std::nth_element (visited.begin(), visited.begin() + position, visited.end());
    return visited[static_cast<std::size_t> (position)];
}
} // namespace

juce::Image Goniometer::densityImage() const
{
    const auto density = smoothed (visits);
    juce::Image image (juce::Image::ARGB, fieldSize, fieldSize, true, juce::SoftwareImageType());
    const float most = busyDensity (density);

    if (! (most > 0.0f))
        return image;

    constexpr int numColours = 256;
    std::array<juce::PixelARGB, numColours> colours;
    densityColours().createLookupTable (colours.data(), numColours);

    juce::Image::BitmapData pixels (image, juce::Image::BitmapData::writeOnly);
    // One visit is visible but faint; from there the shade follows the logarithm of the visits.
    const float scale = 1.0f / std::log1p (std::max (1.0f, most));

    for (int row = 0; row < fieldSize; ++row)
    {
        for (int column = 0; column < fieldSize; ++column)
        {
            const float count =
                density[cellsAcross * static_cast<std::size_t> (row) + static_cast<std::size_t> (column)];

            if (count <= 0.0f)
                continue;

            const float shade = std::min (1.0f, std::log1p (count) * scale);
            auto colour = colours[static_cast<std::size_t> (shade * (numColours - 1))];
            colour.multiplyAlpha (std::min (1.0f, 4.0f * count));
            *reinterpret_cast<juce::PixelARGB*> (pixels.getPixelPointer (column, row)) = colour;
        }
    }

    return image;
}

juce::Image Goniometer::draw (const juce::String& title, const StereoFigures& figures) const
{
    juce::Image image (juce::Image::RGB, imageWidth, imageHeight, false, juce::SoftwareImageType());
    juce::Graphics g (image);
    g.fillAll (background);

    g.setColour (textColour);
    g.setFont (font (28.0f, true));
    g.drawText (title,
                juce::Rectangle<int> (margin, 18, fieldSize, headerHeight - 20),
                juce::Justification::centredTop,
                true);

    drawGrid (g);
    g.drawImageAt (densityImage(), margin, headerHeight + margin);
    drawLevel (g, scaleDb);
    drawAxisLabels (g);
    drawFooter (g, figures);
    return image;
}
