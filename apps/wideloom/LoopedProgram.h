// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// A piece of music that goes round and round through the effect.

#pragma once

#include <juce_audio_processors/juce_audio_processors.h>

#include <atomic>

/** Plays a loop through a processor at whatever rate the output wants. Stopped, the processor hears silence,
   so that its meters fall and its controls still live. */
class LoopedProgram : public juce::AudioSource
{
public:
    /** @param processor   not owned; must outlive this object
        @param music       stereo; empty for silence
        @param musicRate   Hz, above 0 */
    LoopedProgram (juce::AudioProcessor& processor, juce::AudioBuffer<float> music, double musicRate);

    /** [any] */
    void setRunning (bool shouldRun) noexcept { running.store (shouldRun, std::memory_order_relaxed); }
    bool isRunning() const noexcept { return running.load (std::memory_order_relaxed); }

    /** [message] Prepares the processor too. */
    void prepareToPlay (int samplesPerBlock, double sampleRate) override;
    void releaseResources() override;

    /** [audio] Any number of channels: the first two get the effect's output, the others silence. */
    void getNextAudioBlock (const juce::AudioSourceChannelInfo& info) override;

private:
    /** The music from its start to its end, and again. */
    class Loop : public juce::AudioSource
    {
    public:
        explicit Loop (juce::AudioBuffer<float> musicToPlay)
            : music (std::move (musicToPlay))
        {
        }

        void prepareToPlay (int, double) override {}
        void releaseResources() override {}
        void getNextAudioBlock (const juce::AudioSourceChannelInfo& info) override;

    private:
        juce::AudioBuffer<float> music;
        int position = 0; ///< samples from the start
    };

    void processChunk (int numSamples);

    juce::AudioProcessor& processor;
    const double musicRate; ///< Hz
    Loop loop;
    juce::ResamplingAudioSource resampler;
    juce::AudioBuffer<float> chunk;
    juce::MidiBuffer noMidi;
    std::atomic<bool> running { true }; ///< the message thread writes, the audio thread reads

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (LoopedProgram)
};
