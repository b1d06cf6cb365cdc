// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Writes the demo's music into a 24-bit WAV file. usage: wideloom_demo_audio OUT.wav

#include "DemoMusic.h"

#include <juce_audio_formats/juce_audio_formats.h>

#include <iostream>
#include <memory>

int main (int argc, char** argv)
{
    if (argc != 2)
    {
        std::cerr << "usage: wideloom_demo_audio OUT.wav\n";
        return 2;
    }

    const auto file =
        juce::File::getCurrentWorkingDirectory().getChildFile (juce::String::fromUTF8 (argv[1]));
    juce::TemporaryFile temporary (file);
    auto stream = std::make_unique<juce::FileOutputStream> (temporary.getFile());

    if (stream->openedOk())
    {
        const auto music = makeDemoMusic();
        constexpr int bits = 24;
        const std::unique_ptr<juce::AudioFormatWriter> writer (juce::WavAudioFormat().createWriterFor (
            stream.get(), demoSampleRate, static_cast<unsigned int> (music.getNumChannels()), bits, {}, 0));

        if (writer != nullptr)
        {
            [[maybe_unused]] const auto* const ownedByWriter = stream.release();

            if (writer->writeFromAudioSampleBuffer (music, 0, music.getNumSamples()) && writer->flush()
                && temporary.overwriteTargetFileWithTemporary())
                return 0;
        }
    }

    std::cerr << "wideloom_demo_audio: cannot write " << file.getFullPathName() << "\n";
    return 1;
}
