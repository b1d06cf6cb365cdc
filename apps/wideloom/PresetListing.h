// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Presets as text for people and as JSON for programs.

#pragma once

#include "engine/ParameterTable.h"
#include "presets/UserPresetFile.h"

#include <vector>

/** A parameter that a preset sets. */
struct PresetValue
{
    const ParameterRow* row;
    float value; ///< normalised

    juce::String text() const;
};

/** A preset at its place in the ring. */
struct RingPreset
{
    bool isFactory;
    int position; ///< in its list, from 0
    juce::String name;
    juce::ValueTree tree;
};

/** What a tree sets of the effect's parameters, in their order. Of two nodes of one name the first counts. */
std::vector<PresetValue> presetValues (const juce::ValueTree& tree);

/** A head line and one line for each preset: list, name, and in what it differs from the first of the ring.
   Every line ends in a line feed. */
juce::String presetListing (const std::vector<RingPreset>& ring);

/** An array with one object for each preset: "list" ("factory" or "user"), "position" in that list, "name",
    and "differences" from the first of the ring, each with "name", "value" (normalised) and "text". */
juce::var presetListingJson (const std::vector<RingPreset>& ring);

/** All that a preset file says, one line for each property and parameter. */
juce::String presetDescription (const UserPresetFile::Contents& contents);
