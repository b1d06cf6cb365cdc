// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the tests of presets share: a home of their own, a host that listens, and the whole outer state.

#pragma once

#include <engine/WideLoomAudioProcessor.h>

#include <csignal>
#include <string>
#include <sys/resource.h>

/** HOME in a fresh folder while it lives. */
class PresetHome
{
public:
    PresetHome();
    ~PresetHome();

    PresetHome (const PresetHome&) = delete;
    PresetHome& operator= (const PresetHome&) = delete;

    juce::File settingsFile() const { return folder.getChildFile ("QUORVEXDSP/WideLoom.q7properties"); }
    juce::File presetsFolder() const { return folder.getChildFile (".config/QUORVEXDSP/WideLoom Presets"); }
    juce::File presetFile (const juce::String& name) const
    {
        return presetsFolder().getChildFile (name + ".q7p");
    }

    const juce::File folder;

private:
    const std::string previousHome;
};

/** Writes down what the host hears: "name=value" and "display". */
class HostLog : private juce::AudioProcessorListener
{
public:
    explicit HostLog (WideLoomAudioProcessor& processorToHear);
    ~HostLog() override;

    juce::StringArray lines;

private:
    void audioProcessorParameterChanged (juce::AudioProcessor*, int index, float value) override;
    void audioProcessorChanged (juce::AudioProcessor*, const ChangeDetails&) override
    {
        lines.add ("display");
    }

    WideLoomAudioProcessor& processor;
};

/** Tree, values, session block, identity, name and whether there is something to undo, as one text. */
juce::String stateOf (WideLoomAudioProcessor& processor);

/** The current tree's value of a parameter, by name. */
float treeValue (WideLoomAudioProcessor& processor, const juce::String& name);

/** The live value of a parameter, by name. */
float liveValue (const WideLoomAudioProcessor& processor, const juce::String& name);

/** Saves the current preset with the given width under a name. */
void savePreset (WideLoomAudioProcessor& processor, const juce::String& name, float width);

/** No file of this process grows beyond a size while this lives: the disk seems full. */
class ScopedFileSizeLimit
{
public:
    explicit ScopedFileSizeLimit (rlim_t bytes)
        : previousHandler (std::signal (SIGXFSZ, SIG_IGN))
    {
        ::getrlimit (RLIMIT_FSIZE, &previous);
        const rlimit limit { bytes, previous.rlim_max };
        ::setrlimit (RLIMIT_FSIZE, &limit);
    }

    ~ScopedFileSizeLimit()
    {
        ::setrlimit (RLIMIT_FSIZE, &previous);
        std::signal (SIGXFSZ, previousHandler);
    }

    ScopedFileSizeLimit (const ScopedFileSizeLimit&) = delete;
    ScopedFileSizeLimit& operator= (const ScopedFileSizeLimit&) = delete;

private:
    rlimit previous {};
    void (*previousHandler) (int);
};

void writeFile (const juce::File& file, const std::string& bytes);
std::string readFile (const juce::File& file);
