// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the audio thread runs, and the hand-over of the Safe Bass coefficients to it.

#include "WideLoomAudioProcessor.h"

void WideLoomAudioProcessor::processBlock (juce::AudioBuffer<float>& buffer, juce::MidiBuffer&)
{
    followSampleRate();
    followSafeBassCoefficients();
    followGains();

    if (buffer.getNumChannels() < 2)
        return;

    const int numSamples = buffer.getNumSamples();
    const auto settings = readChainSettings (*parameterManager, safeBassCoefficientsValid);
    const TableControls controls { *parameterManager->getParameter (indexOf (ParameterId::stereoWidth)),
                                   *parameterManager->getParameter (indexOf (ParameterId::pan)),
                                   inputGainLinear,
                                   outputGainLinear };
    const auto peaks = signalChain.process (settings,
                                            controls,
                                            safeBassFilter,
                                            buffer.getWritePointer (0),
                                            buffer.getWritePointer (1),
                                            numSamples);

    inputVuVisuals.raise (peaks.input);
    outputVuVisuals.raise (peaks.output);

    for (int channel = 2; channel < juce::jmin (getTotalNumOutputChannels(), buffer.getNumChannels());
         ++channel)
        buffer.clear (channel, 0, numSamples);
}

void WideLoomAudioProcessor::followSampleRate() noexcept
{
    const double rate = getSampleRate();

    if (rate != lastSampleRate.load (std::memory_order_relaxed))
    {
        lastSampleRate.store (rate, std::memory_order_relaxed);
        parameterManager->setSampleRateNeedsToBeUpdatedInEditor (true);
    }
}

void WideLoomAudioProcessor::followSafeBassCoefficients() noexcept
{
    const auto takeLatest = [this]
    {
        if (SafeBassCoefficients latest; safeBassCoefficients.fetch (latest))
        {
            safeBassFilter.adopt (latest.coefficients);
            safeBassFilterSampleRate = latest.sampleRate;
            safeBassCoefficientsValid = true;
        }
    };

    takeLatest();

    // Also the first time, when the filter has no coefficients and their rate is 0.0.
    if (safeBassFilterSampleRate != lastSampleRate.load (std::memory_order_relaxed))
    {
        updateSafeBassFilterCoefficients();
        takeLatest();
    }
}

void WideLoomAudioProcessor::followGains() noexcept
{
    inputGainLinear.store (cachedInputGain.linearFor (valueOf (ParameterId::inputGain)),
                           std::memory_order_relaxed);
    outputGainLinear.store (cachedOutputGain.linearFor (valueOf (ParameterId::outputGain)),
                            std::memory_order_relaxed);
}

float WideLoomAudioProcessor::CachedGain::linearFor (float newNormalised) noexcept
{
    if (newNormalised != normalised)
    {
        normalised = newNormalised;
        linear = linearGain (newNormalised);
    }

    return linear;
}

void WideLoomAudioProcessor::updateSafeBassFilterCoefficients() noexcept
{
    safeBassJob.request (
        [this]
        { calculateSafeBassFilterCoefficients (static_cast<double> (valueOf (ParameterId::safeBassFreq))); });
}

void WideLoomAudioProcessor::calculateSafeBassFilterCoefficients (double normalisedFrequency) noexcept
{
    // Not getSampleRate(), which the host may be setting just now.
    const double sampleRate = lastSampleRate.load (std::memory_order_relaxed);

    if (sampleRate == 0.0)
        return;

    if (const auto made = SafeBassCoefficients::make (sampleRate, normalisedFrequency))
        safeBassCoefficients.publish (*made);
}
