// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The table of file extensions, and what each container can hold.

#include "AudioFileKind.h"

#include "NumberText.h"

#include <algorithm>
#include <string>

namespace
{
struct ExtensionRow
{
    const char* extension;
    AudioContainer container;
};

constexpr ExtensionRow extensionTable[] = { { "wav", AudioContainer::wav },
                                            { "wave", AudioContainer::wav },
                                            { "aif", AudioContainer::aiff },
                                            { "aiff", AudioContainer::aiff },
                                            { "flac", AudioContainer::flac } };
constexpr int floatBits = 32;
constexpr int deepestIntegerBits = 24;
constexpr int shallowestFlacBits = 16;
} // namespace

std::optional<AudioContainer> containerForFileName (std::string_view fileName)
{
    const auto dot = fileName.rfind ('.');

    if (dot == std::string_view::npos)
        return {};

    std::string extension (fileName.substr (dot + 1));
    std::transform (extension.begin(), extension.end(), extension.begin(), toLower);

    for (const auto& row : extensionTable)
        if (extension == row.extension)
            return row.container;

    return {};
}

juce::String knownAudioExtensions()
{
    juce::StringArray names;

    for (const auto& row : extensionTable)
        names.add ("." + juce::String (row.extension));

    return names.joinIntoString (", ");
}

SampleFormat nearestSampleFormat (AudioContainer container, SampleFormat wanted)
{
    const bool isDeep = wanted.isFloat || wanted.bits > deepestIntegerBits;

    if (isDeep)
        return container == AudioContainer::wav ? SampleFormat { floatBits, true }
                                                : SampleFormat { deepestIntegerBits, false };

    const int shallowest = container == AudioContainer::flac ? shallowestFlacBits : 8;
    const int wholeBytes = (wanted.bits + 7) / 8 * 8;
    return { juce::jmax (shallowest, wholeBytes), false };
}

juce::String describe (SampleFormat format)
{
    return juce::String (format.bits) + (format.isFloat ? "-bit float" : "-bit");
}

std::unique_ptr<juce::AudioFormat> makeAudioFormat (AudioContainer container)
{
    switch (container)
    {
        case AudioContainer::aiff:
            return std::make_unique<juce::AiffAudioFormat>();
        case AudioContainer::flac:
            return std::make_unique<juce::FlacAudioFormat>();
        case AudioContainer::wav:
            break;
    }

    return std::make_unique<juce::WavAudioFormat>();
}
