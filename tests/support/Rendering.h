// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Short ways to set up the processor and to send signals through it.

#pragma once

#include "TestSignals.h"

#include <engine/WideLoomAudioProcessor.h>

#include <array>

/** [message] What a host does before it renders. */
inline void prepare (WideLoomAudioProcessor& processor, double sampleRate, int numOutputs = 2)
{
    constexpr int announcedBlockSize = 512;
    processor.setPlayConfigDetails (2, numOutputs, sampleRate, announcedBlockSize);
}

inline void set (WideLoomAudioProcessor& processor, ParameterId id, float value)
{
    processor.setParameter (indexOf (id), value);
}

/** One block, in place. Does not allocate. */
inline void render (WideLoomAudioProcessor& processor, StereoSignal& signal)
{
    // An empty vector may give no pointer, which an AudioBuffer does not take.
    std::array nothing { 0.0f };
    std::array channels { signal.left.empty() ? nothing.data() : signal.left.data(),
                          signal.right.empty() ? nothing.data() : signal.right.data() };
    juce::AudioBuffer<float> buffer (channels.data(), static_cast<int> (channels.size()), signal.size());
    juce::MidiBuffer midi;
    processor.processBlock (buffer, midi);
}

/** `length` samples of the same value on each channel. */
inline StereoSignal constantSignal (float left, float right, int length)
{
    const auto size = static_cast<std::size_t> (length);
    return { std::vector (size, left), std::vector (size, right) };
}
