// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the user asks of `wideloom render`.

#pragma once

#include "Command.h"

#include <string>
#include <vector>

struct RenderOptions
{
    std::vector<std::string> files; ///< inputs, and the output behind them when there is no folder
    std::string outputFolder;       ///< --out-dir; empty when not given
    std::string automationFile;     ///< --automation; empty when not given
    std::string reportFile;         ///< --report; empty when not given
    std::string presetName;         ///< --preset; empty when not given, as the next four
    std::string presetFile;         ///< --preset-file
    std::string stateFile;          ///< --state
    std::string savedPresetName;    ///< --save-preset
    std::string savedStateFile;     ///< --save-state
    std::string path;               ///< --path
    std::string bits;               ///< --bits as typed; empty when not given
    int blockFrames = 0;            ///< --block
    int numJobs = 0;                ///< --jobs; 0 for all cores
    bool force = false, noDither = false, quiet = false, noProgress = false;

    /** One of the options that set a parameter. */
    struct Assignment
    {
        bool normalised; ///< --norm, not --set
        std::string text;
    };

    std::vector<Assignment> assignments; ///< in the order of the command line

    /** One file to render. */
    struct Task
    {
        std::string input, output;
    };

    /** The files to render, one by one. A problem when inputs and outputs do not go together. */
    Problem findTasks (std::vector<Task>& tasks) const;

    /** The arguments that make another wideloom render one of the tasks in the same way, without a progress
        bar. */
    std::vector<std::string> argumentsFor (const Task& task) const;
};
