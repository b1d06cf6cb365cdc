// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// A piece of music that goes round and round through the effect.

#pragma once

#include "EffectPath.h"

#include <juce_audio_devices/juce_audio_devices.h>

#include <atomic>

/** Plays a loop through the effect, at the rate of the music whatever rate the output wants. Stopped, the
   effect hears silence, so that its meters fall and its controls still live. */
class LoopedProgram : public juce::AudioSource
{
public:
    /** The longest block that the effect gets; it has to be prepared for that and for the rate of the music.
     */
    static constexpr int maxBlockFrames = 512;

    /** @param effect      not owned; must outlive this object
        @param music       stereo; empty for silence
        @param musicRate   Hz, above 0 */
    LoopedProgram (EffectPath& effect, juce::AudioBuffer<float> music, double musicRate);

    /** [any] */
    void setRunning (bool shouldRun) noexcept { loop.running.store (shouldRun, std::memory_order_relaxed); }
    bool isRunning() const noexcept { return loop.running.load (std::memory_order_relaxed); }

    /** [message] */
    void prepareToPlay (int samplesPerBlock, double sampleRate) override;
    void releaseResources() override;

    /** [audio] Any number of channels: the first two get the effect's output, the others silence. */
    void getNextAudioBlock (const juce::AudioSourceChannelInfo& info) override;

private:
    /** The music from its start to its end, and again, as the effect lets it sound. */
    class Loop : public juce::AudioSource
    {
    public:
        Loop (EffectPath& effectToPlay, juce::AudioBuffer<float> musicToPlay)
            : effect (effectToPlay),
              music (std::move (musicToPlay))
        {
        }

        void prepareToPlay (int, double) override {}
        void releaseResources() override {}
        void getNextAudioBlock (const juce::AudioSourceChannelInfo& info) override;

        std::atomic<bool> running { true }; ///< the message thread writes, the audio thread reads

    private:
        void readMusic (juce::AudioBuffer<float>& block);

        EffectPath& effect;
        juce::AudioBuffer<float> music;
        int position = 0; ///< samples from the start
    };

    const double musicRate; ///< Hz
    Loop loop;
    juce::ResamplingAudioSource resampler;
    bool isPrepared = false;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (LoopedProgram)
};
