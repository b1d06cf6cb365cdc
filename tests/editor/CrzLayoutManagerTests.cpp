// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The pixels at which components, captions and section backgrounds come to lie.

#include <editor/CrzLayoutManager.h>

#include <gtest/gtest.h>
#include <support/NamedRows.h>
#include <support/Painting.h>

namespace
{
using Manager = CrzLayoutManager;

constexpr float defaultHeightRatio = 0.5f;
constexpr float aspectRatio = 1.5f;

struct Pixels
{
    int x, y, width, height;
};

struct PlaceCase
{
    const char* name;
    int desktopHeight;
    float windowHeight;
    float x, y, width, height;
    int align;
    Pixels expected;
};

// Worked out by hand: x of 1.5 H, y of H, both sizes of 2 H, each rounded to the nearest pixel.
const PlaceCase placeCases[] = {
    { "LeftTop", 1000, 600.0f, 0.16f, 0.19f, 0.09f, 0.035f, 5, { 144, 114, 108, 42 } },
    { "LeftBottom", 1000, 600.0f, 0.02f, 0.16f, 0.09f, 0.035f, 9, { 18, 504, 108, 42 } },
    { "RightBottom", 1000, 600.0f, 0.14f, 0.16f, 0.09f, 0.035f, 10, { 774, 504, 108, 42 } },
    { "RightTop", 1000, 600.0f, 0.14f, 0.16f, 0.09f, 0.035f, 6, { 774, 96, 108, 42 } },
    { "HorizontalCentreIgnoresX", 1000, 600.0f, 0.9f, 0.1f, 0.1f, 0.05f, 7, { 405, 60, 120, 60 } },
    { "VerticalCentreIgnoresY", 1000, 600.0f, 0.1f, 0.9f, 0.1f, 0.05f, 13, { 90, 285, 120, 60 } },
    { "BothCentres", 1000, 600.0f, 0.9f, 0.9f, 0.3f, 0.2f, 15, { 315, 240, 360, 240 } },
    { "HorizontalCentreFromBottom", 1000, 600.0f, 0.9f, 0.25f, 0.3f, 0.2f, 11, { 315, 450, 360, 240 } },
    { "VerticalCentreFromRight", 1000, 600.0f, 0.25f, 0.9f, 0.3f, 0.2f, 14, { 675, 240, 360, 240 } },
    { "NoReferenceCountsFromLeftTop", 1000, 600.0f, 0.16f, 0.19f, 0.09f, 0.035f, 0, { 144, 114, 108, 42 } },
    { "LowestWindow", 1000, 250.0f, 0.71f, 0.097f, 0.046f, 0.02275f, 5, { 266, 24, 23, 11 } },
    { "HighestWindow", 1000, 800.0f, 0.71f, 0.097f, 0.045f, 0.02275f, 5, { 852, 78, 72, 36 } },
    { "OtherDisplaySameWindow", 1440, 600.0f, 0.14f, 0.16f, 0.09f, 0.035f, 10, { 774, 504, 108, 42 } },
};

class CrzLayoutManagerPlaces : public testing::TestWithParam<PlaceCase>
{
};

TEST_P (CrzLayoutManagerPlaces, InPixels)
{
    const auto& row = GetParam();
    juce::Component component;
    Manager manager (row.desktopHeight, defaultHeightRatio, aspectRatio);
    manager.addComponent (
        &component, row.x, row.y, row.width, row.height, static_cast<Manager::Align> (row.align));

    manager.setNewHeightAndUpdateAllComponentBounds (row.windowHeight);

    EXPECT_EQ (component.getX(), row.expected.x);
    EXPECT_EQ (component.getY(), row.expected.y);
    EXPECT_EQ (component.getWidth(), row.expected.width);
    EXPECT_EQ (component.getHeight(), row.expected.height);
}

INSTANTIATE_TEST_SUITE_P (Aligns, CrzLayoutManagerPlaces, testing::ValuesIn (placeCases), rowName<PlaceCase>);

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

TEST (CrzLayoutManager, StartsAtTheDefaultHeightAndIgnoresIndicesOutOfRange)
{
    juce::Component component;
    Manager manager (1000, defaultHeightRatio, aspectRatio);
    manager.addComponent (&component, 0.1f, 0.1f, 0.1f, 0.1f, Manager::alignRight | Manager::alignBottom);

    manager.setNewBoundsForComponent (-1);
    manager.setNewBoundsForComponent (1);
    EXPECT_TRUE (component.getBounds().isEmpty());

    manager.setNewBoundsForComponent (0); // a window 750 x 500, and a reference height of 1000
    EXPECT_EQ (component.getBounds(), juce::Rectangle<int> (675, 450, 100, 100));
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

TEST (CrzLayoutManager, DrawsTextAsHighAsItsAreaAndDropsWhatDoesNotFit)
{
    Manager manager (1000, defaultHeightRatio, aspectRatio);
    manager.setNewHeightAndUpdateAllComponentBounds (400.0f);

    const auto paintedBy = [&manager] (float x, float width, float height, const char* text)
    {
        const auto image = painted (
            600,
            400,
            juce::Colours::white,
            [&] (juce::Graphics& g) {
                manager.drawText (
                    g, text, x, 0.25f, width, height, juce::Justification::centred, juce::Colours::red);
            });
        return areaOtherThan (image, juce::Colours::white);
    };

    const auto low = paintedBy (0.1f, 0.5f, 0.05f, "HH");
    const auto high = paintedBy (0.1f, 0.5f, 0.1f, "HH");
    const auto cut = paintedBy (0.1f, 0.1f, 0.1f, "HHHHHHHHHHHH");

    EXPECT_NEAR (low.getCentreX(), 60 + 200, 2);
    EXPECT_NEAR (low.getCentreY(), 100 + 20, 4);
    EXPECT_NEAR (high.getHeight(), 2 * low.getHeight(), 2);
    EXPECT_TRUE (juce::Rectangle<int> (60, 100, 80, 80).contains (cut));
    EXPECT_EQ (cut.getHeight(), high.getHeight()) << "letters are dropped, not made smaller";
}
} // namespace
