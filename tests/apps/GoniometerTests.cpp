// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The goniometer: where signals lie in the picture, and what stays out of it.

#include <wideloom/Goniometer.h>

#include <gtest/gtest.h>

#include <limits>
#include <vector>

namespace
{
/** One place in the stereo field and where it belongs in the picture, in hundredths of the way from the
   centre to the corner of the field, x to the right and y upwards. */
struct PlaceCase
{
    const char* name;
    float left, right;
    int x, y;
};

class GoniometerPlaces : public testing::TestWithParam<PlaceCase>
{
};

const PlaceCase placeCases[] = {
    { "Mid", 0.9f, 0.9f, 0, 90 },         { "MidNegative", -0.5f, -0.5f, 0, -50 },
    { "Left", 0.5f, 0.0f, -25, 25 },      { "Right", 0.0f, 0.5f, 25, 25 },
    { "Side", 0.9f, -0.9f, -90, 0 },      { "LeftNegative", -0.5f, 0.0f, 25, -25 },
    { "FullMid", 1.0f, 1.0f, 0, 100 },    { "FullMidNegative", -1.0f, -1.0f, 0, -100 },
    { "FullSide", 1.0f, -1.0f, -100, 0 }, { "FullSideNegative", -1.0f, 1.0f, 100, 0 },
};

/** The smallest rectangle around all pixels in which two pictures of one size differ. */
juce::Rectangle<int> differenceOf (const juce::Image& one, const juce::Image& other)
{
    const juce::Image::BitmapData ones (one, juce::Image::BitmapData::readOnly);
    const juce::Image::BitmapData others (other, juce::Image::BitmapData::readOnly);
    juce::Rectangle<int> changed;

    for (int y = 0; y < ones.height; ++y)
        for (int x = 0; x < ones.width; ++x)
            if (ones.getPixelColour (x, y) != others.getPixelColour (x, y))
                changed = changed.getUnion ({ x, y, 1, 1 });

    return changed;
}

/** The middle of all pixels that the point changes against a picture without it. */
juce::Point<int> placeOf (float left, float right)
{
    Goniometer empty (0.0), dotted (0.0);
    const std::vector<float> lefts (100, left), rights (100, right);
    dotted.add (lefts.data(), rights.data(), 100);
    return differenceOf (empty.draw ({}, {}), dotted.draw ({}, {})).getCentre();
}

TEST_P (GoniometerPlaces, AreWhereAListenerHearsThem)
{
    const auto& row = GetParam();
    const auto centre = placeOf (0.0f, 0.0f);
    const int radius = 2 * (placeOf (-0.5f, -0.5f).y - centre.y);
    const auto place = placeOf (row.left, row.right);

    ASSERT_GT (radius, 100);
    EXPECT_NEAR (place.x - centre.x, row.x * radius / 100, 2);
    EXPECT_NEAR (centre.y - place.y, row.y * radius / 100, 2);
}

INSTANTIATE_TEST_SUITE_P (Places,
                          GoniometerPlaces,
                          testing::ValuesIn (placeCases),
                          [] (const auto& param) { return param.param.name; });

TEST (Goniometer, FitsTheScaleToTheSignal)
{
    constexpr double infinity = std::numeric_limits<double>::infinity();

    EXPECT_EQ (Goniometer (0.0).fullScaleDb(), 0.0);
    EXPECT_EQ (Goniometer (0.1).fullScaleDb(), 3.0);
    EXPECT_EQ (Goniometer (-8.0).fullScaleDb(), -6.0);
    EXPECT_EQ (Goniometer (-infinity).fullScaleDb(), -90.0);
}

TEST (Goniometer, PassesOverWhatLiesOutsideThePicture)
{
    Goniometer goniometer (0.0);
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const float inf = std::numeric_limits<float>::infinity();
    const std::vector<float> left { nan, inf, -inf, 1.0e30f, 1.5f }, right { 0.0f, inf, inf, 0.0f, 1.5f };
    const auto before = goniometer.draw ({}, {});
    goniometer.add (left.data(), right.data(), 5);
    EXPECT_TRUE (differenceOf (before, goniometer.draw ({}, {})).isEmpty());
}
} // namespace
