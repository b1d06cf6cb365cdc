// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The window that a host shows: a thin shell around the panel with all the controls.

#pragma once

#include <juce_audio_processors/juce_audio_processors.h>

#include <memory>

class CrzLayoutManager;
class CrzQ7LookAndFeelV1;
class MainEditorComponent;
class ResizerForEditor;
class WideLoomAudioProcessor;

/** [message] The editor's shell. Its height in pixels is the one free size: the width is always 1.5 times the
    height, and everything inside follows from the height. While the corner is dragged the panel hides itself
   and the shell's own picture shows through. */
class WideLoomAudioProcessorEditor : public juce::AudioProcessorEditor, public juce::Timer
{
public:
    /** Comes up at the processor's editor height. The processor must outlive the editor. */
    explicit WideLoomAudioProcessorEditor (WideLoomAudioProcessor* owner);
    ~WideLoomAudioProcessorEditor() override;

    CrzQ7LookAndFeelV1* getLookAndFeel() { return lookAndFeel.get(); }
    CrzLayoutManager* getLayoutManager() const { return layoutManager.get(); }
    MainEditorComponent* getMainEditor() const { return mainEditor.get(); }

    /** Takes the height from the processor and applies it as it is, past the limits of a drag. */
    void updateEditorSize();

    void paint (juce::Graphics& g) override;
    void resized() override;

    /** Hands the meter peaks since the last call to the panel. */
    void timerCallback() override;

private:
    WideLoomAudioProcessor* const processor;
    std::unique_ptr<CrzLayoutManager> layoutManager;
    int editorHeight = 0; ///< pixels
    std::unique_ptr<juce::Font> resizingFont;
    std::unique_ptr<CrzQ7LookAndFeelV1> lookAndFeel;
    std::unique_ptr<juce::ComponentBoundsConstrainer> constrainer;
    std::unique_ptr<ResizerForEditor> resizer;
    std::unique_ptr<MainEditorComponent> mainEditor;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (WideLoomAudioProcessorEditor)
};
