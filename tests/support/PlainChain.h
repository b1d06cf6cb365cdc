// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The effect's audio side written as plainly as possible: the reference that the running chain is held
// against.

#pragma once

#include <engine/ParameterTable.h>

#include <juce_audio_basics/juce_audio_basics.h>

#include <array>
#include <functional>
#include <utility>

/** Sample by sample, one step after the other, everything worked out anew for every sample. Shares nothing
    with the running chain but the parameter table's order and default values. */
class PlainChain
{
public:
    /** StereoWidth and Pan, normalised. */
    struct Image
    {
        float stereoWidth, pan;
    };

    /** Gives the image for a sample by its index in the block. Asked only for samples that use it. */
    using ImageAt = std::function<Image (int sample)>;

    struct Peaks
    {
        float left = 0.0f;
        float right = 0.0f;
    };

    PlainChain();

    void setSampleRate (double newRate) { sampleRate = newRate; }
    void setParameter (ParameterId id, float value);
    float valueOf (ParameterId id) const { return values[static_cast<std::size_t> (id)]; }

    /** In place, with StereoWidth and Pan from the table. */
    void process (float* left, float* right, int numSamples);

    /** In place, with StereoWidth and Pan from `imageAt`. */
    void process (float* left, float* right, int numSamples, const ImageAt& imageAt);

    Peaks takeInputPeaks() { return std::exchange (inputPeaks, {}); }
    Peaks takeOutputPeaks() { return std::exchange (outputPeaks, {}); }

private:
    bool isOn (ParameterId id) const { return valueOf (id) > 0.5f; }
    float gainOf (ParameterId id) const;
    void makeSafeBassCoefficients();
    void processSample (float& leftSample, float& rightSample, int sample, const ImageAt& imageAt);

    std::array<float, parameterTable.size()> values {};
    double sampleRate = 0.0;
    double coefficientsSampleRate = 0.0;
    juce::IIRFilter safeBassFilter;
    bool coefficientsValid = false;
    float inputGainLinear = 1.0f;
    float outputGainLinear = 1.0f;
    Peaks inputPeaks, outputPeaks;
};
