// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Figures of several signals as a table for people.

#pragma once

#include "StereoFigures.h"

#include <vector>

struct FiguresRow
{
    juce::String label; ///< the file, or what was done to it
    StereoFigures figures;
};

/** Two head lines, one line for each row, aligned for a fixed-width font, and below them one line for each
   row with samples that are not finite. Every line ends in a line feed. */
juce::String figuresTable (const std::vector<FiguresRow>& rows);
