// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The letters that a component really paints, so that a text which is cut or ends in dots is noticed.

#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

#include <vector>

/** A text as the glyphs that stand for it, without blanks and line breaks, which nobody paints. */
using Glyphs = std::vector<int>;

/** The glyphs that a text needs. All the editor's texts are in one face. */
inline Glyphs glyphsOf (const juce::String& text, const juce::Font& font)
{
    juce::Array<int> glyphs;
    juce::Array<float> offsets;
    font.getGlyphPositions (text.removeCharacters (" \n"), glyphs, offsets);
    return Glyphs (glyphs.begin(), glyphs.end());
}

struct PaintedText
{
    Glyphs glyphs;
    float horizontalScale = 1.0f; ///< less where a letter is squeezed to be narrower than its font has it
};

/** Notes letters in the order of painting, and draws none. Each choice of a colour starts a new text. */
class TextRecorder : public juce::LowLevelGraphicsSoftwareRenderer
{
public:
    explicit TextRecorder (const juce::Image& image)
        : juce::LowLevelGraphicsSoftwareRenderer (image)
    {
    }

    void setFill (const juce::FillType& fill) override
    {
        juce::LowLevelGraphicsSoftwareRenderer::setFill (fill);
        texts.emplace_back();
    }

    void drawGlyph (int glyph, const juce::AffineTransform&) override
    {
        if (texts.empty())
            texts.emplace_back();

        texts.back().glyphs.push_back (glyph);
        auto& scale = texts.back().horizontalScale;
        scale = juce::jmin (scale, getFont().getHorizontalScale());
    }

    const std::vector<PaintedText>& getTexts() const noexcept { return texts; }

private:
    std::vector<PaintedText> texts;
};

/** What a component and its visible children write. */
inline std::vector<PaintedText> paintedTexts (juce::Component& component)
{
    const juce::Image image (juce::Image::ARGB, component.getWidth(), component.getHeight(), true);
    TextRecorder recorder (image);
    juce::Graphics g (recorder);
    component.paintEntireComponent (g, true);
    return recorder.getTexts();
}
