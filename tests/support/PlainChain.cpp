// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The steps of the effect, one sample at a time.

#include "PlainChain.h"

#include <cmath>

namespace
{
void raise (PlainChain::Peaks& peaks, float left, float right)
{
    if (std::fabs (left) > peaks.left)
        peaks.left = std::fabs (left);

    if (std::fabs (right) > peaks.right)
        peaks.right = std::fabs (right);
}
} // namespace

PlainChain::PlainChain()
{
    for (const auto& row : parameterTable)
        values[static_cast<std::size_t> (row.id)] = row.defaultValue;
}

void PlainChain::setParameter (ParameterId id, float value)
{
    values[static_cast<std::size_t> (id)] = value;

    if (id == ParameterId::safeBassFreq)
        makeSafeBassCoefficients();
}

float PlainChain::gainOf (ParameterId id) const
{
    const float exponent = (valueOf (id) * 24.0f + (-12.0f)) / 20.0f;
    return static_cast<float> (std::pow (10.0, static_cast<double> (exponent)));
}

void PlainChain::makeSafeBassCoefficients()
{
    if (sampleRate == 0.0)
        return;

    const double frequency = static_cast<double> (valueOf (ParameterId::safeBassFreq)) * 490.0 + 10.0;
    safeBassFilter.setCoefficients (juce::IIRCoefficients::makeHighPass (sampleRate, frequency));
    coefficientsSampleRate = sampleRate;
    coefficientsValid = true;
}

void PlainChain::process (float* left, float* right, int numSamples)
{
    const Image image { valueOf (ParameterId::stereoWidth), valueOf (ParameterId::pan) };
    process (left, right, numSamples, [image] (int) { return image; });
}

void PlainChain::process (float* left, float* right, int numSamples, const ImageAt& imageAt)
{
    if (! coefficientsValid || coefficientsSampleRate != sampleRate)
        makeSafeBassCoefficients();

    inputGainLinear = gainOf (ParameterId::inputGain);
    outputGainLinear = gainOf (ParameterId::outputGain);

    for (int i = 0; i < numSamples; ++i)
        processSample (left[i], right[i], i, imageAt);
}

void PlainChain::processSample (float& leftSample, float& rightSample, int sample, const ImageAt& imageAt)
{
    using enum ParameterId;
    const bool bypassed = isOn (bypass);
    const bool allMuted = isOn (muteAll);
    const bool safeBassActive = coefficientsValid && isOn (safeBass) && valueOf (safeBassFreq) > 0.0f;
    float L = leftSample;
    float R = rightSample;

    // Silence is skipped.
    if (L == 0.0f && R == 0.0f)
        return;

    // Input gain
    if (! bypassed)
    {
        L = L * inputGainLinear;
        R = R * inputGainLinear;
    }

    // Channel stage. Muted samples are zeros from here on, whatever the image.
    Image image { 0.5f, 0.5f };

    if (! allMuted && ! bypassed)
    {
        image = imageAt (sample);

        if (isOn (swapLR))
            std::swap (L, R);

        if (isOn (phaseFlip))
        {
            L = -L;
            R = -R;
        }

        if (isOn (mono))
        {
            const float sum = (L + R) * 0.5f;
            L = sum;
            R = sum;
        }
    }

    raise (inputPeaks, L, R);

    if (allMuted && ! bypassed)
        L = R = 0.0f;

    if (! bypassed)
    {
        // Width and pan position
        float w = image.stereoWidth * 2.0f;
        const float p = image.pan * 2.0f - 1.0f;
        const float a = std::fabs (p);

        // Mid/side width
        float mid = (R + L) * 0.5f;
        float side = (R - L) * 0.5f;

        if (valueOf (panMode) == 0.0f)
            w = static_cast<float> (static_cast<double> (w) * (1.0 - static_cast<double> (a)));

        side = side * w;

        if (valueOf (msMode) == 0.1f)
        {
            float k = 1.0f;

            if (w > 1.0f)
                k = 1.0f / w;
            else if (w < 1.0f)
                k = 1.5f - 0.5f * w;

            mid = mid * k;
        }

        R = mid + side;
        L = mid - side;

        // Pan curve
        const float c = 1.0f - a;
        float g = 0.0f;

        if (valueOf (panCurve) == 0.0f)
            g = c;
        else if (valueOf (panCurve) == 0.1f)
            g = std::sqrt (c);
        else
            g = std::sin (c * 3.1415927f * 0.25f);

        if (p < 0.0f)
            R = R * g;
        if (p > 0.0f)
            L = L * g;

        // Pan law
        float h = 1.0f;

        if (valueOf (panLaw) == 0.1f)
            h = static_cast<float> (static_cast<double> (a) * 0.5 + 1.0);
        else if (valueOf (panLaw) == 0.2f)
            h = a + 1.0f;

        if (p < 0.0f)
            L = L * h;
        if (p > 0.0f)
            R = R * h;

        // Mid/side stage
        if (isOn (muteMid) || isOn (muteSide) || safeBassActive)
        {
            side = isOn (muteSide) ? 0.0f : (R - L) * 0.5f;
            mid = isOn (muteMid) ? 0.0f : (R + L) * 0.5f;

            if (! isOn (muteSide) && safeBassActive)
                side = safeBassFilter.processSingleSampleRaw (side);

            R = mid + side;
            L = mid - side;

            if (isOn (muteMid) && isOn (phaseAlignSide))
                L = -L;
        }

        // Output gain
        L = L * outputGainLinear;
        R = R * outputGainLinear;
    }

    raise (outputPeaks, L, R);
    leftSample = L;
    rightSample = R;
}
