// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The knob of the continuous parameters.

#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

class CrzParameter;

/** A knob with a fixed drag feel: the pointer vanishes during a drag and comes back where it went down, Shift
    makes the drag fine, Command-click acts as a double click. It shows and reads the same words as the host.
    Values are normalised, 0..1. [message] */
class CrzRotarySlider : public juce::Slider
{
public:
    /** `parameter` is not owned; a null one, or one without a mapper, makes a knob of plain numbers. Range,
        double-click value and text box are left to whoever makes the knob. */
    explicit CrzRotarySlider (CrzParameter* parameter);

    /** Gives the pointer back when a drag is going on. */
    ~CrzRotarySlider() override;

    CrzParameter* getParameter() const noexcept { return parameter; }

    void mouseDown (const juce::MouseEvent& event) override;
    void mouseDrag (const juce::MouseEvent& event) override;
    void mouseUp (const juce::MouseEvent& event) override;
    void modifierKeysChanged (const juce::ModifierKeys& modifiers) override;

    /** Always finite; may lie outside the range, which then limits it. Whatever follows the leading number is
        ignored, so a text that starts with a letter counts as empty. */
    double getValueFromText (const juce::String& text) override;

    juce::String getTextFromValue (double value) override;

protected:
    /** Puts the pointer back after a drag. Virtual so that it can be watched where there is no pointer. */
    virtual void movePointerTo (juce::Point<int> screenPosition);

private:
    juce::Point<int> mouseDownPosition; ///< on the screen, at the latest plain press
    CrzParameter* parameter;
    bool plainPressIsDown = false;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (CrzRotarySlider)
};
