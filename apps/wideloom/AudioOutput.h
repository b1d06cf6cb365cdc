// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// One audio file or stream to write to, whatever its format.

#pragma once

#include "AudioFileKind.h"
#include "Command.h"
#include "GridAwareDither.h"
#include "TargetFile.h"

#include <juce_audio_formats/juce_audio_formats.h>

#include <memory>
#include <optional>

/** What form an output takes. */
struct OutputFormat
{
    AudioContainer container = AudioContainer::wav;
    double sampleRate = 0.0; ///< Hz
    SampleFormat samples;    ///< one that the container can hold
};

/** Converts to integers itself and has JUCE write them: JUCE's own conversion moves loud samples by a step,
   so that not even unchanged audio would come out as it went in. */
class AudioOutput
{
public:
    struct Options
    {
        bool replace = false; ///< what is there already
        bool dither = true;   ///< for 16 bits and fewer
    };

    /** Null, and a problem that names the path, when it cannot be written to. Takes "-" for standard output.
     */
    static std::unique_ptr<AudioOutput> create (const std::string& path,
                                                const OutputFormat& format,
                                                Options options,
                                                Problem& problem);

    /** Appends frames, -1..1 nominal. */
    Problem write (const float* left, const float* right, int numFrames);

    /** Completes the file and puts it in its place. Without it nothing stays behind. */
    Problem finish();

    /** Samples beyond full scale or not a number, of an output of integers. */
    std::int64_t getNumClipped() const noexcept;

private:
    AudioOutput (std::unique_ptr<TargetFile> fileToWrite, const OutputFormat& formatToWrite, bool withDither);
    Problem writeIntegers();
    Problem writeRaw (const int* left, const int* right, int numFrames);
    Problem failure() const;

    std::unique_ptr<TargetFile> file;
    OutputFormat format;
    int streamFailure = 0; ///< the system's error number
    std::unique_ptr<juce::AudioFormatWriter> writer;
    std::optional<GridAwareDither> dither;
    IntegerRounding rounding;
    IntegerBlock integers;
};
