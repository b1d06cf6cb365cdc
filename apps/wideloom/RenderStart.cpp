// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Looks up what a rendering starts from before any file is opened.

#include "RenderStart.h"

#include "PresetInput.h"

Problem readRenderStart (const RenderOptions& options,
                         RenderSettings& settings,
                         std::unique_ptr<PresetDesk>& desk)
{
    if (! options.stateFile.empty())
        if (auto problem = readSessionFile (options.stateFile, settings.state))
            return problem;

    const bool loadsPreset = ! options.presetName.empty() || ! options.presetFile.empty();

    if (! loadsPreset && options.savedPresetName.empty())
        return {};

    desk = std::make_unique<PresetDesk>();

    if (! settings.state.isEmpty())
        desk->loadState (settings.state);

    if (loadsPreset)
    {
        if (auto problem = options.presetName.empty() ? desk->loadPresetFile (options.presetFile)
                                                      : desk->loadPreset (options.presetName))
            return problem;

        settings.state = desk->getState();
    }

    for (const auto& parameter : settings.parameters)
        desk->setParameter (parameter);

    return options.savedPresetName.empty() ? Problem()
                                           : desk->findSavedBefore (options.savedPresetName, options.force);
}
