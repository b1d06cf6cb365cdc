// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Tells the formats apart by their first bytes, and puts a reader on top of the bytes.

#include "AudioInput.h"

#include "AiffHeader.h"
#include "AudioFileChecks.h"
#include "SampleDataStream.h"
#include "WavHeader.h"

#include <array>
#include <cstring>
#include <utility>

namespace
{
constexpr std::size_t bytesThatTell = 12;
constexpr double leftJustifiedFullScale = 2147483648.0;

Problem containerOf (const ByteSource& bytes, AudioContainer& container)
{
    std::array<unsigned char, bytesThatTell> start {};
    const auto got = bytes.read (0, start.data(), start.size());

    if (! beginsLikeAudio (start.data(), got))
        return got == 0 ? "it is empty; a WAV, AIFF or FLAC file is needed"
                        : "this is no audio file; WAV, AIFF or FLAC is needed";

    container = start[0] == 'R'   ? AudioContainer::wav
                : start[0] == 'F' ? AudioContainer::aiff
                                  : AudioContainer::flac;
    return {};
}
} // namespace

std::unique_ptr<AudioInput> AudioInput::open (const std::string& path, Problem& problem)
{
    std::unique_ptr<AudioInput> input (new AudioInput);
    problem.reset();
    input->name = inputName (path);
    input->bytes = ByteSource::open (path, problem);

    if (! problem)
        problem = input->restart();

    return problem ? nullptr : std::move (input);
}

Problem AudioInput::restart()
{
    reader.reset();
    const auto problem = createReader();
    return problem ? Problem (name + ": " + *problem) : Problem();
}

Problem AudioInput::createReader()
{
    AudioContainer container {};
    PcmLayout layout;
    auto problem = containerOf (*bytes, container);

    if (problem)
        return problem;

    std::unique_ptr<SampleDataStream> source;

    if (container == AudioContainer::flac)
    {
        source = std::make_unique<SampleDataStream> (*bytes);
        problem = findFlacDamage (*source);
        source->setPosition (0);
    }
    else
    {
        problem = container == AudioContainer::wav ? readWavHeader (*bytes, layout)
                                                   : readAiffHeader (*bytes, layout);

        if (! problem)
            source = std::make_unique<SampleDataStream> (*bytes, container, layout);
    }

    if (problem)
        return problem;

    stream = source.get();
    reader.reset (makeAudioFormat (container)->createReaderFor (source.release(), true));

    if (reader == nullptr)
        return "its header is damaged; copy or export it again";

    return checkSamples (getNumFileChannels(), getSampleRate(), getSampleFormat());
}

SampleFormat AudioInput::getSampleFormat() const noexcept
{
    return { static_cast<int> (reader->bitsPerSample), reader->usesFloatingPointData };
}

bool AudioInput::read (juce::AudioBuffer<float>& destination, juce::int64 firstFrame, int numFrames)
{
    if (numFrames > scratchFrames)
    {
        scratch.malloc (2 * static_cast<size_t> (numFrames));
        scratchFrames = numFrames;
    }

    std::array<int*, 2> channels { scratch.get(), scratch.get() + scratchFrames };

    if (! reader->read (channels.data(), getNumFileChannels(), firstFrame, numFrames, false)
        || stream->hasFailed())
        return false;

    for (int channel = 0; channel < 2; ++channel)
    {
        const int* source = channels[static_cast<size_t> (getNumFileChannels() > 1 ? channel : 0)];
        auto* const samples = destination.getWritePointer (channel);

        if (reader->usesFloatingPointData)
            std::memcpy (samples, source, static_cast<size_t> (numFrames) * sizeof (float));
        else
            for (int i = 0; i < numFrames; ++i)
                samples[i] = static_cast<float> (source[i] / leftJustifiedFullScale);
    }

    return true;
}
