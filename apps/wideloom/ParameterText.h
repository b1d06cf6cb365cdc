// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Reads parameter settings as people type them, strictly.

#pragma once

#include "Command.h"

#include <string_view>

/** A parameter of the table and a normalised value for it. */
struct ParameterSetting
{
    int index = 0;
    float value = 0.0f; ///< 0..1
};

/** Finds a parameter by its exact name. The problem suggests the nearest name. */
Problem findParameter (std::string_view name, int& index);

/** Reads "NAME=TEXT", the text as the effect shows it; the unit may be left out, the case does not matter.
   The value is bit for bit the one that the editor would store for that text. */
Problem readTextSetting (std::string_view assignment, ParameterSetting& setting);

/** Reads "NAME=VALUE" with a normalised value. */
Problem readNormalisedSetting (std::string_view assignment, ParameterSetting& setting);

/** Reads a normalised value, 0..1. */
Problem readNormalisedValue (std::string_view text, float& value);

/** What a parameter takes, such as "0 % to 200 %". */
std::string describeAccepted (int index);
