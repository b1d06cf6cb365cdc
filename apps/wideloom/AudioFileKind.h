// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The kinds of audio file that wideloom reads and writes.

#pragma once

#include <juce_audio_formats/juce_audio_formats.h>

#include <memory>
#include <optional>
#include <string_view>

enum class AudioContainer
{
    wav,
    aiff,
    flac
};

/** How a file holds one sample. */
struct SampleFormat
{
    int bits = 16;
    bool isFloat = false;

    bool operator== (const SampleFormat&) const = default;
};

/** The container that a file name's extension stands for; none for an extension that is none of ours. */
std::optional<AudioContainer> containerForFileName (std::string_view fileName);

/** The extensions that containerForFileName() knows, as a sentence wants them. */
juce::String knownAudioExtensions();

/** The sample format that JUCE can write into `container` and that comes nearest to `wanted` without losing
   more than it must: 32-bit integers become floats in WAV; floats and everything deeper become 24 bits in
   AIFF and FLAC.
 */
SampleFormat nearestSampleFormat (AudioContainer container, SampleFormat wanted);

/** "24-bit" or "32-bit float". */
juce::String describe (SampleFormat format);

std::unique_ptr<juce::AudioFormat> makeAudioFormat (AudioContainer container);
