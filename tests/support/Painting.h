// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Paints into images without a display, and compares what came out.

#pragma once

#include <gtest/gtest.h>
#include <juce_gui_basics/juce_gui_basics.h>

#include <cstdlib>

/** What `paint (Graphics&)` leaves on a ground of one colour. */
template <typename Paint>
juce::Image painted (int width, int height, juce::Colour ground, Paint&& paint)
{
    juce::Image image (juce::Image::ARGB, width, height, true, juce::SoftwareImageType());
    {
        juce::Graphics g (image);
        g.fillAll (ground);
        paint (g);
    }
    return image;
}

/** Bounds of the pixels that differ from the ground. */
inline juce::Rectangle<int> areaOtherThan (const juce::Image& image, juce::Colour ground)
{
    juce::RectangleList<int> others;

    for (int y = 0; y < image.getHeight(); ++y)
        for (int x = 0; x < image.getWidth(); ++x)
            if (image.getPixelAt (x, y) != ground)
                others.addWithoutMerging ({ x, y, 1, 1 });

    return others.getBounds();
}

inline bool isNear (juce::Colour a, juce::Colour b, int perChannel)
{
    return std::abs (a.getRed() - b.getRed()) <= perChannel
           && std::abs (a.getGreen() - b.getGreen()) <= perChannel
           && std::abs (a.getBlue() - b.getBlue()) <= perChannel
           && std::abs (a.getAlpha() - b.getAlpha()) <= perChannel;
}

inline testing::AssertionResult pixelIsNear (const juce::Image& image,
                                             juce::Point<int> place,
                                             juce::Colour expected,
                                             int perChannel)
{
    const auto found = image.getPixelAt (place.x, place.y);

    if (isNear (found, expected, perChannel))
        return testing::AssertionSuccess();

    return testing::AssertionFailure()
           << "at " << place.toString() << ": " << found.toString() << ", not " << expected.toString();
}

inline bool sameImage (const juce::Image& a, const juce::Image& b)
{
    if (a.getBounds() != b.getBounds())
        return false;

    for (int y = 0; y < a.getHeight(); ++y)
        for (int x = 0; x < a.getWidth(); ++x)
            if (a.getPixelAt (x, y) != b.getPixelAt (x, y))
                return false;

    return true;
}
