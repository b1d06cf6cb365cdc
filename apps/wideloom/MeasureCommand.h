// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// `wideloom measure`: the stereo figures of audio files, and pictures of them.

#pragma once

#include "Command.h"

#include <optional>
#include <string>
#include <vector>

struct MeasureOptions
{
    std::vector<std::string> files;
    bool json = false;
    std::optional<std::string> picture; ///< a PNG file; with several files, the pattern of their pictures
    bool force = false;                 ///< existing pictures are replaced
};

struct MeasureOutcome
{
    ExitStatus status = ExitStatus::success;
    std::string text;                ///< the table or the JSON, in the order of the files
    std::vector<std::string> errors; ///< a message for each file or picture that failed
};

/** Measures the files and draws the pictures. A file that fails does not stop the others. */
MeasureOutcome runMeasure (const MeasureOptions& options);

void addMeasureCommand (CLI::App& program, ExitStatus& status);
