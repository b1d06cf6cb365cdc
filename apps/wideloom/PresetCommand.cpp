// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The three subcommands of `wideloom preset`.

#include "PresetCommand.h"

#include "FileDescriptors.h"
#include "PresetInput.h"
#include "PresetListing.h"
#include "TargetFile.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <vector>

namespace
{
struct ConvertOptions
{
    std::string input, output;
    bool compressed = false, plain = false, force = false;
};

Problem show (const std::string& path)
{
    UserPresetFile::Contents contents;

    if (auto problem = readPresetFile (path, contents))
        return problem;

    return printResult (presetDescription (contents).toStdString());
}

Problem convert (const ConvertOptions& options)
{
    UserPresetFile::Contents contents;

    if (auto problem = readPresetFile (options.input, contents))
        return problem;

    const auto bytes = UserPresetFile::write (contents.tree, options.compressed);
    const std::string_view written (static_cast<const char*> (bytes.getData()), bytes.getSize());

    // A preset that nobody could read again must not take the place of a good one.
    if (! UserPresetFile::read (written).tree.isEquivalentTo (contents.tree))
        return "'" + options.input + "': it is too large to be written again";

    Problem problem;
    const auto target = TargetFile::create (options.output, options.force, problem);

    if (problem)
        return problem;

    if (! writeFully (target->getDescriptor(), written.data(), written.size()))
        return target->getName() + " cannot be written: " + systemError();

    return target->commit();
}

Problem check (const std::string& path)
{
    UserPresetFile::Contents contents;

    if (auto problem = readPresetFile (path, contents))
        return problem;

    if (auto problem = findEmptiness (contents.tree))
        return "'" + path + "': " + *problem;

    if (! contents.correctedParameters.isEmpty())
        return "'" + path + "': it has values that are no numbers from 0 to 1, for "
               + contents.correctedParameters.joinIntoString (", ").toStdString();

    return printResult ("'" + path + "': it is good\n");
}

void report (const Problem& problem, ExitStatus& status)
{
    if (problem)
    {
        printError (*problem);
        status = ExitStatus::failure;
    }
}

void addShow (CLI::App& group, ExitStatus& status)
{
    auto* const command = group.add_subcommand ("show", "Print what a preset file sets and says of itself");
    const auto path = std::make_shared<std::string>();
    command->add_option ("FILE", *path, "Preset file, .q7p")->required();
    command->callback ([path, &status] { report (show (*path), status); });
}

void addConvert (CLI::App& group, ExitStatus& status)
{
    auto* const command = group.add_subcommand ("convert", "Write a preset file in another form");
    const auto options = std::make_shared<ConvertOptions>();
    command->add_option ("IN", options->input, "Preset file, .q7p")->required();
    command->add_option ("OUT", options->output, "Preset file to write; - is standard output")->required();
    auto* const plain = command->add_flag ("--plain", options->plain, "Readable text; the default");
    command->add_flag ("--compressed", options->compressed, "Compressed text, as the editor saves")
        ->excludes (plain);
    command->add_flag ("--force", options->force, "Replace OUT if it exists");
    command->callback ([options, &status] { report (convert (*options), status); });
}

void addCheck (CLI::App& group, ExitStatus& status)
{
    auto* const command =
        group.add_subcommand ("check", "Say what is wrong with preset files; exit with 1 if anything is");
    const auto paths = std::make_shared<std::vector<std::string>>();
    command->add_option ("FILE", *paths, "Preset files, .q7p")->required();
    command->callback (
        [paths, &status]
        {
            for (const auto& path : *paths)
                report (check (path), status);
        });
}
} // namespace

void addPresetCommand (CLI::App& program, ExitStatus& status)
{
    auto* const group = program.add_subcommand ("preset", "Show, convert or check preset files");
    group->require_subcommand (1);

    for (const AddCommand add : { &addShow, &addConvert, &addCheck })
        add (*group, status);
}
