// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The pixels at which components, captions and section backgrounds come to lie.

#include <editor/CrzLayoutManager.h>

#include <gtest/gtest.h>
#include <support/Painting.h>

namespace
{
using Manager = CrzLayoutManager;

constexpr float defaultHeightRatio = 0.5f;
constexpr float aspectRatio = 1.5f;

struct PlaceCase
{
    float x, y, width, height;
    int align;
    juce::Rectangle<int> expected;
};

// Worked out by hand: x of 1.5 H, y of H, both sizes of 2 H, each rounded to the nearest pixel.
const PlaceCase placeCases[] = {
    { 0.16f, 0.19f, 0.09f, 0.035f, Manager::alignLeft | Manager::alignTop, { 144, 114, 108, 42 } },
    { 0.02f, 0.16f, 0.09f, 0.035f, Manager::alignLeft | Manager::alignBottom, { 18, 504, 108, 42 } },
    { 0.14f, 0.16f, 0.09f, 0.035f, Manager::alignRight | Manager::alignBottom, { 774, 504, 108, 42 } },
    { 0.14f, 0.16f, 0.09f, 0.035f, Manager::alignRight | Manager::alignTop, { 774, 96, 108, 42 } },
    { 0.9f, 0.1f, 0.1f, 0.05f, Manager::alignHorizontalCentre | Manager::alignTop, { 405, 60, 120, 60 } },
    { 0.1f, 0.9f, 0.1f, 0.05f, Manager::alignLeft | Manager::alignVerticalCentre, { 90, 285, 120, 60 } },
    { 0.9f,
      0.9f,
      0.3f,
      0.2f,
      Manager::alignHorizontalCentre | Manager::alignVerticalCentre,
      { 315, 240, 360, 240 } },
    { 0.9f,
      0.25f,
      0.3f,
      0.2f,
      Manager::alignHorizontalCentre | Manager::alignBottom,
      { 315, 450, 360, 240 } },
    { 0.25f, 0.9f, 0.3f, 0.2f, Manager::alignRight | Manager::alignVerticalCentre, { 675, 240, 360, 240 } },
    { 0.16f, 0.19f, 0.09f, 0.035f, 0, { 144, 114, 108, 42 } },
};

TEST (CrzLayoutManager, PlacesByEveryAlignInPixelsOfAnyDisplay)
{
    for (const auto& row : placeCases)
        for (const int desktopHeight : { 1000, 1440 })
        {
            juce::Component component;
            Manager manager (desktopHeight, defaultHeightRatio, aspectRatio);
            manager.addComponent (
                &component, row.x, row.y, row.width, row.height, static_cast<Manager::Align> (row.align));
            manager.setNewHeightAndUpdateAllComponentBounds (600.0f);
            EXPECT_EQ (component.getBounds(), row.expected) << row.align;
        }
}

TEST (CrzLayoutManager, PlacesNothingBeforeTheFirstHeightAndLateComersWithTheNext)
{
    juce::Component first, late;
    Manager manager (1000, defaultHeightRatio, aspectRatio);
    const auto leftTop = Manager::alignLeft | Manager::alignTop;
    manager.addComponent (&first, 0.1f, 0.1f, 0.1f, 0.1f, leftTop);
    EXPECT_TRUE (first.getBounds().isEmpty());

    manager.setNewHeightAndUpdateAllComponentBounds (400.0f);
    manager.addComponent (&late, 0.2f, 0.2f, 0.1f, 0.1f, leftTop);
    EXPECT_EQ (first.getBounds(), juce::Rectangle<int> (60, 40, 80, 80));
    EXPECT_TRUE (late.getBounds().isEmpty());

    manager.setNewHeightAndUpdateAllComponentBounds (800.0f);
    EXPECT_EQ (first.getBounds(), juce::Rectangle<int> (120, 80, 160, 160));
    EXPECT_EQ (late.getBounds(), juce::Rectangle<int> (240, 160, 160, 160));
}

TEST (CrzLayoutManager, IgnoresIndicesOutOfRange)
{
    juce::Component component;
    Manager manager (1000, defaultHeightRatio, aspectRatio);
    manager.addComponent (&component, 0.1f, 0.1f, 0.1f, 0.1f, Manager::alignRight | Manager::alignBottom);
    manager.setNewBoundsForComponent (-1);
    manager.setNewBoundsForComponent (1);
    EXPECT_TRUE (component.getBounds().isEmpty());
}

TEST (CrzLayoutManager, DrawsSectionsAsFaintFillWithDarkerEdge)
{
    Manager manager (1000, defaultHeightRatio, aspectRatio);
    manager.setNewHeightAndUpdateAllComponentBounds (400.0f); // a window 600 x 400, reference height 800

    const auto image = painted (600,
                                400,
                                juce::Colours::white,
                                [&manager] (juce::Graphics& g) // at 60, 80, 200 x 100 pixels
                                { manager.drawSectionBackground (g, 0.1f, 0.2f, 0.25f, 0.125f); });

    // The edge is 1.2 pixels thick around the outline, so it reaches one pixel out of it.
    EXPECT_EQ (areaOtherThan (image, juce::Colours::white), juce::Rectangle<int> (59, 79, 202, 102));

    const auto inside = image.getPixelAt (160, 130);
    const auto edge = image.getPixelAt (160, 80);
    EXPECT_NEAR (inside.getRed(), 255 * 0.93, 1.0);
    EXPECT_LT (edge.getRed(), inside.getRed() - 20);
    EXPECT_GT (edge.getRed(), 255 * 0.6);
    EXPECT_GT (image.getPixelAt (60, 80).getRed(), edge.getRed()) << "the corner is rounded";
}

} // namespace
