// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Finds out which inputs become which outputs, and passes options on to further processes.

#include "RenderOptions.h"

#include "presets/UserPresetFile.h"

#include <filesystem>
#include <map>

Problem RenderOptions::findTasks (std::vector<Task>& tasks) const
{
    const auto savedName = juce::String::fromUTF8 (savedPresetName.c_str()).removeCharacters ("*");

    if (! savedPresetName.empty() && ! UserPresetFile::isFileName (savedName))
        return "--save-preset: '" + savedPresetName
               + "' can be no preset's name; it takes letters and the like, but no separators";

    if (! reportFile.empty() && reportFile == savedStateFile)
        return "--report and --save-state are both '" + reportFile + "'; name two files";

    if (outputFolder.empty())
    {
        if (files.size() == 1)
            return "'" + files[0] + "' has no output; name it behind the input, or a folder with --out-dir";

        if (files.size() > 2)
            return "several inputs need a folder for the outputs; name it with --out-dir";

        if (reportFile == files[1])
            return "'" + reportFile + "' cannot be both the output and its report";

        if (! savedStateFile.empty() && savedStateFile == files[1])
            return "--save-state and the output are both '" + savedStateFile + "'; name two files";

        tasks.push_back ({ files[0], files[1] });
        return {};
    }

    if (! reportFile.empty() && files.size() > 1)
        return "--report goes with one input, not with " + std::to_string (files.size());

    for (const auto& [option, value] :
         { std::pair ("--save-preset", &savedPresetName), std::pair ("--save-state", &savedStateFile) })
        if (! value->empty() && files.size() > 1)
            return std::string (option) + " goes with one input, not with " + std::to_string (files.size());

    std::map<std::string, std::string> inputsByName;
    const auto collision = [] (const auto& one, const auto& other, const auto& name)
    {
        auto text = "'" + one + "' and '";
        text += other + "' would both become '";
        text += name + "' in the output folder; render them into different ones";
        return text;
    };

    for (const auto& input : files)
    {
        const auto fileName = std::filesystem::path (input).filename().string();

        if (input == "-" || fileName.empty())
            return "'" + input + "' has no file name that the output in --out-dir could keep";

        const auto [other, isNew] = inputsByName.emplace (fileName, input);

        if (! isNew)
            return collision (other->second, input, fileName);

        tasks.push_back ({ input, (std::filesystem::path (outputFolder) / fileName).string() });
    }

    return {};
}

std::vector<std::string> RenderOptions::argumentsFor (const Task& task) const
{
    std::vector<std::string> arguments { "render",
                                         "--no-progress",
                                         "--block=" + std::to_string (blockFrames) };

    for (const auto& [option, value] : { std::pair ("--preset=", &presetName),
                                         std::pair ("--preset-file=", &presetFile),
                                         std::pair ("--state=", &stateFile) })
        if (! value->empty())
            arguments.push_back (option + *value);

    for (const auto& assignment : assignments)
        arguments.push_back ((assignment.normalised ? "--norm=" : "--set=") + assignment.text);

    if (! automationFile.empty())
        arguments.push_back ("--automation=" + automationFile);

    if (! bits.empty())
        arguments.push_back ("--bits=" + bits);

    if (force)
        arguments.emplace_back ("--force");

    if (noDither)
        arguments.emplace_back ("--no-dither");

    if (quiet)
        arguments.emplace_back ("--quiet");

    if (! path.empty())
        arguments.push_back ("--path=" + path);

    arguments.insert (arguments.end(), { "--", task.input, task.output });
    return arguments;
}
