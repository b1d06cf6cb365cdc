// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Hands blocks, state and parameters to the instance, and to a twin of it where meters are wanted.

#include "HostPath.h"

#include "presets/SessionBlock.h"
#include "refhost/HostControlScale.h"

HostPath::HostPath (bool withMeters)
    : twin (withMeters ? std::make_unique<DirectPath>() : nullptr)
{
}

HostPath::~HostPath() = default;

Problem HostPath::prepare (double sampleRate, int maxBlockFrames)
{
    refhost::HostOffer offer;
    offer.maxQuantum = maxBlockFrames;
    session = std::make_unique<HostSession> (offer);

    if (auto problem = session->open (sampleRate))
        return *problem + "; --path direct does without the plug-in";

    rendered.setSize (2, maxBlockFrames);
    return twin == nullptr ? Problem() : twin->prepare (sampleRate, maxBlockFrames);
}

Problem HostPath::setState (const juce::MemoryBlock& block)
{
    // The plug-in leaves a bad block alone without a word.
    if (auto problem = findSessionBlockFault (block))
        return problem;

    const auto* const bytes = static_cast<const std::byte*> (block.getData());
    const auto result = session->getInstance().setChunk (FIC_CHUNK_JUCE, { bytes, bytes + block.getSize() });

    if (result != ficSuccess)
        return "the effect cannot take its state (result " + std::to_string (result) + ")";

    return twin == nullptr ? Problem() : twin->setState (block);
}

juce::MemoryBlock HostPath::getState()
{
    refhost::HostInstance::Bytes body;
    session->getInstance().getChunk (FIC_CHUNK_JUCE, body);
    return { body.data(), body.size() };
}

void HostPath::setParameter (int index, float normalised)
{
    session->getInstance().setValue (HostSession::controlOfFirstParameter + index,
                                     refhost::toControlValue (normalised));

    if (twin != nullptr)
        twin->setParameter (index, normalised);
}

void HostPath::process (juce::AudioBuffer<float>& block)
{
    const int numFrames = block.getNumSamples();
    session->getInstance().render (
        block.getArrayOfWritePointers(), rendered.getArrayOfWritePointers(), numFrames);

    if (twin != nullptr)
        twin->process (block);

    for (int channel = 0; channel < 2; ++channel)
        block.copyFrom (channel, 0, rendered, channel, 0, numFrames);
}

EffectPath::MeterPeaks HostPath::takeMeterPeaks()
{
    return twin == nullptr ? MeterPeaks() : twin->takeMeterPeaks();
}
