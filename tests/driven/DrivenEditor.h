// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The editor in a real window, a person in front of it and a host behind it.

#pragma once

#include "Person.h"

#include "editor/EditorUnderTest.h"

#include <engine/ParameterTable.h>
#include <wideloom/EditorWindow.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

/** What a host is told: "begin Pan", "Pan" for a new value (once for each run of them), "end Pan". */
class HostLog : private juce::AudioProcessorListener
{
public:
    explicit HostLog (juce::AudioProcessor& processorToWatch);
    ~HostLog() override;

    const std::vector<std::string>& get() const noexcept { return lines; }
    void clear() { lines.clear(); }

    /** Begun and not ended, since the last clear(). */
    int countOpenGestures() const;

private:
    void audioProcessorParameterChanged (juce::AudioProcessor*, int index, float value) override;
    void audioProcessorChanged (juce::AudioProcessor*, const ChangeDetails&) override {}
    void audioProcessorParameterChangeGestureBegin (juce::AudioProcessor*, int index) override;
    void audioProcessorParameterChangeGestureEnd (juce::AudioProcessor*, int index) override;

    juce::AudioProcessor& processor;
    std::vector<std::string> lines;
};

/** Starts with a fresh processor and the editor at its default size, in front and with the keyboard. */
class DrivenEditor : public testing::Test
{
protected:
    void SetUp() override;
    void TearDown() override;

    void openWindow();
    void closeWindow() { window.reset(); }

    WideLoomAudioProcessorEditor& shell()
    {
        return *findChildOfClass<WideLoomAudioProcessorEditor> (*window);
    }
    MainEditorComponent& panel() { return *shell().getMainEditor(); }

    /** Any control of the panel, by its ID. */
    juce::Component& control (const juce::String& id) { return *findChildWithID (panel(), id); }
    juce::Label& label (const juce::String& id) { return dynamic_cast<juce::Label&> (control (id)); }
    juce::Slider& slider (const juce::String& id) { return dynamic_cast<juce::Slider&> (control (id)); }

    float valueOf (ParameterId id) const;

    /** How often undo can be called; they are all redone again, and the host's log starts anew. */
    int countUndoSteps();

    /** The lowest line of the panel. */
    juce::String infoText() { return label ("bottomInfoLabel").getText(); }

    /** Clicks a button, once it can be clicked, and waits for what should follow. */
    void clickUntil (const juce::String& id, const std::function<bool()>& isSo);

    /** Types into what is open and finishes with Return. */
    void enter (const juce::String& text);

    Person person;
    std::unique_ptr<WideLoomAudioProcessor> processor;
    std::unique_ptr<HostLog> host;
    std::unique_ptr<EditorWindow> window;
    int numSpaces = 0; ///< how often the window passed the Space key on
};

/** The windows of the menus that are open, those opened later first. */
std::vector<juce::Component*> openMenus();

/** An item of an open menu by its text, or null. */
juce::Component* findMenuItem (const juce::String& text);
