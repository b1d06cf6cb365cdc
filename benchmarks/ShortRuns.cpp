// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Puts the options of short runs in front of those that were given.

#include "ShortRuns.h"

#include <benchmark/benchmark.h>

#include <array>
#include <string>
#include <vector>

bool initialiseShortRuns (int argc, char** argv, int repetitions, double secondsPerRun)
{
    std::array<std::string, 3> options { "--benchmark_repetitions=" + std::to_string (repetitions),
                                         "--benchmark_min_time=" + std::to_string (secondsPerRun),
                                         "--benchmark_enable_random_interleaving=true" };

    // The program's name is the caller's own: reports still read it after this has returned.
    std::vector<char*> arguments { argv[0] };

    for (auto& option : options)
        arguments.push_back (option.data());

    arguments.insert (arguments.end(), argv + 1, argv + argc);

    int count = static_cast<int> (arguments.size());
    benchmark::Initialize (&count, arguments.data());
    return ! benchmark::ReportUnrecognizedArguments (count, arguments.data());
}
