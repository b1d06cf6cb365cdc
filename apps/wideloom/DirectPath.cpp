// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Prepares the processor, passes parameters and blocks on to it, and reads its meters.

#include "DirectPath.h"

#include "engine/WideLoomAudioProcessor.h"
#include "presets/SessionBlock.h"

DirectPath::DirectPath()
    : processor (std::make_unique<WideLoomAudioProcessor>())
{
}

DirectPath::~DirectPath() = default;

void DirectPath::prepare (double sampleRate, int maxBlockFrames)
{
    processor->setPlayConfigDetails (2, 2, sampleRate, maxBlockFrames);
    processor->prepareToPlay (sampleRate, maxBlockFrames);
}

Problem DirectPath::setState (const juce::MemoryBlock& block)
{
    const auto size = static_cast<int> (block.getSize());

    // The processor leaves a bad block alone without a word.
    if (const auto parsed = readSessionBlock (block.getData(), size); parsed.element == nullptr)
        return "the effect cannot take its state: " + parsed.error.toStdString();

    processor->setStateInformation (block.getData(), size);
    return {};
}

juce::MemoryBlock DirectPath::getState()
{
    juce::MemoryBlock block;
    processor->getStateInformation (block);
    return block;
}

void DirectPath::setParameter (int index, float normalised)
{
    processor->setParameter (index, normalised);
}

void DirectPath::process (juce::AudioBuffer<float>& block)
{
    processor->processBlock (block, noMidi);
}

EffectPath::MeterPeaks DirectPath::takeMeterPeaks()
{
    return { processor->getInputVuMeterVisuals(), processor->getOutputVuMeterVisuals() };
}
