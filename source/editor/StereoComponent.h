// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The picture of the stereo field.

#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

#include <array>

class CrzParameterValueMapper;

/** Shows the stereo image as a triangle that stands on the listener's point: the wider the image, the wider
   and flatter the triangle; the pan tilts it. A large word takes its place while all is bypassed or muted. It
    shows only what it is told. [message] */
class StereoComponent : public juce::Component, public juce::SettableTooltipClient
{
public:
    /** Nothing is owned, all may be null. Without a font the text keeps the font of the graphics context. */
    StereoComponent (juce::Font* font,
                     CrzParameterValueMapper* stereoWidthMapper,
                     CrzParameterValueMapper* panMapper);

    // Normalised values, 0..1; others are limited, and what is not finite counts as 0.0.
    void setStereoWidth (float newStereoWidth);
    void setPan (float newPan);

    void setBypassState (bool isBypassed);
    void setMuteAllState (bool isMuted);

    /** The corners in pixels: the two that move, then the listener's point. `field` is in pixels, the values
        are normalised. The moving corners stay inside the field at its sides and its bottom. */
    static std::array<juce::Point<float>, 3> triangleIn (juce::Rectangle<float> field,
                                                         float stereoWidth,
                                                         float pan);

    void paint (juce::Graphics&) override;
    void resized() override;

private:
    void drawGround (juce::Graphics&) const;
    void drawWord (juce::Graphics&, const char* word, juce::Colour) const;
    void drawField (juce::Graphics&) const;
    void drawCaptions (juce::Graphics&) const;

    template <typename Value>
    void change (Value& member, Value newValue);

    juce::Font* font;
    float componentWidth = 0.0f;
    float componentHeight = 0.0f;
    float stereoWidth = 0.5f;
    [[maybe_unused]] CrzParameterValueMapper* stereoWidthMapper; ///< the picture has no numbers yet
    float pan = 0.5f;
    [[maybe_unused]] CrzParameterValueMapper* panMapper; ///< likewise
    bool bypassState = false;
    bool muteAllState = false;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (StereoComponent)
};
