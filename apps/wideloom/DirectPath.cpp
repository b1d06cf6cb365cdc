// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Prepares the processor, passes parameters and blocks on to it, and reads its meters.

#include "DirectPath.h"

#include "engine/WideLoomAudioProcessor.h"
#include "presets/SessionBlock.h"
#include "refhost/HostControlScale.h"

Problem findSessionBlockFault (const juce::MemoryBlock& block)
{
    const auto parsed = readSessionBlock (block.getData(), static_cast<int> (block.getSize()));

    if (parsed.element == nullptr)
        return "the effect cannot take its state: " + parsed.error.toStdString();

    return {};
}

DirectPath::DirectPath()
    : processor (std::make_unique<WideLoomAudioProcessor>())
{
}

DirectPath::~DirectPath() = default;

Problem DirectPath::prepare (double sampleRate, int maxBlockFrames)
{
    processor->setPlayConfigDetails (2, 2, sampleRate, maxBlockFrames);
    processor->prepareToPlay (sampleRate, maxBlockFrames);
    return {};
}

Problem DirectPath::setState (const juce::MemoryBlock& block)
{
    // The processor leaves a bad block alone without a word.
    if (auto problem = findSessionBlockFault (block))
        return problem;

    processor->setStateInformation (block.getData(), static_cast<int> (block.getSize()));
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
    processor->setParameter (index, refhost::fromControlValue (refhost::toControlValue (normalised)));
}

void DirectPath::process (juce::AudioBuffer<float>& block)
{
    const juce::ScopedLock lock (processor->getCallbackLock());
    processor->processBlock (block, noMidi);
}

juce::AudioProcessor& DirectPath::getProcessor() noexcept
{
    return *processor;
}

EffectPath::MeterPeaks DirectPath::takeMeterPeaks()
{
    return { processor->getInputVuMeterVisuals(), processor->getOutputVuMeterVisuals() };
}
