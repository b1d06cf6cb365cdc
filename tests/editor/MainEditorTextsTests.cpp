// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// That every caption, button and label of the panel is written to its last letter, in each state and size.

#include "EditorUnderTest.h"
#include "PaintedTexts.h"

#include <editor/CrzQ7LookAndFeelV1.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace
{
/** A state of the panel, and what it writes there besides its buttons and labels. */
struct TextCase
{
    const char* name;
    void (*enter) (EditorUnderTest& test);
    std::vector<const char*> captions;
};

constexpr auto* makersCaption = "presents";
constexpr auto* makersName = "QUORVEXDSP";
constexpr auto* fieldCaptions = "LEFT RIGHT STEREO WIDTH: PAN:"; // written one after the other in one colour

const std::vector<const char*> captionsOfAllControls { makersCaption,  makersName,  fieldCaptions,
                                                       "INPUT",        "OUTPUT",    "PAN",
                                                       "STEREO WIDTH", "FREQUENCY", "PRESET:" };

void switchOn (EditorUnderTest& test, ParameterId id)
{
    test.panel().setEditorParameterValue (indexOf (id), 1.0f);
}

const TextCase textCases[] = {
    { "Expert",
      [] (EditorUnderTest& test)
      {
          test.processor.setExpertMode (true);
          test.panel().updateAll();
          switchOn (test, ParameterId::muteMid);
          switchOn (test, ParameterId::safeBass);
      },
      captionsOfAllControls },
    { "Dimmed", [] (EditorUnderTest& test) { switchOn (test, ParameterId::mono); }, captionsOfAllControls },
    { "Bypassed",
      [] (EditorUnderTest& test) { switchOn (test, ParameterId::bypass); },
      { makersCaption, makersName, "INPUT", "OUTPUT", "BYPASS" } },
    { "MutedAll",
      [] (EditorUnderTest& test) { switchOn (test, ParameterId::muteAll); },
      { makersCaption, makersName, "INPUT", "OUTPUT", "MUTE ALL" } },
    { "Saving",
      [] (EditorUnderTest& test) { test.panel().showManagePresetsComponent(); },
      { makersCaption, makersName, fieldCaptions, "INPUT", "OUTPUT", "Preset Name:" } },
    { "WrongLayout",
      [] (EditorUnderTest& test) { test.panel().setStereoConfig (false); },
      { makersCaption, makersName, "THIS PLUGIN WORKS ONLY\nON STEREO TRACKS !!!" } },
    { "Resizing",
      [] (EditorUnderTest& test) { test.panel().resizingStarted(); },
      { makersCaption, makersName } },
};

/** The texts of the buttons and labels that show below a component. */
void addTextsOfControls (juce::Component& parent, std::vector<juce::String>& texts)
{
    for (auto* child : parent.getChildren())
    {
        if (! child->isVisible())
            continue;

        if (auto* label = dynamic_cast<juce::Label*> (child))
            texts.push_back (label->getText());
        else if (auto* textButton = dynamic_cast<juce::TextButton*> (child))
            texts.push_back (textButton->getButtonText());
        else if (auto* toggle = dynamic_cast<juce::ToggleButton*> (child))
            texts.push_back (toggle->getButtonText());

        addTextsOfControls (*child, texts);
    }
}

/** Each text must have been painted as often as it is wanted, whole and by itself. */
void expectPainted (EditorUnderTest& test, juce::Component& painted, std::vector<juce::String> wanted)
{
    addTextsOfControls (painted, wanted);
    const auto font = test.editor->getLookAndFeel()->getLabelFont (test.control<juce::Label> ("titleLabel"));
    const auto texts = paintedTexts (painted);

    for (const auto& text : wanted)
    {
        const auto glyphs = glyphsOf (text, font);

        if (! glyphs.empty())
        {
            EXPECT_GE (std::count (texts.begin(), texts.end(), glyphs),
                       std::count (wanted.begin(), wanted.end(), text))
                << text << " at " << test.panel().getHeight();
        }
    }
}

class MainEditorTexts : public testing::TestWithParam<TextCase>
{
};

TEST_P (MainEditorTexts, AreWrittenToTheLastLetter)
{
    for (const int height : { 250, 400, 600, 800 })
    {
        EditorUnderTest test;
        test.processor.setEditorHeight (height);
        test.editor->updateEditorSize();
        GetParam().enter (test);

        const auto& captions = GetParam().captions;
        expectPainted (test, test.panel(), std::vector<juce::String> (captions.begin(), captions.end()));
    }
}

INSTANTIATE_TEST_SUITE_P (States,
                          MainEditorTexts,
                          testing::ValuesIn (textCases),
                          [] (const auto& row) { return std::string (row.param.name); });

TEST (MainEditorInfoScreenTexts, AreWrittenToTheLastLetterOnTheButtons)
{
    for (const int height : { 250, 400, 600, 800 })
    {
        EditorUnderTest test;
        test.processor.setEditorHeight (height);
        test.editor->updateEditorSize();
        test.panel().showInfoComponent();
        expectPainted (test, test.control<juce::Component> ("infoComponent"), {});
    }
}

/** Writes one text, squeezed into its bounds or simply cut. */
struct Writer : juce::Component
{
    void paint (juce::Graphics& g) override
    {
        g.setFont (font);
        g.setColour (juce::Colours::black);

        if (isFitted)
            g.drawFittedText (text, getLocalBounds(), juce::Justification::left, 1);
        else
            g.drawText (text, getLocalBounds(), juce::Justification::left, false);
    }

    juce::Font font;
    juce::String text;
    bool isFitted = false;
};

TEST (PaintedTexts, NoticesTextsThatAreCutOrEndInDots)
{
    constexpr int wide = 400, narrow = 40, high = 20; // the text is some 70 pixels long
    CrzQ7LookAndFeelV1 look;
    juce::Label label;
    Writer writer;
    writer.font = look.getLabelFont (label).withHeight (static_cast<float> (high));
    writer.text = "STEREO WIDTH";
    const auto whole = glyphsOf (writer.text, writer.font);

    for (const bool isFitted : { false, true })
    {
        for (const int width : { wide, narrow })
        {
            writer.isFitted = isFitted;
            writer.setBounds (0, 0, width, high);
            const auto texts = paintedTexts (writer);
            EXPECT_EQ (std::count (texts.begin(), texts.end(), whole), width == wide ? 1 : 0)
                << (isFitted ? "fitted into " : "cut to ") << width;
        }
    }
}
} // namespace
