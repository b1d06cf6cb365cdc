// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the host's real-time thread runs of an instance.

#include "JucePlugInProcess.h"
#include "TransportPosition.h"

#include <algorithm>

void JucePlugInProcess::RenderAudio (float** inputs, float** outputs, std::int32_t numSamples)
{
    {
        const juce::ScopedLock lock (filter->getCallbackLock());
        renderLocked (inputs, outputs, std::max (numSamples, 0));
    }

    if (! midiEvents.isEmpty())
        midiEvents.clear();
}

void JucePlugInProcess::renderLocked (float** inputs, float** outputs, int numSamples)
{
    // The pointers have room for what the processor had when it was set up.
    const int numIn = std::min (filter->getTotalNumInputChannels(), numChannelPointers);
    const int numOut = std::min (filter->getTotalNumOutputChannels(), numChannelPointers);

    if (filter->isSuspended())
    {
        for (int channel = 0; channel < numOut; ++channel)
            juce::FloatVectorOperations::clear (outputs[channel], numSamples);

        return;
    }

    for (int channel = 0; channel < numOut; ++channel)
    {
        channelPointers[channel] = outputs[channel];

        // Hosts may render in place, by the same array or by the same channel.
        if (channel < numIn && inputs != outputs && inputs[channel] != outputs[channel])
            juce::FloatVectorOperations::copy (outputs[channel], inputs[channel], numSamples);
    }

    for (int channel = numOut; channel < numIn; ++channel)
        channelPointers[channel] = inputs[channel];

    juce::AudioBuffer<float> buffer (channelPointers, std::max (numIn, numOut), numSamples);

    if (IsBypassed())
        filter->processBlockBypassed (buffer, midiEvents);
    else
        filter->processBlock (buffer, midiEvents);
}

juce::Optional<juce::AudioPlayHead::PositionInfo> JucePlugInProcess::getPosition() const
{
    return positionFrom (transport.get(), sampleRate, { GetFrameRate(), GetFrameOffset() });
}
