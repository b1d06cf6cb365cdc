// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The option of `wideloom host-info`, and the session in which it asks.

#include "HostInfoCommand.h"

#include "HostInfo.h"

#include <CLI/CLI.hpp>

#include <memory>

namespace
{
constexpr double usualSampleRate = 44100.0; // Hz

Problem printHostInfo (bool asJson)
{
    HostSession session;

    if (auto problem = session.open (usualSampleRate))
        return problem;

    const auto info = hostInfoJson (session);
    const auto text = asJson ? juce::JSON::toString (info) + "\n" : hostInfoText (info);
    return printResult (text.toStdString());
}
} // namespace

void addHostInfoCommand (CLI::App& program, ExitStatus& status)
{
    auto* const command = program.add_subcommand (
        "host-info", "Show what a host sees of the plug-in: codes, controls, chunks, ports");
    const auto json = std::make_shared<bool> (false);

    command->add_flag ("--json", *json, "Print JSON");
    command->callback (
        [json, &status]
        {
            if (const auto problem = printHostInfo (*json))
            {
                printError (*problem);
                status = ExitStatus::failure;
            }
        });
}
