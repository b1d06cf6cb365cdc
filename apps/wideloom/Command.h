// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// What every subcommand has in common: exit status, messages and how it joins the command line.

#pragma once

#include <optional>
#include <string>

namespace CLI
{
class App;
}

/** What the program returns to the shell. */
enum class ExitStatus : int
{
    success = 0,
    failure = 1,   ///< something that was asked for did not work
    wrongUsage = 2 ///< it was not clear what was asked for
};

/** Empty when all went well; else what went wrong and what would be right, as text for the user. It has no
   "error:" in front and no line feed behind. */
using Problem = std::optional<std::string>;

/** A subcommand lives in a pair of files with one function of this form,

        void addRenderCommand (CLI::App& program, ExitStatus& status);

    which adds it with add_subcommand() and gives it a callback() that does the work and sets `status`, which
    is success before. Both references outlive the parsing. Options that cannot be read throw
    CLI::ValidationError out of the parsing, which ends in wrongUsage; a callback does the same with
    refuseUsage(), throws nothing else, and says what went wrong through printError(). */
using AddCommand = void (*) (CLI::App& program, ExitStatus& status);

/** Prints "wideloom: <text>" on standard error. */
void printError (const std::string& text);

/** The same for what is no error but good to know. */
void printNotice (const std::string& text);

/** Prints on standard output. A problem is a full disk or a closed pipe. */
Problem printResult (const std::string& text);
