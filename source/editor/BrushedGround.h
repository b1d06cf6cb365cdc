// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The brushed-metal ground of the panel.

#pragma once

#include <juce_graphics/juce_graphics.h>

/** Thousands of short lines, drawn once for a size and colour and then kept as an image. The pattern depends
   on the size alone, so every repaint and every run shows the same one. [message] */
class BrushedGround
{
public:
    /** Covers `width` x `height` pixels from the origin of `g`. */
    void draw (juce::Graphics& g, int width, int height, juce::Colour base);

private:
    struct Key
    {
        int width = 0;
        int height = 0;
        juce::Colour base;
        float pixelScale = 0.0f; ///< the display's pixels in one pixel of the panel

        bool operator== (const Key&) const = default;
    };

    static juce::Image makeImage (const Key&);

    Key imageKey;
    juce::Image image;
};
