// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Dithers, rounds and hands over to the writer of the format.

#include "AudioOutput.h"

#include "DescriptorOutputStream.h"

#include <cstring>

namespace
{
constexpr int mostDitheredBits = 16;
} // namespace

AudioOutput::AudioOutput (std::unique_ptr<TargetFile> fileToWrite,
                          const OutputFormat& formatToWrite,
                          bool withDither)
    : file (std::move (fileToWrite)),
      format (formatToWrite),
      rounding (formatToWrite.samples.bits)
{
    if (withDither && format.samples.bits <= mostDitheredBits)
        dither.emplace (format.samples.bits);
}

std::unique_ptr<AudioOutput> AudioOutput::create (const std::string& path,
                                                  const OutputFormat& format,
                                                  Options options,
                                                  Problem& problem)
{
    auto file = TargetFile::create (path, options.replace, problem);

    if (problem)
        return nullptr;

    std::unique_ptr<AudioOutput> output (new AudioOutput (std::move (file), format, options.dither));
    auto stream =
        std::make_unique<DescriptorOutputStream> (output->file->getDescriptor(), output->streamFailure);
    output->writer.reset (
        makeAudioFormat (format.container)
            ->createWriterFor (stream.get(), format.sampleRate, 2, format.samples.bits, {}, 0));

    if (output->writer == nullptr)
    {
        problem = output->file->getName() + " cannot be written: its format has no room for "
                  + std::to_string (static_cast<int> (format.sampleRate)) + " Hz; a .wav has";
        return nullptr;
    }

    juce::ignoreUnused (stream.release()); // the writer's from now on
    return output;
}

Problem AudioOutput::write (const float* left, const float* right, int numFrames)
{
    if (format.samples.isFloat)
        return writeRaw (
            reinterpret_cast<const int*> (left), reinterpret_cast<const int*> (right), numFrames);

    integers.clear();

    if (dither)
    {
        dither->process (left, right, numFrames, integers);
    }
    else
    {
        for (int i = 0; i < numFrames; ++i)
        {
            integers.left.push_back (rounding.convert (left[i]));
            integers.right.push_back (rounding.convert (right[i]));
        }
    }

    return writeIntegers();
}

Problem AudioOutput::writeIntegers()
{
    return writeRaw (integers.left.data(), integers.right.data(), static_cast<int> (integers.left.size()));
}

Problem AudioOutput::writeRaw (const int* left, const int* right, int numFrames)
{
    const int* channels[] = { left, right, nullptr };

    if (numFrames > 0 && ! writer->write (channels, numFrames))
        return failure();

    return {};
}

Problem AudioOutput::finish()
{
    if (dither)
    {
        integers.clear();
        dither->finish (integers);

        if (auto problem = writeIntegers())
            return problem;
    }

    writer.reset();
    return streamFailure != 0 ? failure() : file->commit();
}

Problem AudioOutput::failure() const
{
    return file->getName()
           + (streamFailure != 0 ? " cannot be written: " + std::string (std::strerror (streamFailure))
                                 : " cannot be written: its format can hold no more; a .wav can");
}

std::int64_t AudioOutput::getNumClipped() const noexcept
{
    return dither ? dither->getNumClipped() : rounding.getNumClipped();
}
