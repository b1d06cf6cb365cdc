// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The editor in a window of its own on the desktop.

#pragma once

#include <juce_audio_processors/juce_audio_processors.h>

#include <functional>
#include <memory>

/** [message] Follows the size of the editor inside. Closing it ends the message loop. */
class EditorWindow : public juce::DocumentWindow
{
public:
    /** @param processor      not owned; must outlive the window
        @param spaceWasPressed  called for each press of the Space key that no control wanted */
    EditorWindow (juce::AudioProcessor& processor,
                  const juce::String& title,
                  std::function<void()> spaceWasPressed);
    ~EditorWindow() override;

    void closeButtonPressed() override;
    bool keyPressed (const juce::KeyPress& key) override;

private:
    std::unique_ptr<juce::AudioProcessorEditor> editor;
    std::function<void()> onSpace;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (EditorWindow)
};
