// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Puts version, credits and legal lines together with what belongs to the plug-in's format.

#include "InfoTexts.h"

#include "engine/NativeWrapperType.h"

#include <array>

namespace
{
struct FormatRow
{
    juce::AudioProcessor::WrapperType type;
    const char* badge;
    const char* description;
};

constexpr FormatRow vstTexts { juce::AudioProcessor::wrapperType_VST,
                               "VST",
                               "VST Plugin Technology by Steinberg\n" };
constexpr FormatRow audioUnitTexts { juce::AudioProcessor::wrapperType_AudioUnit,
                                     "AU",
                                     "Audio Unit Plugin\n" };

constexpr auto formatTable = std::to_array<FormatRow> ({
    vstTexts,
    { juce::AudioProcessor::wrapperType_VST3, vstTexts.badge, vstTexts.description },
    audioUnitTexts,
    { juce::AudioProcessor::wrapperType_AudioUnitv3, audioUnitTexts.badge, audioUnitTexts.description },
    { nativeHostWrapperType, "RTAS", "RTAS Plugin for Pro Tools\n" },
    { juce::AudioProcessor::wrapperType_AAX, "AAX", "AAX Plugin for Pro Tools\n" },
});

/** The badge's end, whatever the build: hosts' users know the badge in this form. */
constexpr auto badgeSuffix = " 32bit";
} // namespace

PluginFormatTexts pluginFormatTextsFor (juce::AudioProcessor::WrapperType type)
{
    for (const auto& row : formatTable)
        if (row.type == type)
            return { juce::String (row.badge) + badgeSuffix, row.description };

    return {};
}

juce::String versionLineText()
{
    return "WideLoom v" WIDELOOM_VERSION;
}

juce::String creditsTextFor (const PluginFormatTexts& format)
{
    return versionLineText() + (format.badge.isNotEmpty() ? " (" + format.badge + ")" : juce::String())
           + "\n"
             "\n"
             "www.quorvexdsp.example\n"
             "social.example/quorvexdsp\n"
             "social.example/dorianvell\n"
             "\n"
             "Concept: Dorian Vell / Ilse Marrow\n"
             "Graphical User Interface: Ilse Marrow\n"
             "Programming: Ilse Marrow";
}

juce::String legalTextFor (const PluginFormatTexts& format)
{
    return "Copyright QUORVEXDSP, free under the GNU GPL 3 or later\n" + format.description
           + "( built on: " __DATE__ " )";
}
