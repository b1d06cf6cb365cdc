// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Turns values of the table into the switches and choices of a block.

#include "ChainSettings.h"

#include "CrzParameterManager.h"

#include <juce_core/juce_core.h>

#include <cmath>

namespace
{
PanCurve panCurveFor (float value) noexcept
{
    if (value == choice::first)
        return PanCurve::linear;

    return value == choice::second ? PanCurve::logarithmic : PanCurve::sinCos;
}

PanLaw panLawFor (float value) noexcept
{
    if (value == choice::second)
        return PanLaw::minus3dB;

    return value == choice::third ? PanLaw::minus6dB : PanLaw::minus0dB;
}
} // namespace

ChainSettings readChainSettings (const CrzParameterManager& parameters,
                                 bool safeBassCoefficientsValid) noexcept
{
    const auto valueOf = [&parameters] (ParameterId id)
    { return parameters.getParameter (indexOf (id))->getValue(); };
    const auto isOn = [&valueOf] (ParameterId id) { return valueOf (id) > 0.5f; };

    ChainSettings settings;
    settings.bypass = isOn (ParameterId::bypass);
    settings.muteAll = isOn (ParameterId::muteAll);
    settings.muteMid = isOn (ParameterId::muteMid);
    settings.muteSide = isOn (ParameterId::muteSide);
    settings.phaseAlignSide = isOn (ParameterId::phaseAlignSide);
    settings.safeBassActive = safeBassCoefficientsValid && isOn (ParameterId::safeBass)
                              && valueOf (ParameterId::safeBassFreq) > 0.0f;
    settings.swapLR = isOn (ParameterId::swapLR);
    settings.phaseFlip = isOn (ParameterId::phaseFlip);
    settings.mono = isOn (ParameterId::mono);
    settings.image.panCurve = panCurveFor (valueOf (ParameterId::panCurve));
    settings.image.panLaw = panLawFor (valueOf (ParameterId::panLaw));
    settings.image.dualPan = valueOf (ParameterId::panMode) == choice::first;
    settings.image.bindLevels = valueOf (ParameterId::msMode) == choice::second;
    return settings;
}

float linearGain (float normalisedGain) noexcept
{
    const float exponent = (normalisedGain * 24.0f + (-12.0f)) / 20.0f;
    return static_cast<float> (std::pow (10.0, static_cast<double> (exponent)));
}
