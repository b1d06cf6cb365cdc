// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Options and output of `wideloom presets`.

#include "PresetsCommand.h"

#include "PresetDesk.h"

#include <CLI/CLI.hpp>

#include <memory>

void addPresetsCommand (CLI::App& program, ExitStatus& status)
{
    auto* const command = program.add_subcommand (
        "presets",
        "List factory and user presets with what they set in another way than the first, \"Init\"");
    const auto json = std::make_shared<bool> (false);

    command->add_flag ("--json", *json, "Print JSON, with the normalised values");
    command->callback (
        [json, &status]
        {
            const auto ring = PresetDesk().getRing();
            const auto text =
                *json ? juce::JSON::toString (presetListingJson (ring)) + "\n" : presetListing (ring);

            if (const auto problem = printResult (text.toStdString()))
            {
                printError (*problem);
                status = ExitStatus::failure;
            }
        });
}
