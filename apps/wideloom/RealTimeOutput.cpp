// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Opens the default audio device, or has a timer draw the samples in its place.

#include "RealTimeOutput.h"

namespace
{
constexpr int numOutputChannels = 2;

constexpr double clockRate = 48000.0; // Hz
constexpr int clockIntervalMs = 10;
constexpr int clockBlockSize = 480; // samples

/** After a pause longer than this, a suspended machine's say, the clock goes on instead of catching up. */
constexpr double longestCatchUpSeconds = 0.5;
} // namespace

/** Draws from the source at the pace of the real time. */
class RealTimeOutput::SilentClock : private juce::HighResolutionTimer
{
public:
    explicit SilentClock (juce::AudioSource& sourceToDrawFrom)
        : source (sourceToDrawFrom),
          block (numOutputChannels, clockBlockSize)
    {
        source.prepareToPlay (clockBlockSize, clockRate);
        lastTime = now();
        startTimer (clockIntervalMs);
    }

    ~SilentClock() override
    {
        stopTimer();
        source.releaseResources();
    }

private:
    static double now() { return juce::Time::getMillisecondCounterHiRes() * 0.001; }

    void hiResTimerCallback() override
    {
        const double time = now();
        samplesDue += juce::jmin (time - lastTime, longestCatchUpSeconds) * clockRate;
        lastTime = time;

        for (; samplesDue >= clockBlockSize; samplesDue -= clockBlockSize)
            source.getNextAudioBlock (juce::AudioSourceChannelInfo (block));
    }

    juce::AudioSource& source;
    juce::AudioBuffer<float> block;
    double lastTime = 0.0; ///< seconds
    double samplesDue = 0.0;
};

RealTimeOutput::RealTimeOutput (juce::AudioSource& source)
{
    devices.initialiseWithDefaultDevices (0, numOutputChannels);

    if (devices.getCurrentAudioDevice() == nullptr)
    {
        clock = std::make_unique<SilentClock> (source);
        return;
    }

    player.setSource (&source);
    devices.addAudioCallback (&player);
}

RealTimeOutput::~RealTimeOutput()
{
    devices.removeAudioCallback (&player);
    player.setSource (nullptr);
}

juce::String RealTimeOutput::getDeviceName() const
{
    auto* device = devices.getCurrentAudioDevice();
    return device != nullptr ? device->getName() : juce::String();
}
