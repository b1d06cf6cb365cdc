// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// A component painted into an image, to look at its pixels without a display.

#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

/** What a component and its children paint, over nothing. */
inline juce::Image paintedPicture (juce::Component& component)
{
    juce::Image image (juce::Image::ARGB, component.getWidth(), component.getHeight(), true);
    juce::Graphics g (image);
    component.paintEntireComponent (g, true);
    return image;
}

/** How many pixels of an area have a colour close to the given one; `tolerance` is per 8-bit channel. */
inline int countPixels (const juce::Image& image,
                        juce::Rectangle<int> area,
                        juce::Colour colour,
                        int tolerance)
{
    int count = 0;

    for (int y = area.getY(); y < area.getBottom(); ++y)
        for (int x = area.getX(); x < area.getRight(); ++x)
        {
            const auto pixel = image.getPixelAt (x, y);
            count += std::abs (pixel.getRed() - colour.getRed()) <= tolerance
                     && std::abs (pixel.getGreen() - colour.getGreen()) <= tolerance
                     && std::abs (pixel.getBlue() - colour.getBlue()) <= tolerance
                     && std::abs (pixel.getAlpha() - colour.getAlpha()) <= tolerance;
        }

    return count;
}
