// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Keeps the fastest run of each row, and prints the rows with their ratios.

#include "MarkdownReporter.h"

#include <algorithm>
#include <cstdio>
#include <limits>
#include <utility>

MarkdownReporter::MarkdownReporter (std::vector<std::string> rowOrder,
                                    std::string floorRow,
                                    std::string filterRow)
    : rows (std::move (rowOrder)),
      floorName (std::move (floorRow)),
      filterName (std::move (filterRow))
{
}

bool MarkdownReporter::ReportContext (const Context& context)
{
    PrintBasicContext (&GetErrorStream(), context);
    return true;
}

void MarkdownReporter::ReportRuns (const std::vector<Run>& runs)
{
    for (const auto& run : runs)
    {
        if (run.run_type != Run::RT_Iteration || run.error_occurred)
            continue;

        const int blockSize = std::stoi (run.run_name.args);
        const auto& name = run.run_name.function_name;
        const double nanoseconds = run.GetAdjustedRealTime() / blockSize;

        auto& fastestSoFar = nanosecondsPerFrame[blockSize].try_emplace (name, nanoseconds).first->second;
        fastestSoFar = std::min (fastestSoFar, nanoseconds);
    }
}

double MarkdownReporter::fastest (const std::string& row, int blockSize) const
{
    if (const auto table = nanosecondsPerFrame.find (blockSize); table != nanosecondsPerFrame.end())
        if (const auto entry = table->second.find (row); entry != table->second.end())
            return entry->second;

    return std::numeric_limits<double>::quiet_NaN();
}

void MarkdownReporter::Finalize()
{
    for (const auto& [blockSize, table] : nanosecondsPerFrame)
    {
        std::printf ("Blocks of %d frames\n\n", blockSize);
        std::printf ("| what | ns per frame | x %s | x %s |\n", floorName.c_str(), filterName.c_str());
        std::printf ("|---|--:|--:|--:|\n");

        for (const auto& row : rows)
        {
            if (! table.contains (row))
                continue;

            const double nanoseconds = table.at (row);
            std::printf ("| %s | %.3f | %.2f | %.2f |\n",
                         row.c_str(),
                         nanoseconds,
                         nanoseconds / fastest (floorName, blockSize),
                         nanoseconds / fastest (filterName, blockSize));
        }

        std::printf ("\n");
    }
}
