// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "EffectSetup.h"

#include "ParameterText.h"
#include "PresetDesk.h"

#include <engine/WideLoomAudioProcessor.h>

#include <CLI/CLI.hpp>

namespace
{
/** Factory presets come first, as they do in the menu. */
Problem loadPreset (WideLoomAudioProcessor& processor, const std::string& name)
{
    PresetDesk desk;

    if (auto problem = desk.loadPreset (name))
        return problem;

    const auto state = desk.getState();
    processor.setStateInformation (state.getData(), static_cast<int> (state.getSize()));
    return {};
}
} // namespace

void addEffectSetupOptions (CLI::App& command, EffectSetup& setup)
{
    command.add_option ("--preset", setup.preset, "Load a factory or user preset by its name")
        ->type_name ("NAME");
    command
        .add_option (
            "--set", setup.settings, "Set a parameter to a value as the editor shows it, such as Pan=L20")
        ->type_name ("NAME=TEXT")
        ->allow_extra_args (false);
}

Problem applyEffectSetup (WideLoomAudioProcessor& processor, const EffectSetup& setup)
{
    if (! setup.preset.empty())
        if (auto problem = loadPreset (processor, setup.preset))
            return problem;

    for (const auto& text : setup.settings)
    {
        ParameterSetting setting;

        if (auto problem = readTextSetting (text, setting))
            return problem;

        processor.setParamAndNotifyHost (
            parameterTable[static_cast<size_t> (setting.index)].name, setting.value, true);
    }

    return {};
}
