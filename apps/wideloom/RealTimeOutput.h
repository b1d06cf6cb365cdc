// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Where a running source is heard, or, on a machine without sound, merely drawn from in real time.

#pragma once

#include <juce_audio_devices/juce_audio_devices.h>

#include <memory>

/** [message] Plays a source on the default audio device while it lives. Where there is none, a clock takes as
   many samples as a device would, so that meters still move. */
class RealTimeOutput
{
public:
    /** The source is not owned; it must outlive this object. */
    explicit RealTimeOutput (juce::AudioSource& source);
    ~RealTimeOutput();

    /** The device that plays, empty if none does. */
    juce::String getDeviceName() const;

private:
    class SilentClock;

    juce::AudioDeviceManager devices;
    juce::AudioSourcePlayer player;
    std::unique_ptr<SilentClock> clock;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (RealTimeOutput)
};
