// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Turns layout coordinates into pixels, so that the whole editor scales with the window's height.

#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

/** Places registered components, and draws captions and section backgrounds in the same coordinates.

    A position is a fraction of the window: x of its width, y of its height. A size is a fraction of the
   reference height in both directions, so that a control keeps its proportions. The reference height is the
   window's height divided by the default height ratio; positions and sizes therefore do not add up directly.

    Components are not owned and stay registered for the manager's life. Message thread only. */
class CrzLayoutManager
{
public:
    /** One horizontal and one vertical part: what a component's x and y count from. */
    enum Align : int
    {
        alignLeft = 1,
        alignRight = 2,            ///< the left edge lies x from the right window edge
        alignHorizontalCentre = 3, ///< x is ignored
        alignTop = 4,
        alignBottom = 8,         ///< the top edge lies y from the bottom window edge
        alignVerticalCentre = 12 ///< y is ignored
    };

    /** [message] `desktopHeight` in pixels, above 0; `defaultHeightRatio` is the window height that counts as
        scale 1, as a share of it; `aspectRatio` is window width through window height. */
    CrzLayoutManager (int desktopHeight, float defaultHeightRatio, float aspectRatio);

    /** [message] Registers a component; it keeps its bounds until the next new height. */
    void addComponent (juce::Component* component, float x, float y, float width, float height, Align align);

    /** [message] Places one component again. An index out of range does nothing. */
    void setNewBoundsForComponent (int index);

    /** [message] Takes the window's height in pixels and places all components. */
    void setNewHeightAndUpdateAllComponentBounds (float newHeight);

    /** [message] Draws one line with the graphics' current font, as high as the rectangle. */
    void drawText (juce::Graphics& g,
                   const juce::String& text,
                   float x,
                   float y,
                   float width,
                   float height,
                   juce::Justification justification,
                   juce::Colour colour);

    /** [message] Draws a faint panel with a thin darker edge; it works on any ground, by alpha alone. */
    void drawSectionBackground (juce::Graphics& g, float x, float y, float width, float height);

private:
    juce::Rectangle<float> toPixels (float x, float y, float width, float height) const;

    float currentHeight; // pixels
    float desktopHeight; // pixels
    float defaultHeightRatio;
    float scale = 1.0f;
    float aspectRatio;
    float cornerSizeRatio = 0.01f; // share of the window's height
    juce::Colour sectionFillColour = juce::Colours::black.withAlpha (0.07f);
    juce::Colour sectionOutlineColour = juce::Colours::black.withAlpha (0.3f);

    // One index runs through all three.
    juce::Array<juce::Component*> components;
    juce::Array<juce::Rectangle<float>> componentBounds; // layout coordinates
    juce::Array<Align> componentAligns;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (CrzLayoutManager)
};

constexpr CrzLayoutManager::Align operator| (CrzLayoutManager::Align a, CrzLayoutManager::Align b) noexcept
{
    return static_cast<CrzLayoutManager::Align> (static_cast<int> (a) | static_cast<int> (b));
}
