// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The screen with version, credits, sizes and facts about host and machine.

#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

#include <memory>

class MainEditorComponent;
class WideLoomAudioProcessor;

/** [message] Covers the panel while it is visible. Shows the values of the moment in which it is painted. */
class InfoComponent : public juce::Component, public juce::Button::Listener
{
public:
    /** None of the three is owned; all must outlive this component. */
    InfoComponent (WideLoomAudioProcessor* owner, MainEditorComponent* panel, juce::Font* font);

    /** Enables the buttons that would change anything. */
    void updateAllButtons();

    void resized() override;
    void paint (juce::Graphics& g) override;
    void buttonClicked (juce::Button* button) override;

private:
    struct ButtonRow;
    struct TextRow;
    static const ButtonRow buttonTable[];
    static const TextRow textTable[];

    void setUpText (juce::TextEditor& area, const juce::String& text);
    void drawTexts (juce::Graphics& g) const;

    WideLoomAudioProcessor* const processor;
    MainEditorComponent* const mainEditor;
    float panelHeight = 0.0f; ///< pixels
    juce::Font* const panelFont;
    std::unique_ptr<juce::TextButton> closeButton, resizeToDefaultButton, setCurrentAsDefaultButton,
        resetDefaultSizeButton, clearUndoHistoryButton;
    juce::TextEditor creditsText, legalText;
    std::unique_ptr<juce::Drawable> logo;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (InfoComponent)
};
