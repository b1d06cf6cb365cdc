// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The running texts of the info screen.

#pragma once

#include <juce_audio_processors/juce_audio_processors.h>

/** What the info screen says about the format in which the plug-in runs. */
struct PluginFormatTexts
{
    juce::String badge;       ///< such as "VST 32bit"; empty where the format is not known
    juce::String description; ///< one line with its line end; empty where the format is not known
};

/** [any] The texts for an AudioProcessor's wrapper type. */
PluginFormatTexts pluginFormatTextsFor (juce::AudioProcessor::WrapperType type);

/** [any] The name and version that the program shows, such as "WideLoom v1.1". */
juce::String versionLineText();

/** [any] Version, addresses and credits, one per line. */
juce::String creditsTextFor (const PluginFormatTexts& format);

/** [any] Rights notice, format and build date, one per line. */
juce::String legalTextFor (const PluginFormatTexts& format);
