// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The options of `wideloom picture`, what each of them may be, and the writing of the PNG file.

#include "PictureCommand.h"

#include "CommandOptions.h"
#include "DescriptorOutputStream.h"
#include "EditorPicture.h"
#include "EffectSetup.h"
#include "NumberText.h"
#include "TargetFile.h"

#include <engine/WideLoomAudioProcessor.h>

#include <CLI/CLI.hpp>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <iterator>
#include <memory>

namespace
{
constexpr double lowestMeterDb = -144.0;
constexpr double highestMeterDb = 24.0;

/** A word of --panel. */
struct PanelRow
{
    const char* name;
    EditorPanel panel;
};

constexpr auto panelTable = std::to_array<PanelRow> ({
    { "main", EditorPanel::main },
    { "save", EditorPanel::save },
    { "info", EditorPanel::info },
    { "resizing", EditorPanel::resizing },
    { "warning", EditorPanel::warning },
    { "menu", EditorPanel::menu },
});

struct PictureOptions
{
    std::string path;
    EditorPictureRequest request;
    std::string scheme = "bright"; ///< --scheme
    std::string panel = "main";    ///< --panel
    std::optional<std::string> meters;
    EffectSetup setup;
    bool force = false;
};

std::vector<std::string> panelNames()
{
    std::vector<std::string> names;
    names.reserve (std::size (panelTable));

    for (const auto& row : panelTable)
        names.emplace_back (row.name);

    return names;
}

/** The name is one of the table. */
EditorPanel panelOf (const std::string& name)
{
    return std::ranges::find (panelTable, name, &PanelRow::name)->panel;
}

std::optional<float> readPeak (std::string_view text)
{
    const auto decibels = readNumber (trimmed (text));

    if (! decibels.has_value() || *decibels < lowestMeterDb || *decibels > highestMeterDb)
        return {};

    return static_cast<float> (std::pow (10.0, *decibels / 20.0));
}

Problem readMeters (const std::string& text, std::optional<EditorPictureRequest::Peaks>& peaks)
{
    const std::string_view all (text);
    const auto comma = all.find (',');
    const auto left = readPeak (all.substr (0, comma));
    const auto right = comma == std::string_view::npos ? std::nullopt : readPeak (all.substr (comma + 1));

    if (! left.has_value() || ! right.has_value())
        return "--meters takes two levels from -144 to 24 dB, such as -6,-9.5; '" + text + "' is not that";

    peaks = EditorPictureRequest::Peaks { *left, *right };
    return {};
}

/** So that a picture never replaces a file of another kind, not even with --force. */
Problem checkName (const std::string& path)
{
    constexpr std::string_view ending = ".png";

    if (path == "-"
        || (path.size() > ending.size()
            && path.compare (path.size() - ending.size(), ending.size(), ending) == 0))
        return {};

    return "the picture's name has to end in .png; '" + path + "' does not";
}

Problem writePng (const juce::Image& image, TargetFile& target)
{
    int failure = 0;
    bool isWritten = false;

    {
        DescriptorOutputStream stream (target.getDescriptor(), failure);
        isWritten = juce::PNGImageFormat().writeImageToStream (image, stream);
        stream.flush();
    }

    if (failure != 0)
        return target.getName() + " cannot be written: " + std::strerror (failure);

    if (! isWritten)
        return target.getName() + " cannot be written";

    return target.commit();
}

/** As a user would in the editor. */
void set (WideLoomAudioProcessor& processor, const EffectStart& start)
{
    if (! start.state.isEmpty())
        processor.setStateInformation (start.state.getData(), static_cast<int> (start.state.getSize()));

    for (const auto& setting : start.settings)
        processor.setParamAndNotifyHost (
            parameterTable[static_cast<size_t> (setting.index)].name, setting.value, true);
}

/** What cannot be read on the command line. */
Problem readOptions (PictureOptions& options, EffectStart& start)
{
    options.request.isDark = options.scheme == "dark";
    options.request.panel = panelOf (options.panel);

    if (auto problem = checkName (options.path))
        return problem;

    if (options.meters.has_value())
        if (auto problem = readMeters (*options.meters, options.request.meters))
            return problem;

    return readEffectSettings (options.setup, start);
}

Problem makePicture (const PictureOptions& options, EffectStart& start)
{
    if (auto problem = loadEffectPreset (options.setup, start))
        return problem;

    Problem problem;
    const auto target = TargetFile::create (options.path, options.force, problem);

    if (target == nullptr)
        return problem;

    WideLoomAudioProcessor processor;
    set (processor, start);
    return writePng (paintEditorPicture (processor, options.request), *target);
}
} // namespace

void addPictureCommand (CLI::App& program, ExitStatus& status)
{
    const auto options = std::make_shared<PictureOptions>();
    auto* command = program.add_subcommand ("picture", "Paint the editor into a PNG file; needs no display");

    command->add_option ("output", options->path, "The PNG file, - for standard output")
        ->type_name ("OUT.png")
        ->required();
    command->add_option ("--height", options->request.height, "Height of the editor in pixels")
        ->type_name ("PIXELS")
        ->check (CLI::Range (lowestPictureHeight, highestPictureHeight))
        ->capture_default_str();
    addChoiceOption (*command, "--scheme", options->scheme, { "dark", "bright" }, "Colour scheme")
        ->capture_default_str();
    command->add_flag ("--expert", options->request.isExpert, "Show the expert options");
    addChoiceOption (*command, "--panel", options->panel, panelNames(), "What to show")
        ->capture_default_str();
    command->add_option ("--meters", options->meters, "Levels of left and right in dB, such as -6,-9.5")
        ->type_name ("L,R");
    addEffectSetupOptions (*command, options->setup);
    command->add_flag ("--force", options->force, "Replace a picture that exists");

    command->callback (
        [options, &status]
        {
            EffectStart start;

            if (const auto problem = readOptions (*options, start))
                refuseUsage (*problem);

            if (const auto problem = makePicture (*options, start))
            {
                printError (*problem);
                status = ExitStatus::failure;
            }
        });
}
