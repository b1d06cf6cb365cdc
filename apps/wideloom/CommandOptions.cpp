// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Builds on the checks of the command line's library.

#include "CommandOptions.h"

#include "Command.h"

#include <CLI/CLI.hpp>

CLI::Option* addChoiceOption (CLI::App& command,
                              const char* name,
                              std::string& choice,
                              const std::vector<std::string>& choices,
                              const char* description)
{
    std::string typeName;

    for (const auto& word : choices)
        typeName += (typeName.empty() ? "" : "|") + word;

    // The check would describe itself behind the type's name, which says the same.
    return command.add_option (name, choice, description)
        ->type_name (typeName)
        ->check (CLI::IsMember (choices).description (""));
}

std::string refuseEmpty (const std::string& text)
{
    return text.empty() ? "it is empty; a name is needed" : "";
}

void refuseUsage (const std::string& text)
{
    throw CLI::ValidationError (text, static_cast<int> (ExitStatus::wrongUsage));
}
