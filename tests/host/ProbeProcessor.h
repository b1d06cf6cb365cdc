// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// A processor that notes what an instance does with it.

#pragma once

#include <juce_audio_processors/juce_audio_processors.h>

#include <functional>
#include <vector>

/** Adds 1 to each sample. Has two parameters by number. */
class ProbeProcessor : public juce::AudioProcessor
{
public:
    const juce::String getName() const override { return "Probe"; }
    void prepareToPlay (double rate, int size) override
    {
        ++numTimesPrepared;
        preparedRate = rate;
        preparedSize = size;
        preparedPlayHead = getPlayHead();
    }
    void releaseResources() override { atRelease(); }

    void processBlock (juce::AudioBuffer<float>& buffer, juce::MidiBuffer& events) override
    {
        sizes.push_back (buffer.getNumSamples());
        numChannels = buffer.getNumChannels();
        numEventsFound += events.getNumEvents();
        midBlock();

        if (leavesAnEvent)
            events.addEvent (juce::MidiMessage::noteOff (1, 60), 0);

        for (int channel = 0; channel < buffer.getNumChannels(); ++channel)
            juce::FloatVectorOperations::add (buffer.getWritePointer (channel), 1.0f, buffer.getNumSamples());
    }
    using juce::AudioProcessor::processBlock;

    void processBlockBypassed (juce::AudioBuffer<float>&, juce::MidiBuffer&) override { ++numTimesBypassed; }
    using juce::AudioProcessor::processBlockBypassed;

    double getTailLengthSeconds() const override { return 0.0; }
    bool acceptsMidi() const override { return false; }
    bool producesMidi() const override { return false; }
    bool hasEditor() const override { return false; }
    juce::AudioProcessorEditor* createEditor() override { return nullptr; }

    int getNumPrograms() override { return 1; }
    int getCurrentProgram() override { return 0; }
    void setCurrentProgram (int) override {}
    const juce::String getProgramName (int) override { return {}; }
    void changeProgramName (int, const juce::String&) override {}

    int getNumParameters() override { return static_cast<int> (parameters.size()); }
    float getParameter (int index) override { return parameters[static_cast<std::size_t> (index)]; }
    void setParameter (int index, float value) override
    {
        parametersSet.push_back (index);

        if (index >= 0 && index < getNumParameters())
            parameters[static_cast<std::size_t> (index)] = value;
    }
    const juce::String getParameterName (int index) override
    {
        return index == 0 ? juce::String::fromUTF8 ("Sch\xC3\xA4rfe") : juce::String ("Other");
    }
    const juce::String getParameterText (int index) override
    {
        return juce::String (getParameter (index), 2);
    }
    float getParameterDefaultValue (int index) override { return index == 0 ? 0.25f : 1.0f; }
    int getParameterNumSteps (int) override { return 11; }
    bool isParameterAutomatable (int index) const override { return index == 0; }
    bool isParameterOrientationInverted (int index) const override { return index == 1; }
    using juce::AudioProcessor::getParameterName;
    using juce::AudioProcessor::getParameterText;

    void getStateInformation (juce::MemoryBlock& block) override
    {
        ++numTimesSaved;
        block.replaceAll (state.data(), state.size());
    }
    void setStateInformation (const void* data, int size) override
    {
        const auto* const bytes = static_cast<const char*> (data);
        state.assign (bytes, bytes + size);
        ++numTimesRestored;
    }

    std::function<void()> midBlock = [] {};
    std::function<void()> atRelease = [] {};
    bool leavesAnEvent = false; // in each block
    int numEventsFound = 0;     // in all blocks
    std::vector<int> sizes;     // of the blocks
    std::vector<int> parametersSet;
    std::vector<float> parameters { 0.5f, 0.5f };
    std::vector<char> state { 'a', 'b', 'c' };
    double preparedRate = 0.0;
    juce::AudioPlayHead* preparedPlayHead = nullptr;
    int preparedSize = 0, numChannels = 0;
    int numTimesPrepared = 0, numTimesBypassed = 0, numTimesSaved = 0, numTimesRestored = 0;
};
