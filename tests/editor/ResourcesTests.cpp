// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The images and faces that are built in: what they hold, and which mirror each other.

#include <BinaryData.h>
#include <gtest/gtest.h>
#include <juce_gui_basics/juce_gui_basics.h>
#include <support/NamedRows.h>
#include <support/Painting.h>

namespace
{
struct Resource
{
    const char* name;
    const char* data;
    int size;
};

#define RESOURCE(symbol)                                                                                     \
    Resource                                                                                                 \
    {                                                                                                        \
        #symbol, BinaryData::symbol, BinaryData::symbol##Size                                                \
    }

const Resource images[] = {
    RESOURCE (LOGO_Dorian_Vell_ACTUAL_svg),
    RESOURCE (LOGO_QUORVEXDSP_ONLY_Q7_01_svg),
    RESOURCE (LOGO_QUORVEXDSP_01_svg),
    RESOURCE (UndoCurvedArrow_svg),
    RESOURCE (RedoCurvedArrow_svg),
    RESOURCE (DropDownArrow_svg),
    RESOURCE (PlayButton_svg),
    RESOURCE (PlayButtonRotated180_svg),
};

std::unique_ptr<juce::Drawable> load (const Resource& image)
{
    return juce::Drawable::createFromImageData (image.data, static_cast<std::size_t> (image.size));
}

juce::Image paintedWithin (const Resource& image, int size)
{
    return painted (size,
                    size,
                    juce::Colours::transparentBlack,
                    [&] (juce::Graphics& g)
                    {
                        load (image)->drawWithin (g,
                                                  juce::Rectangle<int> (size, size).toFloat(),
                                                  juce::RectanglePlacement::centred,
                                                  1.0f);
                    });
}

class ResourceImages : public testing::TestWithParam<Resource>
{
};

TEST_P (ResourceImages, AreDrawnInEachQuadrantAtEachSize)
{
    ASSERT_NE (load (GetParam()), nullptr);

    for (const int size : { 20, 60, 200 })
        for (const int x : { 0, size / 2 })
            for (const int y : { 0, size / 2 })
            {
                const auto quadrant =
                    paintedWithin (GetParam(), size).getClippedImage ({ x, y, size / 2, size / 2 });
                EXPECT_FALSE (
                    areaOtherThan (quadrant.createCopy(), juce::Colours::transparentBlack).isEmpty())
                    << size << " pixels, quadrant at " << x << ", " << y;
            }
}

TEST_P (ResourceImages, HoldPathsAlone)
{
    const auto& image = GetParam();
    const auto svg = juce::parseXML (juce::String::fromUTF8 (image.data, image.size));
    ASSERT_NE (svg, nullptr);

    // JUCE would draw text with a font of the system.
    for (const char* const element : { "text", "image", "use", "style" })
        EXPECT_EQ (svg->getChildByName (element), nullptr) << element;
}

INSTANTIATE_TEST_SUITE_P (Svg, ResourceImages, testing::ValuesIn (images), rowName<Resource>);

struct MirrorCase
{
    const char* name;
    Resource image, mirrored;
    bool leftToRight, topToBottom;
};

const MirrorCase mirrorCases[] = {
    { "RedoMirrorsUndo", RESOURCE (UndoCurvedArrow_svg), RESOURCE (RedoCurvedArrow_svg), true, false },
    { "PreviousTurnsNext", RESOURCE (PlayButton_svg), RESOURCE (PlayButtonRotated180_svg), true, true },
};

class ResourcePairs : public testing::TestWithParam<MirrorCase>
{
};

TEST_P (ResourcePairs, AreMirrorImages)
{
    constexpr int size = 60;
    const auto& row = GetParam();
    const auto image = paintedWithin (row.image, size);
    const auto mirrored = paintedWithin (row.mirrored, size);
    EXPECT_FALSE (sameImage (image, mirrored));

    // Edges are smoothed from the other side, so only what is quite inside or outside has to agree.
    for (int y = 0; y < size; ++y)
        for (int x = 0; x < size; ++x)
        {
            const int alpha = image.getPixelAt (x, y).getAlpha();
            const auto other =
                mirrored.getPixelAt (row.leftToRight ? size - 1 - x : x, row.topToBottom ? size - 1 - y : y);
            const bool isEdge = alpha != 0 && alpha != 255;
            ASSERT_TRUE (isEdge || (other.getAlpha() >= 128) == (alpha == 255)) << x << ", " << y;
        }
}

INSTANTIATE_TEST_SUITE_P (Svg, ResourcePairs, testing::ValuesIn (mirrorCases), rowName<MirrorCase>);

juce::Font face (const Resource& data)
{
    return { juce::Typeface::createSystemTypefaceFor (data.data, static_cast<std::size_t> (data.size)) };
}

TEST (ResourceFaces, AreARegularAndAnItalicOfOneFamily)
{
    const auto regular = face (RESOURCE (kenyan_coffee_rg_ttf));
    const auto italic = face (RESOURCE (kenyan_coffee_rg_it_ttf));

    EXPECT_EQ (regular.getTypefaceName(), italic.getTypefaceName());
    EXPECT_EQ (regular.getTypefaceStyle(), "Regular");
    EXPECT_EQ (italic.getTypefaceStyle(), "Italic");

    juce::Array<int> glyphs;
    juce::Array<float> positions;
    const auto text = juce::String::fromUTF8 ("AZaz09 -%/:!'\"()[]+.,;_#&@\xc3\xa4\xc3\xb1\xce\xa9\xd0\x96");
    regular.getGlyphPositions (text, glyphs, positions);
    ASSERT_EQ (glyphs.size(), text.length());
    EXPECT_FALSE (glyphs.contains (0)) << "a letter is missing";
}
} // namespace
