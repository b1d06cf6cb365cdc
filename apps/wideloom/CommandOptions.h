// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the options of several commands have in common: choices from a list, and refusing what cannot be
// meant.

#pragma once

#include <string>
#include <vector>

namespace CLI
{
class App;
class Option;
} // namespace CLI

/** Adds an option that takes one of a few words, and shows them in the help as "this|that". `choice` keeps
   its value when the option is not given, and must outlive the parsing. */
CLI::Option* addChoiceOption (CLI::App& command,
                              const char* name,
                              std::string& choice,
                              const std::vector<std::string>& choices,
                              const char* description);

/** A check for options whose empty value would look as if they had not been given. */
std::string refuseEmpty (const std::string& text);

/** Ends the parsing in wrongUsage, out of a command's callback. */
[[noreturn]] void refuseUsage (const std::string& text);
