// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Where presets are looked up, loaded and saved, apart from the audio.

#pragma once

#include "ParameterText.h"
#include "PresetListing.h"

#include <memory>

class WideLoomAudioProcessor;

/** Works on a processor of its own, through the operations that the editor uses. What it has loaded goes to
    the effect as a session block, which every way of running the effect can carry. When a call gives a
    problem, nothing has changed.

    Needs JUCE to be initialised, on the thread that makes it. */
class PresetDesk
{
public:
    PresetDesk();
    ~PresetDesk();

    /** All presets that can be read, in the order of the ring: factory presets, then user presets. */
    std::vector<RingPreset> getRing() const;

    /** Loads a preset by name; when both lists have it, the factory preset. */
    Problem loadPreset (const std::string& name);

    /** Loads a preset file from anywhere. */
    Problem loadPresetFile (const std::string& path);

    /** Takes over a good session block. */
    void loadState (const juce::MemoryBlock& block);

    /** Changes a parameter of what is loaded. */
    void setParameter (const ParameterSetting& setting);

    juce::MemoryBlock getState() const;

    /** Whether savePreset() would find another preset of that name, and may not replace it. */
    Problem findSavedBefore (const std::string& name, bool mayReplace) const;

    /** Saves what is loaded as a user preset. `sampleRate` in Hz is what the file tells of the session. */
    Problem savePreset (const std::string& name, bool mayReplace, double sampleRate);

    /** Whether a name belongs to a factory preset, so that a user preset of that name comes second. */
    bool isFactoryPreset (const std::string& name) const;

private:
    Problem unknownPreset (const std::string& name) const;

    /** The path of a user preset. */
    std::string pathOf (const juce::String& name) const;

    std::unique_ptr<WideLoomAudioProcessor> processor;
};
