// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Makes and removes the folder, and leads what programs print into files.

#include "ScratchFolder.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sys/wait.h>
#include <unistd.h>

ScratchFolder::ScratchFolder()
{
    auto pattern = (std::filesystem::temp_directory_path() / "wideloom-test-XXXXXX").string();

    if (::mkdtemp (pattern.data()) != nullptr)
        folder = pattern;
}

ScratchFolder::~ScratchFolder()
{
    std::error_code ignored;
    std::filesystem::remove_all (folder, ignored);
}

std::vector<std::string> ScratchFolder::names() const
{
    std::vector<std::string> result;

    for (const auto& entry : std::filesystem::directory_iterator (folder))
        result.push_back (entry.path().filename().string());

    std::sort (result.begin(), result.end());
    return result;
}

ProgramResult ScratchFolder::shell (const std::string& line) const
{
    const ScratchFolder capture;
    const auto programs = std::filesystem::path (WIDELOOM_PROGRAM).parent_path().string();
    const auto command = "cd '" + folder.string() + "' && PATH='" + programs + "':\"$PATH\" && { " + line
                         + "\n} > '" + (capture / "out") + "' 2> '" + (capture / "err") + "'";
    const int ended = std::system (command.c_str());

    return { WIFEXITED (ended) ? WEXITSTATUS (ended) : -1,
             readWholeFile (capture / "out"),
             readWholeFile (capture / "err") };
}

std::string readWholeFile (const std::string& path)
{
    std::ifstream file (path, std::ios::binary);
    return { std::istreambuf_iterator<char> (file), {} };
}

void writeWholeFile (const std::string& path, const std::string& bytes)
{
    std::ofstream (path, std::ios::binary) << bytes;
}
