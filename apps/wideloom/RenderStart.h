// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// What a rendering starts from: a preset or a session block.

#pragma once

#include "PresetDesk.h"
#include "RenderOptions.h"
#include "Renderer.h"

/** Reads what the options name into `settings.state`. Makes a desk when there is a preset to load or to save;
    it has the same state loaded, and the parameters that the settings add to it. */
Problem readRenderStart (const RenderOptions& options,
                         RenderSettings& settings,
                         std::unique_ptr<PresetDesk>& desk);
