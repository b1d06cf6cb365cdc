// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// A folder for one test, and programs run in it.

#pragma once

#include <filesystem>
#include <string>
#include <vector>

/** What a program said and how it ended. */
struct ProgramResult
{
    int status = -1; ///< exit status; -1 when it did not end by itself
    std::string output, errors;
};

/** Is empty when it is made and gone when it is deleted. */
class ScratchFolder
{
public:
    ScratchFolder();
    ~ScratchFolder();
    ScratchFolder (const ScratchFolder&) = delete;
    ScratchFolder& operator= (const ScratchFolder&) = delete;

    std::string operator/ (const std::string& name) const { return (folder / name).string(); }

    /** Names of all that is in it, hidden files too, sorted. */
    std::vector<std::string> names() const;

    /** Runs a line of shell with this as the working folder and "wideloom" on the path. */
    ProgramResult shell (const std::string& line) const;

private:
    std::filesystem::path folder;
};

std::string readWholeFile (const std::string& path);
void writeWholeFile (const std::string& path, const std::string& bytes);
