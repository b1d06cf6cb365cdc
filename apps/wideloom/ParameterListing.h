// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The parameter table as text for people and as JSON for programs.

#pragma once

#include <juce_core/juce_core.h>

struct ParameterRow;

/** A normalised value as the effect shows it. */
juce::String parameterValueText (const ParameterRow& row, float value);

/** Decimal digits that tell any two floats apart, and no more noise than that: 0.1f is to read 0.1. */
double readableValue (float value);

/** A head line and one line for each parameter: name, default, and the values that can be set. Every line
   ends in a line feed. */
juce::String parameterListing();

/** An array with one object for each parameter, in the table's order: "index", "name", "kind" ("continuous",
    "switch" or "choice"), "default" (normalised) and "defaultText"; a continuous one has "lowestText" and
    "highestText", those of 0 and 1, any other "values": normalised value and text of each. */
juce::var parameterListingJson();
