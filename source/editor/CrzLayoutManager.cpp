// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Places components, captions and section backgrounds by their fractions of the window.

#include "CrzLayoutManager.h"

namespace
{
constexpr float outlineThicknessPerCornerSize = 0.3f;

constexpr int horizontalBits = CrzLayoutManager::alignHorizontalCentre;
constexpr int verticalBits = CrzLayoutManager::alignVerticalCentre;

/** Where the component starts, as a fraction of the window. The centring rule takes both as plain numbers
    although their units differ, so the component's middle lies past the window's by a share of its size. */
float startFrom (float position, float size, bool isCentred, bool isFarEdge)
{
    if (isCentred)
        return -0.5f * size + 0.5f;

    return isFarEdge ? 1.0f - position : position;
}
} // namespace

CrzLayoutManager::CrzLayoutManager (int desktopHeightInPixels, float heightRatio, float windowAspectRatio)
    : currentHeight (heightRatio * static_cast<float> (desktopHeightInPixels)),
      desktopHeight (static_cast<float> (desktopHeightInPixels)),
      defaultHeightRatio (heightRatio),
      aspectRatio (windowAspectRatio)
{
    jassert (desktopHeightInPixels > 0 && heightRatio > 0.0f);
}

void CrzLayoutManager::addComponent (
    juce::Component* component, float x, float y, float width, float height, Align align)
{
    components.add (component);
    componentBounds.add ({ x, y, width, height });
    componentAligns.add (align);
}

void CrzLayoutManager::setNewBoundsForComponent (int index)
{
    auto* const component = components[index];

    if (component == nullptr)
        return;

    const auto bounds = componentBounds[index];
    const int align = componentAligns[index];

    const float x = startFrom (bounds.getX(),
                               bounds.getWidth(),
                               (align & horizontalBits) == alignHorizontalCentre,
                               (align & alignRight) != 0);
    const float y = startFrom (bounds.getY(),
                               bounds.getHeight(),
                               (align & verticalBits) == alignVerticalCentre,
                               (align & alignBottom) != 0);

    const auto area = toPixels (x, y, bounds.getWidth(), bounds.getHeight());
    component->setBounds (juce::roundToInt (area.getX()),
                          juce::roundToInt (area.getY()),
                          juce::roundToInt (area.getWidth()),
                          juce::roundToInt (area.getHeight()));
}

void CrzLayoutManager::setNewHeightAndUpdateAllComponentBounds (float newHeight)
{
    currentHeight = newHeight;
    scale = newHeight / desktopHeight / defaultHeightRatio;

    for (int i = 0; i < components.size(); ++i)
        setNewBoundsForComponent (i);
}

void CrzLayoutManager::drawText (juce::Graphics& g,
                                 const juce::String& text,
                                 float x,
                                 float y,
                                 float width,
                                 float height,
                                 juce::Justification justification,
                                 juce::Colour colour)
{
    const auto area = toPixels (x, y, width, height);
    g.setFont (area.getHeight());
    g.setColour (colour);
    g.drawText (text, area, justification, false);
}

void CrzLayoutManager::drawSectionBackground (juce::Graphics& g, float x, float y, float width, float height)
{
    const auto area = toPixels (x, y, width, height);
    const float cornerSize = cornerSizeRatio * currentHeight;

    g.setColour (sectionFillColour);
    g.fillRoundedRectangle (area, cornerSize);
    g.setColour (sectionOutlineColour);
    g.drawRoundedRectangle (area, cornerSize, cornerSize * outlineThicknessPerCornerSize);
}

juce::Rectangle<float> CrzLayoutManager::toPixels (float x, float y, float width, float height) const
{
    const float windowWidth = aspectRatio * currentHeight;
    const float referenceHeight = desktopHeight * scale;
    return { windowWidth * x, currentHeight * y, referenceHeight * width, referenceHeight * height };
}
