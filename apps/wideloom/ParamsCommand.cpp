// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Options and output of `wideloom params`.

#include "ParamsCommand.h"

#include "ParameterListing.h"

#include <CLI/CLI.hpp>

#include <memory>

void addParamsCommand (CLI::App& program, ExitStatus& status)
{
    auto* const command =
        program.add_subcommand ("params", "List the parameters with their defaults and what --set takes");
    const auto json = std::make_shared<bool> (false);

    command->add_flag ("--json", *json, "Print JSON, with the normalised values");
    command->callback (
        [json, &status]
        {
            const auto text =
                *json ? juce::JSON::toString (parameterListingJson()) + "\n" : parameterListing();

            if (const auto problem = printResult (text.toStdString()))
            {
                printError (*problem);
                status = ExitStatus::failure;
            }
        });
}
