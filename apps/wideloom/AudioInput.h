// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Reads a mono or stereo audio file, or standard input, as stereo floats.

#pragma once

#include "AudioFileKind.h"
#include "ByteSource.h"

#include <juce_audio_formats/juce_audio_formats.h>

#include <memory>
#include <string>

class SampleDataStream;

/** What "-" stands for in place of a file name. */
inline const char* const standardStreamName = "-";

/** WAV, AIFF and FLAC, told apart by what stands in the file and not by its name. */
class AudioInput
{
public:
    /** Opens a file, or standard input for "-". None on failure; `problem` then says what is wrong with which
       file and what would be right. A file that ends before its header says so is refused. */
    static std::unique_ptr<AudioInput> open (const std::string& path, Problem& problem);

    /** How messages name it: the path in quotes, or "standard input". */
    const std::string& getName() const noexcept { return name; }
    double getSampleRate() const noexcept { return reader->sampleRate; } ///< Hz
    juce::int64 getNumFrames() const noexcept { return reader->lengthInSamples; }
    int getNumFileChannels() const noexcept { return static_cast<int> (reader->numChannels); } ///< 1 or 2
    SampleFormat getSampleFormat() const noexcept;

    /** Reads `numFrames` frames from `firstFrame` on into the first samples of channels 0 and 1. Integers
       come as exact multiples of their step, -1..1; a mono file comes as left = right.
        @returns false if the file could not be read that far */
    bool read (juce::AudioBuffer<float>& destination, juce::int64 firstFrame, int numFrames);

    /** Gets ready to be read from the first frame once more. What came through a pipe can be had again only
        this way. */
    Problem restart();

private:
    AudioInput() = default;
    Problem createReader();

    std::string name;
    std::unique_ptr<ByteSource> bytes;
    SampleDataStream* stream = nullptr; ///< owned by the reader
    std::unique_ptr<juce::AudioFormatReader> reader;
    juce::HeapBlock<int> scratch;
    int scratchFrames = 0;
};
