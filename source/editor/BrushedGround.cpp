// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Draws strokes and sheen into an image when the size, the colour or the display's scale has changed.

#include "BrushedGround.h"

#include <cmath>

namespace
{
constexpr juce::int64 patternSeed = 4;
constexpr int shortestStroke = 5; // pixels, for the strokes and for the gaps between them
constexpr int strokeLimit = 80;   // pixels; strokes and gaps stay below it
constexpr int rowStartLimit = 5;  // pixels; each row but the first starts left of this
constexpr float strongestStroke = 0.03f;
constexpr float sheenAlpha = 0.05f;
constexpr float aspectRatio = 1.5f; // the pattern's width follows from its height

void drawStrokes (juce::Graphics& g, int height, juce::Colour base)
{
    const auto patternWidth = aspectRatio * static_cast<float> (height);
    const juce::Range<int> strokeRange { shortestStroke, strokeLimit };
    juce::Random random { patternSeed };
    int x = 0;

    // Every draw of a random number is a statement of its own: their order is the pattern.
    for (int y = 0; y < height; ++y)
    {
        while (static_cast<float> (x) < patternWidth)
        {
            const auto gap = random.nextInt (strokeRange);
            const auto length = random.nextInt (strokeRange);
            const auto strength = strongestStroke * random.nextFloat();
            const auto isBrighter = random.nextBool();
            const auto start = x + gap;
            x = start + length;

            g.setColour (isBrighter ? base.brighter (strength) : base.darker (strength));
            g.drawHorizontalLine (y, static_cast<float> (start), static_cast<float> (x));
        }

        x = random.nextInt ({ 0, rowStartLimit });
    }
}

void drawSheen (juce::Graphics& g, int width, int height)
{
    const auto h = static_cast<float> (height);
    g.setGradientFill ({ juce::Colours::white.withAlpha (sheenAlpha),
                         0.0f,
                         0.0f,
                         juce::Colours::black.withAlpha (sheenAlpha),
                         aspectRatio * h,
                         h,
                         false });
    g.fillRect (0, 0, width, height);
}
} // namespace

void BrushedGround::draw (juce::Graphics& g, int width, int height, juce::Colour base)
{
    if (width <= 0 || height <= 0)
        return;

    const Key key { width, height, base, g.getInternalContext().getPhysicalPixelScaleFactor() };

    if (key != imageKey || ! image.isValid())
    {
        image = makeImage (key);
        imageKey = key;
    }

    g.setOpacity (1.0f);
    g.drawImageTransformed (image, juce::AffineTransform::scale (1.0f / key.pixelScale));
}

juce::Image BrushedGround::makeImage (const Key& key)
{
    // As many pixels as the display has, so that the strokes stay sharp where a panel's pixel is several.
    const auto inDisplayPixels = [&key] (int length)
    { return juce::jmax (1, juce::roundToInt (std::ceil (key.pixelScale * static_cast<float> (length)))); };

    juce::Image result { juce::Image::RGB,
                         inDisplayPixels (key.width),
                         inDisplayPixels (key.height),
                         false,
                         juce::SoftwareImageType() };
    juce::Graphics g { result };
    g.addTransform (juce::AffineTransform::scale (key.pixelScale));
    g.fillAll (key.base);
    drawStrokes (g, key.height, key.base);
    drawSheen (g, key.width, key.height);
    return result;
}
