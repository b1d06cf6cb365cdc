// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Writes messages to standard error and results to standard output.

#include "Command.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

void printError (const std::string& text)
{
    const auto line = "wideloom: " + text + "\n";
    std::fputs (line.c_str(), stderr);
}

void printNotice (const std::string& text)
{
    const auto line = "wideloom: note: " + text + "\n";
    std::fputs (line.c_str(), stderr);
}

Problem printResult (const std::string& text)
{
    if (std::fwrite (text.data(), 1, text.size(), stdout) != text.size() || std::fflush (stdout) != 0)
        return std::string ("standard output cannot be written: ") + std::strerror (errno);

    return {};
}
