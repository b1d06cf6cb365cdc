// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The small panel where the user names a preset and saves it.

#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

#include <memory>

class WideLoomAudioProcessor;

/** Asks for a preset's name. It saves nothing itself: what the user decides goes to the owner. [message] */
class ManagePresetsComponent : public juce::Component,
                               public juce::TextEditor::Listener,
                               public juce::Button::Listener
{
public:
    /** What the main panel does when the user has decided. Both operations hide this component. */
    class Owner
    {
    public:
        virtual ~Owner() = default;

        virtual void saveUserPreset() = 0;
        virtual void cancelUserPresetSaving() = 0;
    };

    /** Nothing is owned. `processor` must outlive this object; `mainEditor` and `panelFont` may be null. */
    ManagePresetsComponent (WideLoomAudioProcessor* processor, Owner* mainEditor, juce::Font* panelFont);
    ~ManagePresetsComponent() override;

    /** Takes the current preset's name anew, and the keyboard focus. */
    void show();
    void hide();

    /** Puts the current preset's name without "*" into the entry, all of it selected. */
    void initPresetName();

    /** The name to save under: the text entered, or, when the entry was emptied, the name taken before. */
    juce::String getPresetName();

    void resized() override;
    void paint (juce::Graphics&) override;
    void textEditorReturnKeyPressed (juce::TextEditor&) override;
    void textEditorEscapeKeyPressed (juce::TextEditor&) override;
    void buttonClicked (juce::Button*) override;

private:
    void setUpNameEditor();
    std::unique_ptr<juce::TextButton> makeButton (const juce::String& caption, const juce::String& tooltip);
    void focusNameEditor();
    juce::Font fontAtCurrentHeight() const;

    WideLoomAudioProcessor* processor;
    Owner* mainEditor;
    float panelWidth = 0.0f;
    float panelHeight = 0.0f;
    std::unique_ptr<juce::TextButton> saveButton;
    std::unique_ptr<juce::TextButton> cancelButton;
    juce::TextEditor nameEditor;
    juce::String presetName;
    juce::Font* panelFont;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (ManagePresetsComponent)
};
