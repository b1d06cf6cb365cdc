// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Draws a stereo signal as a goniometer does: mid upwards, side across, left and right on the diagonals.

#pragma once

#include "StereoFigures.h"

#include <juce_graphics/juce_graphics.h>

#include <vector>

/** Collects how often the signal visits each place of the picture, so the length of the signal does not
   matter. Draws with the software renderer and needs no display. */
class Goniometer
{
public:
    /** `largestPeakDb`, the larger of both peaks in dBFS, chooses the scale: the frame of the picture stands
        for the next step of 3 dB above it. */
    explicit Goniometer (double largestPeakDb);

    /** Frames that hold a sample that is not finite are passed over. */
    void add (const float* left, const float* right, int numSamples) noexcept;

    /** A finished picture. `title` stands above the field, some of the figures below it. */
    juce::Image draw (const juce::String& title, const StereoFigures& figures) const;

    /** The level of the frame in dBFS, a multiple of 3. */
    double fullScaleDb() const noexcept { return scaleDb; }

private:
    juce::Image densityImage() const;

    double scaleDb;
    double pixelsPerUnit;      ///< cells of the grid for a linear value of 1.0 on the mid axis
    std::vector<float> visits; ///< rows of the grid, top to bottom
};
