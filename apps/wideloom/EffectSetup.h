// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The preset and the settings that a command line asks for, as a user would make them in the editor.

#pragma once

#include "Command.h"
#include "ParameterText.h"

#include <juce_core/juce_core.h>

#include <string>
#include <vector>

struct EffectSetup
{
    std::string preset;                ///< of the factory or of the user; empty leaves the effect as it is
    std::vector<std::string> settings; ///< "NAME=TEXT" each
};

/** Adds "--preset" and "--set". The setup must outlive the parsing. */
void addEffectSetupOptions (CLI::App& command, EffectSetup& setup);

/** What a setup comes to. */
struct EffectStart
{
    juce::MemoryBlock state;                ///< a session block to take over first; empty without a preset
    std::vector<ParameterSetting> settings; ///< then these, in their order
};

/** Reads the settings. A problem is one of the command line, not of a file. */
Problem readEffectSettings (const EffectSetup& setup, EffectStart& start);

/** [message] Looks the preset up. */
Problem loadEffectPreset (const EffectSetup& setup, EffectStart& start);
