// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// A processor with a plain editor, and a process that counts what it is asked to send.

#pragma once

#include "host/JuceCustomUIView.h"

#include <functional>
#include <string>
#include <vector>

/** What happened, in order. */
using EventLog = std::vector<std::string>;

class EditorTestProcessor final : public juce::AudioProcessor
{
public:
    class Editor final : public juce::AudioProcessorEditor
    {
    public:
        Editor (EditorTestProcessor& ownerOfLog, juce::Point<int> size)
            : AudioProcessorEditor (ownerOfLog),
              owner (ownerOfLog)
        {
            setOpaque (true);
            setWantsKeyboardFocus (true);
            setSize (size.x, size.y);
        }

        ~Editor() override
        {
            owner.log.push_back (owner.getActiveEditor() == nullptr ? "editor deleted"
                                                                    : "editor deleted untold");
        }

        void paint (juce::Graphics& graphics) override { graphics.fillAll (juce::Colours::orange); }
        bool keyPressed (const juce::KeyPress& key) override { return key.getTextCharacter() == 'u'; }

    private:
        EditorTestProcessor& owner;
    };

    /** Of the next editor. */
    juce::Point<int> editorSize { 400, 300 };
    bool givesEditor = true;
    EventLog log;

    bool hasEditor() const override { return givesEditor; }

    juce::AudioProcessorEditor* createEditor() override
    {
        if (! givesEditor)
            return nullptr;

        log.push_back ("editor made");
        return new Editor (*this, editorSize);
    }

    const juce::String getName() const override { return "Editor test"; }
    void prepareToPlay (double, int) override {}
    void releaseResources() override {}
    void processBlock (juce::AudioBuffer<float>&, juce::MidiBuffer&) override {}
    using AudioProcessor::processBlock;
    double getTailLengthSeconds() const override { return 0.0; }
    bool acceptsMidi() const override { return false; }
    bool producesMidi() const override { return false; }
    int getNumPrograms() override { return 1; }
    int getCurrentProgram() override { return 0; }
    void setCurrentProgram (int) override {}
    const juce::String getProgramName (int) override { return {}; }
    void changeProgramName (int, const juce::String&) override {}
    void getStateInformation (juce::MemoryBlock&) override {}
    void setStateInformation (const void*, int) override {}
};

class CountingSizeSender final : public NewSizeSender
{
public:
    void dispatchNewSizeToken() override { ++numTokens; }

    int numTokens = 0;
};

/** The view's rectangle in one comparable piece. */
inline std::vector<int> viewRectangle (JuceCustomUIView& view)
{
    Rect area {};
    view.GetRect (&area);
    return { area.top, area.left, area.bottom, area.right };
}
