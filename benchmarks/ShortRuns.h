// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Reads the command line of benchmarks whose runs are short and many.

#pragma once

/** Runs are short and interleaved, so that what else the machine does hits all rows alike. What the command
    line says comes later and wins.

    @returns whether all of it was understood; if not, it has said what was not */
bool initialiseShortRuns (int argc, char** argv, int repetitions, double secondsPerRun);
