// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "DirectPath.h"

#include "engine/WideLoomAudioProcessor.h"

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
