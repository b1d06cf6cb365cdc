// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The native window around an editor, inside the host's window.

#pragma once

#include "JuceCustomUIView.h"
#include "SubWindow.h"

/** Always has the size of the editor, which is its only child and not its own. [host-main] */
class JuceCustomUIView::EditorCompWrapper final : public juce::Component
{
public:
    EditorCompWrapper (GrafPtr hostWindow, juce::AudioProcessorEditor& editor, JuceCustomUIView& owner);
    ~EditorCompWrapper() override;

    void paint (juce::Graphics& graphics) override;
    void resized() override;
    void childBoundsChanged (juce::Component* child) override;

    /** Gets only what the editor did not use, and sends it on to the host. */
    bool keyPressed (const juce::KeyPress& key) override;

    void userTriedToCloseWindow() override;

private:
    JuceCustomUIView& owner;
    std::unique_ptr<SubWindow> subWindow;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (EditorCompWrapper)
};
