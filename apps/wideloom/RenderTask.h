// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Renders one file as the options say.

#pragma once

#include "PresetDesk.h"
#include "RenderOptions.h"
#include "Renderer.h"

/** Reads the settings out of the options. */
Problem readRenderSettings (const RenderOptions& options, RenderSettings& settings);

/** The container and sample format that the options ask for; the format is empty to keep the input's. */
Problem readOutputForm (const RenderOptions& options,
                        const std::string& output,
                        AudioContainer& container,
                        std::optional<SampleFormat>& samples);

/** Renders one file, prints what is wrong and, unless told to be quiet, what is good to know. The
   desk, which has the settings loaded, may be null when no preset is to be saved. */
ExitStatus runRenderTask (const RenderOptions& options,
                          const RenderSettings& settings,
                          PresetDesk* desk,
                          const RenderOptions::Task& task);
