// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The options --preset and --set, and what they come to.

#include "EffectSetup.h"

#include "CommandOptions.h"
#include "PresetDesk.h"

#include <CLI/CLI.hpp>

void addEffectSetupOptions (CLI::App& command, EffectSetup& setup)
{
    command.add_option ("--preset", setup.preset, "Load a factory or user preset by its name")
        ->type_name ("NAME")
        ->check (refuseEmpty);
    command
        .add_option (
            "--set", setup.settings, "Set a parameter to a value as the editor shows it, such as Pan=L20")
        ->type_name ("NAME=TEXT")
        ->allow_extra_args (false);
}

Problem readEffectSettings (const EffectSetup& setup, EffectStart& start)
{
    for (const auto& text : setup.settings)
        if (auto problem = readTextSetting (text, start.settings.emplace_back()))
            return "--set: " + *problem;

    return {};
}

Problem loadEffectPreset (const EffectSetup& setup, EffectStart& start)
{
    if (setup.preset.empty())
        return {};

    PresetDesk desk;

    if (auto problem = desk.loadPreset (setup.preset))
        return problem;

    start.state = desk.getState();
    return {};
}
