// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The options of `wideloom render`, and the order in which they are checked.

#include "RenderCommand.h"

#include "CommandOptions.h"
#include "RenderBatch.h"
#include "RenderStart.h"
#include "RenderTask.h"

#include <CLI/CLI.hpp>

#include <filesystem>
#include <memory>

namespace
{
constexpr int mostJobs = 1024;

/** The options that set parameters, in the order of the command line: of two for one parameter the later one
    wins, whichever kind they are. */
std::vector<RenderOptions::Assignment> assignmentsInOrder (const CLI::App& command,
                                                           const CLI::Option* set,
                                                           const CLI::Option* norm)
{
    std::vector<RenderOptions::Assignment> assignments;
    std::size_t numSet = 0, numNorm = 0;

    for (const auto* option : command.parse_order())
    {
        if (option == set)
            assignments.push_back ({ false, set->results()[numSet++] });
        else if (option == norm)
            assignments.push_back ({ true, norm->results()[numNorm++] });
    }

    return assignments;
}

ExitStatus run (const RenderOptions& options)
{
    std::vector<RenderOptions::Task> tasks;
    RenderSettings settings;

    if (const auto problem = options.findTasks (tasks))
        refuseUsage (*problem);

    if (const auto problem = readRenderSettings (options, settings))
        refuseUsage (*problem);

    if (! options.automationFile.empty())
    {
        if (const auto problem = loadAutomation (options.automationFile, settings.automation))
        {
            printError (*problem);
            return ExitStatus::failure;
        }
    }

    // Also before a batch, so that one message and not many tell of what no file can start from.
    std::unique_ptr<PresetDesk> desk;

    if (const auto problem = readRenderStart (options, settings, desk))
    {
        printError (*problem);
        return ExitStatus::failure;
    }

    if (! options.outputFolder.empty())
    {
        std::error_code error;
        std::filesystem::create_directories (options.outputFolder, error);

        if (error)
        {
            printError ("'" + options.outputFolder + "' cannot be made a folder: " + error.message());
            return ExitStatus::failure;
        }
    }

    if (tasks.size() > 1)
        return runRenderBatch (options, tasks);

    AudioContainer container {};
    std::optional<SampleFormat> samples;

    if (const auto problem = readOutputForm (options, tasks[0].output, container, samples))
        refuseUsage (*problem);

    return runRenderTask (options, settings, desk.get(), tasks[0]);
}

/** What the effect starts from, one of three, and what is kept of it. */
void addPresetOptions (CLI::App& command, RenderOptions& options)
{
    const auto add = [&command] (const char* name, std::string& value, const char* type, const char* text)
    { return command.add_option (name, value, text)->type_name (type)->check (refuseEmpty); };

    auto* const preset = add ("--preset",
                              options.presetName,
                              "NAME",
                              "Start from a preset; a factory preset comes before a user preset");
    auto* const file = add ("--preset-file", options.presetFile, "FILE.q7p", "Start from a preset file");
    auto* const state = add ("--state", options.stateFile, "FILE", "Start from a session block");
    preset->excludes (file)->excludes (state);
    file->excludes (state);

    add ("--save-preset",
         options.savedPresetName,
         "NAME",
         "Save the settings, without automation, as a user preset");
    add ("--save-state",
         options.savedStateFile,
         "FILE",
         "Write the settings, without automation, as a session block");
}
} // namespace

void addRenderCommand (CLI::App& program, ExitStatus& status)
{
    auto* const command = program.add_subcommand ("render", "Run audio files through the effect");
    const auto options = std::make_shared<RenderOptions>();

    command->footer ("One file:    wideloom render IN OUT\n"
                     "Many files:  wideloom render IN... --out-dir DIR");
    command
        ->add_option ("FILES",
                      options->files,
                      "WAV, AIFF or FLAC, mono or stereo; the extension of OUT chooses its format; - is WAV "
                      "on standard input or output")
        ->required();

    addPresetOptions (*command, *options);

    auto* const set = command->add_option ("--set")->type_name ("NAME=TEXT");
    set->description ("Set a parameter as people see it, such as StereoWidth=\"150 %\" or Pan=L30");
    auto* const norm = command->add_option ("--norm")->type_name ("NAME=VALUE");
    norm->description ("Set a parameter to a normalised value from 0 to 1");

    for (auto* option : { set, norm })
        option->expected (1)->take_all()->allow_extra_args (false);

    command
        ->add_option (
            "--automation", options->automationFile, "Lines of sample position, name, normalised value")
        ->type_name ("FILE.csv");
    addChoiceOption (*command,
                     "--bits",
                     options->bits,
                     { "16", "24", "32f" },
                     "Bit depth of the output; that of the input otherwise");
    command->add_flag ("--no-dither", options->noDither, "Do not dither 16-bit output");
    command->add_option ("--out-dir", options->outputFolder, "Folder for the outputs, which keep their names")
        ->type_name ("DIR");
    options->blockFrames = RenderSettings::defaultBlockFrames;
    command
        ->add_option (
            "--jobs", options->numJobs, "Files to render at once; as many as there are cores otherwise")
        ->check (CLI::Range (1, mostJobs))
        ->type_name ("N");
    command
        ->add_option ("--block",
                      options->blockFrames,
                      "Frames in a block, 512 otherwise; the output does not depend on it")
        ->check (CLI::Range (1, RenderSettings::mostBlockFrames))
        ->type_name ("N");
    options->path = "host";
    addChoiceOption (
        *command,
        "--path",
        options->path,
        { "host", "direct" },
        "Render through the plug-in, as its host does, or call the effect directly; the output is "
        "the same");
    command
        ->add_option (
            "--report", options->reportFile, "Write meter peaks and stereo figures before and after")
        ->type_name ("FILE.json");
    command->add_flag ("--force", options->force, "Replace files that exist");
    command->add_flag ("--quiet", options->quiet, "No progress and no notes, only errors");
    command->add_flag ("--no-progress", options->noProgress, "No progress bar");

    command->callback (
        [command, set, norm, options, &status]
        {
            options->assignments = assignmentsInOrder (*command, set, norm);
            status = run (*options);
        });
}
