// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// What one block of the signal chain works with, read from the parameter table at the block's start.

#pragma once

#include "ParameterTable.h"

class CrzParameterManager;

enum class PanCurve
{
    linear,
    logarithmic,
    sinCos
};

enum class PanLaw
{
    minus0dB,
    minus3dB,
    minus6dB
};

/** The choices that turn StereoWidth and Pan into factors. */
struct ImageChoices
{
    PanCurve panCurve = PanCurve::logarithmic;
    PanLaw panLaw = PanLaw::minus0dB;
    bool dualPan = false;
    bool bindLevels = false;

    bool operator== (const ImageChoices&) const = default;
};

/** The switches and choices of a block. */
struct ChainSettings
{
    bool bypass = false;
    bool muteAll = false;
    bool muteMid = false;
    bool muteSide = false;
    bool phaseAlignSide = false;
    bool safeBassActive = false;
    bool swapLR = false;
    bool phaseFlip = false;
    bool mono = false;
    ImageChoices image;
};

/** [audio] Forms the settings from the table. A switch is on above 0.5. A choice counts only at its exact
   float; values in between take the last alternative, which is not always the one that their text shows.
    @param safeBassCoefficientsValid  whether the Safe Bass filter has coefficients yet */
ChainSettings readChainSettings (const CrzParameterManager& parameters,
                                 bool safeBassCoefficientsValid) noexcept;

/** [any] The factor for a normalised gain, 0..1 for -12..+12 dB. */
float linearGain (float normalisedGain) noexcept;
