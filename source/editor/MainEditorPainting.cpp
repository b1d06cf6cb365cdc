// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Everything of the panel that is not a control.

#include "CrzQ7Colours.h"
#include "MainEditorComponent.h"
#include "PanelTables.h"

namespace
{
using Area = juce::Rectangle<float>;

constexpr float dimmedAlpha = 0.2f;

// Fractions of the window, as the controls' bounds are.
constexpr auto bottomBars = std::to_array<RelativeBounds> ({
    { 0.01f, 0.923f, 0.758f, 0.061f },
    { 0.773f, 0.923f, 0.171f, 0.061f },
    { 0.949f, 0.923f, 0.0406667f, 0.061f },
});
constexpr RelativeBounds presetNameBar { 0.3f, 0.095f, 0.4f, 0.05f };

// Layout coordinates: positions are fractions of the window, sizes of twice its height.
constexpr auto sections = std::to_array<RelativeBounds> ({
    { 0.71f, 0.16f, 0.105f, 0.2f },    // Safe Bass
    { 0.15f, 0.16f, 0.105f, 0.2f },    // swap, phase flip and mono
    { 0.71f, 0.585f, 0.105f, 0.145f }, // mute mid and side
    { 0.15f, 0.585f, 0.105f, 0.145f }, // easy and expert mode
    { 0.15f, 0.09f, 0.525f, 0.03f },   // preset row
});
constexpr auto expertSections = std::to_array<RelativeBounds> ({
    { 0.568f, 0.585f, 0.099f, 0.075f },
    { 0.3f, 0.585f, 0.099f, 0.075f },
    { 0.3f, 0.76f, 0.099f, 0.075f },
    { 0.568f, 0.76f, 0.099f, 0.075f },
});

// Layout coordinates too.
constexpr RelativeBounds frequencyCaption { 0.71f, 0.31f, 0.105f, 0.025f };
constexpr RelativeBounds presetCaption { 0.23f, 0.101f, 0.04f, 0.0195f };

struct InOutSection
{
    const char* caption;
    RelativeBounds section, captionBounds;
};

constexpr auto inOutSections = std::to_array<InOutSection> ({
    { "INPUT", { 0.02f, 0.1f, 0.09f, 0.105f }, { 0.02f, 0.1f, 0.09f, 0.025f } },
    { "OUTPUT", { 0.86f, 0.1f, 0.09f, 0.105f }, { 0.86f, 0.1f, 0.09f, 0.025f } },
});

/** A caption in the middle of the panel's width. */
struct CentredCaption
{
    const char* text;
    float y, height;  ///< fractions of the panel's height
    float width;      ///< fraction of its width
    float fontHeight; ///< fraction of its height
};

constexpr CentredCaption panCaption { "PAN", 0.579f, 0.025f, 0.06f, 0.05f };
constexpr CentredCaption stereoWidthCaption { "STEREO WIDTH", 0.724f, 0.025f, 0.3f, 0.05f };

/** Whether anything of `area` has to be painted. A meter's repaint touches few of the captions and logos. */
bool isDirty (const juce::Graphics& g, Area area)
{
    return g.clipRegionIntersects (area.getSmallestIntegerContainer());
}

juce::Colour captionColour (bool isDimmed)
{
    return isDimmed ? juce::Colours::black.withAlpha (dimmedAlpha) : juce::Colours::black;
}

void drawCentred (juce::Graphics& g, const CentredCaption& caption, float w, float h, juce::Colour colour)
{
    const Area area { (w - caption.width * w) * 0.5f, caption.y * h, caption.width * w, caption.height * h };

    // The font is higher than the rectangle, so the text reaches past it.
    if (! isDirty (g, area.expanded (0.0f, caption.fontHeight * h)))
        return;

    g.setColour (colour);
    g.setFont (caption.fontHeight * h);
    g.drawText (caption.text, area, juce::Justification::centred, false);
}

/** Draws a centred line in the current font, narrowed where the area would cut letters off. */
void drawWhole (juce::Graphics& g, const juce::String& text, const Area& area)
{
    const juce::Graphics::ScopedSaveState saved (g);
    const auto font = g.getCurrentFont();
    const float room = area.getWidth() / font.getStringWidthFloat (text);
    g.setFont (font.withHorizontalScale (font.getHorizontalScale() * juce::jmin (1.0f, room)));
    g.drawText (text, area, juce::Justification::centred, false);
}
} // namespace

void MainEditorComponent::paint (juce::Graphics& g)
{
    g.setFont (*mainFont);

    if (! isResizing)
    {
        drawBackground (g);

        for (const auto& [x, y, width, height] : bottomBars)
            drawLabelBackground (g, x, y, width, height, lightGrey, true);
    }

    drawUpperBar (g);
    drawDorianVellLogo (g);
    drawThePresentsText (g);
    drawQuorvexLogoAndText (g);

    if (isShown (ShownWhen::fullyOn))
    {
        const auto& [x, y, width, height] = presetNameBar;
        drawLabelBackground (g, x, y, width, height, juce::Colours::black, false);
        drawOtherCaptions (g);
        drawSections (g);
    }

    if (isShown (ShownWhen::notResizing))
    {
        drawInputAndOutputSections (g);
        drawChannelNameBorderAndBg (g);
    }

    if (! isStereoConfig && ! isResizing)
        drawWarning (g);

    drawPluginBorder (g);
}

void MainEditorComponent::drawBackground (juce::Graphics& g)
{
    brushedGround.draw (
        g, getWidth(), getHeight(), CrzQ7Colours::q7darkGrey.brighter (colourSchemeBrightness));
}

void MainEditorComponent::drawLabelBackground (
    juce::Graphics& g, float x, float y, float width, float height, juce::Colour colour, bool gradient) const
{
    constexpr float cornerSize = 0.01f;
    const Area area { x * panelWidth(), y * panelHeight, width * panelWidth(), height * panelHeight };

    if (! isDirty (g, area))
        return;

    if (gradient)
        g.setGradientFill (juce::ColourGradient::vertical (colour, colour.withAlpha (0.0f), area));
    else
        g.setColour (colour);

    g.fillRoundedRectangle (area, cornerSize * panelHeight);
}

void MainEditorComponent::drawPluginBorder (juce::Graphics& g) const
{
    constexpr float cornerSize = 0.02f, thickness = 0.02f;
    g.setColour (juce::Colours::black);
    g.drawRoundedRectangle (
        { 0.0f, 0.0f, panelWidth(), panelHeight }, cornerSize * panelHeight, thickness * panelHeight);
}

void MainEditorComponent::drawUpperBar (juce::Graphics& g) const
{
    constexpr float barHeight = 0.04f;
    g.setColour (CrzQ7Colours::q7mainColour);
    g.fillRect (
        Area { 0.0f, 0.0f, panelWidth(), static_cast<float> (desktopHeight) * barHeight * panelScale });
}

void MainEditorComponent::drawDorianVellLogo (juce::Graphics& g) const
{
    constexpr float logoScale = 0.00026f, x = 0.01f, y = 0.019f;
    const auto transform =
        juce::AffineTransform::scale (static_cast<float> (desktopHeight) * logoScale * panelScale)
            .translated (x * panelWidth(), y * panelHeight);

    if (! isDirty (g, dorianVellLogo->getDrawableBounds().transformedBy (transform)))
        return;

    g.setColour (juce::Colours::black);
    dorianVellLogo->draw (g, 1.0f, transform);
}

void MainEditorComponent::drawThePresentsText (juce::Graphics& g) const
{
    constexpr float x = 0.48f, y = 0.013f, width = 0.3f, height = 0.04f;
    const auto area = Area { x, y, width, height } * panelHeight;

    if (! isDirty (g, area))
        return;

    g.setColour (juce::Colours::black);
    g.setFont (height * panelHeight);
    g.drawText ("presents", area, juce::Justification::topLeft, false);
}

void MainEditorComponent::drawQuorvexLogoAndText (juce::Graphics& g) const
{
    const auto w = panelWidth();
    const auto h = panelHeight;

    constexpr RelativeBounds logo { 0.761f, 0.928f, 0.08f, 0.05f };
    const Area logoArea { logo.x * w, logo.y * h, logo.width * w, logo.height * h };

    if (isDirty (g, logoArea))
        quorvexLogo->drawWithin (g, logoArea, juce::RectanglePlacement::centred, 1.0f);

    constexpr RelativeBounds text { 0.823f, 0.923f, 0.12f, 0.061f };
    const Area textArea { text.x * w, text.y * h, text.width * w, text.height * h };

    if (isDirty (g, textArea))
    {
        g.setColour (juce::Colours::black);
        g.setFont (text.height * h);
        drawWhole (g, "QUORVEXDSP", textArea);
    }
}

void MainEditorComponent::drawOtherCaptions (juce::Graphics& g) const
{
    drawCentred (g, panCaption, panelWidth(), panelHeight, captionColour (false));
    drawCentred (g, stereoWidthCaption, panelWidth(), panelHeight, captionColour (monoOn));

    if (layoutManager == nullptr)
        return;

    const auto draw = [&] (const char* text, const RelativeBounds& bounds, juce::Colour colour)
    {
        const auto& [x, y, width, height] = bounds;
        layoutManager->drawText (g, text, x, y, width, height, juce::Justification::centred, colour);
    };

    draw ("FREQUENCY", frequencyCaption, captionColour (! safeBassOn));
    draw ("PRESET:", presetCaption, captionColour (false));
}

void MainEditorComponent::drawSections (juce::Graphics& g) const
{
    if (layoutManager == nullptr)
        return;

    for (const auto& [x, y, width, height] : sections)
        layoutManager->drawSectionBackground (g, x, y, width, height);

    if (expertMode)
        for (const auto& [x, y, width, height] : expertSections)
            layoutManager->drawSectionBackground (g, x, y, width, height);
}

void MainEditorComponent::drawInputAndOutputSections (juce::Graphics& g) const
{
    if (layoutManager == nullptr)
        return;

    for (const auto& row : inOutSections)
    {
        const auto& section = row.section;
        const auto& caption = row.captionBounds;
        layoutManager->drawSectionBackground (g, section.x, section.y, section.width, section.height);
        layoutManager->drawText (g,
                                 row.caption,
                                 caption.x,
                                 caption.y,
                                 caption.width,
                                 caption.height,
                                 juce::Justification::centred,
                                 juce::Colours::black);
    }
}

void MainEditorComponent::drawChannelNameBorderAndBg (juce::Graphics& g) const
{
    constexpr RelativeBounds border { 0.72816676f, 0.015f, 0.22f, 0.06f };
    constexpr float cornerSize = 0.01f, thickness = 0.005f;
    g.setColour (channelNameColour());
    g.drawRoundedRectangle ({ border.x * panelWidth(),
                              border.y * panelHeight,
                              border.width * panelWidth(),
                              border.height * panelHeight },
                            cornerSize * panelHeight,
                            thickness * panelHeight);
}

void MainEditorComponent::drawWarning (juce::Graphics& g) const
{
    constexpr float boxSize = 0.5f, cornerSize = 0.02f, thickness = 0.02f, lightness = 0.4f;
    constexpr float fontHeight = 0.061f, minimumTextScale = 0.1f;
    const auto box = Area { panelWidth(), panelHeight } * boxSize
                     + juce::Point<float> { panelWidth(), panelHeight } * (boxSize * 0.5f);

    g.setColour (CrzQ7Colours::q7darkGrey.brighter (lightness));
    g.fillRoundedRectangle (box, cornerSize * panelHeight);
    g.setColour (CrzQ7Colours::q7mainColour);
    g.drawRoundedRectangle (box, cornerSize * panelHeight, thickness * panelHeight);

    g.setColour (juce::Colours::black);
    g.setFont (fontHeight * panelHeight);
    g.drawFittedText ("THIS PLUGIN WORKS ONLY\nON STEREO TRACKS !!!",
                      box.toType<int>(),
                      juce::Justification::centred,
                      2,
                      minimumTextScale);
}
