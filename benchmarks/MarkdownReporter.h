// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Prints benchmark results as tables that can be pasted into the documentation.

#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

/** One table for each block size, a row for each benchmark: nanoseconds per stereo frame, and their ratio to
    two rows of the same table. A benchmark's one argument is its block size in frames. Of several repetitions
    the fastest counts: whatever else the machine does only ever adds time. */
class MarkdownReporter : public benchmark::BenchmarkReporter
{
public:
    /** @param rowOrder    names of the benchmarks, as the tables list them
        @param floorRow    one of them: the first row that the others are compared with
        @param filterRow   the second */
    MarkdownReporter (std::vector<std::string> rowOrder, std::string floorRow, std::string filterRow);

    bool ReportContext (const Context&) override;
    void ReportRuns (const std::vector<Run>& runs) override;
    void Finalize() override;

    /** Nanoseconds per frame; NaN for a benchmark that did not run. */
    double fastest (const std::string& row, int blockSize) const;

private:
    std::vector<std::string> rows;
    std::string floorName, filterName;
    std::map<int, std::map<std::string, double>> nanosecondsPerFrame;
};
