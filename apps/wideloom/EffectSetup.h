// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The preset and the settings that a command line asks for, as a user would make them in the editor.

#pragma once

#include "Command.h"

#include <string>
#include <vector>

class WideLoomAudioProcessor;

struct EffectSetup
{
    std::string preset;                ///< of the factory or of the user; empty leaves the effect as it is
    std::vector<std::string> settings; ///< "NAME=TEXT" each
};

/** Adds "--preset" and "--set". The setup must outlive the parsing. */
void addEffectSetupOptions (CLI::App& command, EffectSetup& setup);

/** [message] Loads the preset, then makes the settings in their order. A problem leaves what came before it.
 */
Problem applyEffectSetup (WideLoomAudioProcessor& processor, const EffectSetup& setup);
