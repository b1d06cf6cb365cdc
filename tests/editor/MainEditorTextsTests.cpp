// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// That every caption, button and label of the panel is written to its last letter, in each state and size.

#include "EditorUnderTest.h"
#include "PaintedTexts.h"

#include <editor/CrzQ7LookAndFeelV1.h>

#include <gtest/gtest.h>
#include <support/NamedRows.h>

#include <algorithm>
#include <utility>
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

// clang-format off
const std::vector<const char*> captionsOfAllControls {
    makersCaption, makersName, fieldCaptions, "INPUT", "OUTPUT", "PAN", "STEREO WIDTH", "FREQUENCY", "PRESET:"
};
// clang-format on

template <ParameterId id>
void switchOn (EditorUnderTest& test)
{
    test.panel().setEditorParameterValue (indexOf (id), 1.0f);
}

void showEverything (EditorUnderTest& test)
{
    test.processor.setExpertMode (true);
    test.panel().updateAll();
    switchOn<ParameterId::muteMid> (test);
    switchOn<ParameterId::safeBass> (test);
}

// clang-format off
const TextCase textCases[] = {
    { "Expert", showEverything, captionsOfAllControls },
    { "Dimmed", switchOn<ParameterId::mono>, captionsOfAllControls },
    { "Bypassed", switchOn<ParameterId::bypass>, { makersCaption, makersName, "INPUT", "OUTPUT", "BYPASS" } },
    { "MutedAll", switchOn<ParameterId::muteAll>, { makersCaption, makersName, "INPUT", "OUTPUT", "MUTE ALL" } },
    { "Saving", [] (EditorUnderTest& test) { test.panel().showManagePresetsComponent(); },
      { makersCaption, makersName, fieldCaptions, "INPUT", "OUTPUT", "Preset Name:" } },
    { "WrongLayout", [] (EditorUnderTest& test) { test.panel().setStereoConfig (false); },
      { makersCaption, makersName, "THIS PLUGIN WORKS ONLY\nON STEREO TRACKS !!!" } },
    { "InfoScreen", [] (EditorUnderTest& test) { test.panel().showInfoComponent(); }, {} },
    { "Resizing", [] (EditorUnderTest& test) { test.panel().resizingStarted(); }, { makersCaption, makersName } },
};
// clang-format on

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

/** A caption that the size of its button forces to be narrower than the face is. There are no others. */
struct NarrowedCaption
{
    const char* text;
    int lowest;  ///< height of the panel at which it is so, as at all greater ones
    float scale; ///< of its width, at least
};

constexpr NarrowedCaption narrowedCaptions[] = {
    { "EXPERT MODE", 250, 0.89f },
    { "RESET DEFAULT SIZE", 600, 0.97f },
};

/** How narrow a caption may be. */
float leastScaleOf (const juce::String& text, int height)
{
    for (const auto& row : narrowedCaptions)
        if (text == row.text && height >= row.lowest)
            return row.scale;

    return 1.0f;
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

        if (glyphs.empty())
            continue;

        const int height = test.panel().getHeight();
        std::ptrdiff_t numPainted = 0;

        for (const auto& one : texts)
        {
            if (one.glyphs != glyphs)
                continue;

            ++numPainted;
            EXPECT_GE (one.horizontalScale, leastScaleOf (text, height)) << text << " at " << height;
        }

        EXPECT_GE (numPainted, std::count (wanted.begin(), wanted.end(), text)) << text << " at " << height;
    }
}

void setHeight (EditorUnderTest& test, int height)
{
    test.processor.setEditorHeight (height);
    test.editor->updateEditorSize();
}

class MainEditorTexts : public testing::TestWithParam<TextCase>
{
};

TEST_P (MainEditorTexts, AreWrittenToTheLastLetter)
{
    for (const int height : { 250, 400, 600, 800 })
    {
        EditorUnderTest test;
        setHeight (test, height);
        GetParam().enter (test);

        const auto& captions = GetParam().captions;
        expectPainted (test, test.panel(), std::vector<juce::String> (captions.begin(), captions.end()));
    }
}

INSTANTIATE_TEST_SUITE_P (States, MainEditorTexts, testing::ValuesIn (textCases), rowName<TextCase>);

/** Calls `visit` with what each control below `parent` says in the bottom line. */
template <typename Visit>
void forEachTooltip (juce::Component& parent, const Visit& visit)
{
    for (auto* child : parent.getChildren())
    {
        if (auto* client = dynamic_cast<juce::SettableTooltipClient*> (child))
            visit (client->getTooltip());

        forEachTooltip (*child, visit);
    }
}

/** Whether a label writes all of a text, be it narrowed. */
bool isWhole (juce::Label& label, const juce::String& text)
{
    label.setText (text, juce::dontSendNotification);
    const auto glyphs = glyphsOf (text, label.getLookAndFeel().getLabelFont (label));
    const auto texts = paintedTexts (label);
    return glyphs.empty()
           || std::any_of (texts.begin(), texts.end(), [&] (auto& one) { return one.glyphs == glyphs; });
}

TEST (MainEditorLabelTexts, AreWholeWhateverTheyCanSay)
{
    for (const int height : { 250, 400, 600, 800 })
    {
        SCOPED_TRACE (height);
        EditorUnderTest test;
        setHeight (test, height);
        auto& infoLine = test.control<juce::Label> ("bottomInfoLabel");

        const auto expectAllValues = [&] (juce::Label& label, const auto& textOf)
        {
            for (int step = 0; step <= 1000; ++step)
                ASSERT_TRUE (isWhole (label, textOf (static_cast<float> (step) / 1000.0f))) << step;
        };

        for (const auto& [labelId, sliderId] : { std::pair { "stereoWidthLabel", "stereoWidthSlider" },
                                                 std::pair { "panLabel", "panSlider" },
                                                 std::pair { "", "inputGainSlider" },
                                                 std::pair { "", "safeBassFreqSlider" } })
        {
            auto& slider = test.control<juce::Slider> (sliderId);
            auto* label = findChildOfClass<juce::Label> (slider);
            expectAllValues (label != nullptr ? *label : test.control<juce::Label> (labelId),
                             [&] (float value) { return slider.getTextFromValue (value); });
        }

        for (const auto* message : { "PRESET NAME: new preset name not accepted !!!",
                                     "SAVE: FAILED, user preset was NOT saved !",
                                     "STEREO WIDTH: is 0%, because MONO is on ..." })
            EXPECT_TRUE (isWhole (infoLine, message)) << message;

        forEachTooltip (test.panel(),
                        [&] (const juce::String& tooltip)
                        { EXPECT_TRUE (isWhole (infoLine, tooltip)) << tooltip; });

        for (const auto& name : test.processor.getAllFactoryPresetNames())
            EXPECT_TRUE (isWhole (test.control<juce::Label> ("presetNameLabel"), name + "*")) << name;
    }
}

TEST (PaintedTexts, NoticesTextsThatAreCutOrEndInDots)
{
    CrzQ7LookAndFeelV1 look;
    juce::Label label ({}, "STEREO WIDTH");      // some 50 pixels long; too long for a label it ends in dots
    juce::ToggleButton toggle (label.getText()); // and here it is cut
    label.setLookAndFeel (&look);
    toggle.setLookAndFeel (&look);

    for (const int width : { 400, 20 })
        for (auto* component :
             { static_cast<juce::Component*> (&label), static_cast<juce::Component*> (&toggle) })
        {
            component->setSize (width, 20);
            const auto texts = paintedTexts (*component);
            const auto whole = glyphsOf (label.getText(), look.getLabelFont (label));
            EXPECT_EQ (
                std::any_of (texts.begin(), texts.end(), [&] (auto& one) { return one.glyphs == whole; }),
                width == 400);
        }

    label.setLookAndFeel (nullptr);
    toggle.setLookAndFeel (nullptr);
}
} // namespace
