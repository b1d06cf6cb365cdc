// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// What rendering did to the audio, as a JSON file.

#pragma once

#include "EffectPath.h"
#include "StereoFigures.h"
#include "TargetFile.h"

struct RenderReport
{
    std::string input, output; ///< as given
    double sampleRate = 0.0;   ///< Hz
    EffectPath::MeterPeaks peaks;
    StereoFigures before, after;
    std::int64_t numClippedSamples = 0;
};

/** Writes the report and puts it in its place. Levels that have no number are the texts "-inf" and "inf". */
Problem writeReport (TargetFile& file, const RenderReport& report);
