// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Draws every standard control of the editor: knobs, sliders, buttons, toggles, labels and the resizer.

#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

/** The one look and feel of the editor. Message thread only. */
class CrzQ7LookAndFeelV1 : public juce::LookAndFeel_V3
{
public:
    CrzQ7LookAndFeelV1();
    ~CrzQ7LookAndFeelV1() override;

    void drawButtonBackground (juce::Graphics& g,
                               juce::Button& button,
                               const juce::Colour& backgroundColour,
                               bool isMouseOverButton,
                               bool isButtonDown) override;

    /** Eight tenths of the button's height, in pixels. */
    juce::Font getTextButtonFont (juce::TextButton& button, int buttonHeight) override;

    /** A glass sphere and, as high as the button, its text. Mouse and enablement do not show. */
    void drawToggleButton (juce::Graphics& g,
                           juce::ToggleButton& button,
                           bool isMouseOver,
                           bool isDown) override;

    /** Grows with the main display, and is never lower than 27 pixels. */
    juce::Font getPopupMenuFont() override;

    /** The text alone. The ground and the outline of a label are its parent's to paint. */
    void drawLabel (juce::Graphics& g, juce::Label& label) override;

    /** Nine tenths of the label's height, in pixels. */
    juce::Font getLabelFont (juce::Label& label) override;

    void drawLinearSlider (juce::Graphics& g,
                           int x,
                           int y,
                           int width,
                           int height,
                           float sliderPos,
                           float minSliderPos,
                           float maxSliderPos,
                           juce::Slider::SliderStyle style,
                           juce::Slider& slider) override;

    void drawLinearSliderBackground (juce::Graphics& g,
                                     int x,
                                     int y,
                                     int width,
                                     int height,
                                     float sliderPos,
                                     float minSliderPos,
                                     float maxSliderPos,
                                     juce::Slider::SliderStyle style,
                                     juce::Slider& slider) override;

    /** A bar across a vertical slider; there is no other form. */
    void drawLinearSliderThumb (juce::Graphics& g,
                                int x,
                                int y,
                                int width,
                                int height,
                                float sliderPos,
                                float minSliderPos,
                                float maxSliderPos,
                                juce::Slider::SliderStyle style,
                                juce::Slider& slider) override;

    /** A knob in the slider's background colour with a value arc around it. A disabled one has neither shadow
        nor pointer. `sliderPos` from 0 to 1; angles in radians, clockwise from 12 o'clock. */
    void drawRotarySlider (juce::Graphics& g,
                           int x,
                           int y,
                           int width,
                           int height,
                           float sliderPos,
                           float startAngle,
                           float endAngle,
                           juce::Slider& slider) override;

    /** A label in the slider's text box colours, edited on double click; losing the focus discards the edit.
        The caller owns it. */
    juce::Label* createSliderTextBox (juce::Slider& slider) override;

    void drawCornerResizer (juce::Graphics& g, int w, int h, bool isMouseOver, bool isMouseDragging) override;

    /** [message] The colour of the resizer at rest comes from this grey. */
    void setCurrentLightGrey (const juce::Colour& newLightGrey);

    /** [message] A glass sphere in the left part of the area, in the middle of its height. */
    void drawRadioTickBox (juce::Graphics& g,
                           juce::Component& component,
                           float x,
                           float y,
                           float width,
                           float height,
                           bool ticked);

private:
    juce::Font defaultFont;
    juce::Colour currentLightGrey { 255, 34, 34 };

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (CrzQ7LookAndFeelV1)
};
