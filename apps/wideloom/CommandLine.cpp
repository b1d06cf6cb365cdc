// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The list of the subcommands, and what becomes of usage errors.

#include "CommandLine.h"

#include "HostInfoCommand.h"
#include "MeasureCommand.h"
#include "OpenCommand.h"
#include "ParamsCommand.h"
#include "PictureCommand.h"
#include "PresetCommand.h"
#include "PresetsCommand.h"
#include "RenderCommand.h"

#include <CLI/CLI.hpp>

namespace
{
constexpr AddCommand commands[] = {
    addRenderCommand, addMeasureCommand, addParamsCommand, addPresetsCommand,
    addPresetCommand, addPictureCommand, addOpenCommand,   addHostInfoCommand
};
}

ExitStatus runCommandLine (int argc, char** argv)
{
    auto status = ExitStatus::success;
    CLI::App program { "WideLoom: stereo width, panorama and mid/side on audio files", "wideloom" };
    program.set_version_flag ("--version", "wideloom " WIDELOOM_VERSION);
    program.require_subcommand (1);

    for (const auto add : commands)
        add (program, status);

    try
    {
        program.parse (argc, argv);
    }
    catch (const CLI::Success& help)
    {
        program.exit (help); // prints the help or the version
    }
    catch (const CLI::Error& error)
    {
        const bool isUnknownCommand = program.get_subcommands().empty() && argc > 1 && argv[1][0] != '-';
        printError ((isUnknownCommand ? "there is no command '" + std::string (argv[1]) + "'" : error.what())
                    + "\nTry 'wideloom --help' or 'wideloom COMMAND --help'.");
        return ExitStatus::wrongUsage;
    }
    catch (const std::exception& error)
    {
        printError (error.what());
        return ExitStatus::failure;
    }

    return status;
}
