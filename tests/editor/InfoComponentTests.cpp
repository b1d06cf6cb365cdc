// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The info screen: its texts, which of its buttons are enabled, and what they do.

#include "EditorUnderTest.h"
#include "PaintedPicture.h"

#include <editor/CrzQ7Colours.h>
#include <editor/InfoComponent.h>
#include <editor/InfoTexts.h>
#include <engine/NativeWrapperType.h>

#include <gtest/gtest.h>
#include <support/NamedRows.h>
#include <support/Painting.h>

#include <string>
#include <vector>

namespace
{
struct FormatCase
{
    const char* name;
    juce::AudioProcessor::WrapperType type;
    const char* firstLine;
    const char* description;
};

// clang-format off
const FormatCase formatCases[] = {
    { "Vst", juce::AudioProcessor::wrapperType_VST, "WideLoom v1.1 (VST 32bit)", "VST Plugin Technology by Steinberg\n" },
    { "Vst3", juce::AudioProcessor::wrapperType_VST3, "WideLoom v1.1 (VST 32bit)", "VST Plugin Technology by Steinberg\n" },
    { "Au", juce::AudioProcessor::wrapperType_AudioUnit, "WideLoom v1.1 (AU 32bit)", "Audio Unit Plugin\n" },
    { "AuV3", juce::AudioProcessor::wrapperType_AudioUnitv3, "WideLoom v1.1 (AU 32bit)", "Audio Unit Plugin\n" },
    { "NativeHost", nativeHostWrapperType, "WideLoom v1.1 (RTAS 32bit)", "RTAS Plugin for Pro Tools\n" },
    { "Aax", juce::AudioProcessor::wrapperType_AAX, "WideLoom v1.1 (AAX 32bit)", "AAX Plugin for Pro Tools\n" },
    { "Lv2", juce::AudioProcessor::wrapperType_LV2, "WideLoom v1.1", "" },
    { "Undefined", juce::AudioProcessor::wrapperType_Undefined, "WideLoom v1.1", "" },
};
// clang-format on

class InfoComponentFormat : public testing::TestWithParam<FormatCase>
{
};

/** The text areas in the order in which they stand: credits, legal notice. */
std::vector<juce::TextEditor*> textAreas (juce::Component& screen)
{
    std::vector<juce::TextEditor*> areas;

    for (auto* child : screen.getChildren())
        if (auto* area = dynamic_cast<juce::TextEditor*> (child))
            areas.push_back (area);

    return areas;
}

TEST_P (InfoComponentFormat, ShowsInVersionAndLegalText)
{
    const auto& row = GetParam();
    juce::AudioProcessor::setTypeOfNextNewPlugin (row.type);
    EditorUnderTest test;
    juce::AudioProcessor::setTypeOfNextNewPlugin (juce::AudioProcessor::wrapperType_Undefined);

    const auto areas = textAreas (*findChildOfClass<InfoComponent> (test.panel()));
    ASSERT_EQ (areas.size(), 2u);

    auto lines = juce::StringArray::fromLines (areas[0]->getText());
    ASSERT_EQ (lines.size(), 9);
    EXPECT_EQ (lines[0], row.firstLine);
    EXPECT_EQ (lines[6], "Concept: Dorian Vell / Ilse Marrow");

    const auto legal = areas[1]->getText();
    const auto afterNotice = legal.fromFirstOccurrenceOf ("\n", false, false);
    EXPECT_TRUE (afterNotice.startsWith (juce::String (row.description) + "( built on: ")) << legal;
    EXPECT_TRUE (legal.endsWith (" )")) << legal;
}

INSTANTIATE_TEST_SUITE_P (Formats, InfoComponentFormat, testing::ValuesIn (formatCases), rowName<FormatCase>);

//==================================================================================================

class InfoComponentTest : public testing::Test
{
protected:
    ~InfoComponentTest() override
    {
        // The ratio goes to the settings file, which other tests read too.
        test.processor.resetDefaultEditorDesktopHeightRatio();
    }

    InfoComponent& screen() { return *findChildOfClass<InfoComponent> (test.panel()); }

    void click (const juce::String& caption) { screen().buttonClicked (findButton (screen(), caption)); }

    /** The captions of the enabled buttons, in the order of the screen. */
    std::string enabledButtons()
    {
        juce::StringArray captions;

        for (auto* child : screen().getChildren())
            if (auto* button = dynamic_cast<juce::TextButton*> (child);
                button != nullptr && button->isEnabled())
                captions.add (button->getButtonText());

        return captions.joinIntoString (", ").toStdString();
    }

    void resizeTo (int height)
    {
        test.processor.setEditorHeight (height);
        test.editor->updateEditorSize();
    }

    EditorUnderTest test;
};

TEST_F (InfoComponentTest, EnablesTheSizeButtonsThatWouldChangeSomething)
{
    EXPECT_EQ (enabledButtons(), "CLOSE");

    test.editor->setSize (900, 600); // as a drag does it
    EXPECT_EQ (enabledButtons(), "RESIZE TO DEFAULT, SET CURRENT AS DEFAULT, CLOSE");

    click ("SET CURRENT AS DEFAULT");
    EXPECT_EQ (test.processor.getDefaultEditorHeight(), 600);
    EXPECT_EQ (test.editor->getHeight(), 600);
    EXPECT_EQ (enabledButtons(), "RESET DEFAULT SIZE, CLOSE");

    click ("RESET DEFAULT SIZE");
    EXPECT_EQ (test.processor.getDefaultEditorHeight(), 500);
    EXPECT_EQ (test.editor->getHeight(), 600);
    EXPECT_EQ (enabledButtons(), "RESIZE TO DEFAULT, SET CURRENT AS DEFAULT, CLOSE");

    click ("RESIZE TO DEFAULT");
    EXPECT_EQ (test.editor->getBounds(), juce::Rectangle<int> (0, 0, 750, 500));
    EXPECT_EQ (enabledButtons(), "CLOSE");

    test.panel().showInfoComponent();
    click ("CLOSE");
    EXPECT_FALSE (screen().isVisible());
}

TEST_F (InfoComponentTest, ClearsTheUndoHistory)
{
    const auto& undo = test.control<juce::Button> ("undoButton");
    const auto& redo = test.control<juce::Button> ("redoButton");

    test.processor.setParamAndNotifyHost ("Pan", 0.25f, true);
    test.panel().updateUndoButtons();
    EXPECT_EQ (enabledButtons(), "CLEAR UNDO HISTORY, CLOSE");
    EXPECT_TRUE (undo.isEnabled());

    test.processor.undoLastParameterChange();
    test.panel().updateUndoButtons();
    EXPECT_EQ (enabledButtons(), "CLEAR UNDO HISTORY, CLOSE"); // there is a redo
    EXPECT_TRUE (redo.isEnabled());

    click ("CLEAR UNDO HISTORY");
    EXPECT_EQ (enabledButtons(), "CLOSE");
    EXPECT_FALSE (undo.isEnabled());
    EXPECT_FALSE (redo.isEnabled());
}

struct BoundsCase
{
    const char* caption;
    juce::Rectangle<int> bounds; ///< pixels at 900 x 600
};

const BoundsCase boundsCases[] = {
    { "RESIZE TO DEFAULT", { 12, 18, 151, 42 } },
    { "SET CURRENT AS DEFAULT", { 12, 156, 151, 84 } },
    { "RESET DEFAULT SIZE", { 12, 336, 151, 84 } },
    { "CLEAR UNDO HISTORY", { 735, 456, 151, 84 } },
    { "CLOSE", { 374, 552, 151, 42 } },
};

TEST_F (InfoComponentTest, PlacesButtonsAndTexts)
{
    resizeTo (600);

    for (const auto& row : boundsCases)
    {
        const auto* button = findButton (screen(), row.caption);
        ASSERT_NE (button, nullptr) << row.caption;
        EXPECT_EQ (button->getBounds(), row.bounds) << row.caption;
    }

    const auto areas = textAreas (screen());
    EXPECT_EQ (areas[0]->getBounds(), juce::Rectangle<int> (198, 30, 540, 420));
    EXPECT_EQ (areas[1]->getBounds(), juce::Rectangle<int> (198, 420, 540, 156));
    EXPECT_FLOAT_EQ (areas[0]->getFont().getHeight(), 42.0f);
    EXPECT_FLOAT_EQ (areas[1]->getFont().getHeight(), 33.0f);
}

TEST_F (InfoComponentTest, FitsItsTextsAtEverySize)
{
    for (const int height : { 250, 400, 600, 800 })
    {
        resizeTo (height);

        for (const auto* area : textAreas (screen()))
        {
            const auto font = area->getFont();
            const auto lines = juce::StringArray::fromLines (area->getText());
            const int room = area->getWidth() - area->getLeftIndent() - area->getBorder().getLeftAndRight();

            for (const auto& line : lines)
                EXPECT_LT (font.getStringWidth (line), room) << line << " at " << height;

            EXPECT_LE (area->getTextHeight() + area->getTopIndent() + area->getBorder().getTopAndBottom(),
                       area->getHeight())
                << "at " << height;
        }
    }
}

/** A line of text. x and width are shares of the screen's width, y and height of its height. */
struct FactCase
{
    juce::String text;
    float x, y, width, height;
    int justification;
};

TEST_F (InfoComponentTest, WritesItsFactsInTheirPlaces)
{
    constexpr float screenWidth = 900.0f, screenHeight = 600.0f, fontHeight = 0.055f;
    constexpr int centred = juce::Justification::centred;
    constexpr int left = juce::Justification::left;

    resizeTo (600);
    test.processor.setPlayConfigDetails (2, 2, 48000.0, 16);
    juce::AudioBuffer<float> block (2, 16);
    block.clear();
    juce::MidiBuffer noMidi;
    test.processor.processBlock (block, noMidi);

    const auto* bits = juce::SystemStats::isOperatingSystem64Bit() ? "64 bit" : "32 bit";
    const FactCase facts[] = {
        { "CURRENT SIZE:", 0.035f, 0.13f, 0.13f, 0.05f, centred },
        { "900,600", 0.035f, 0.18f, 0.13f, 0.05f, centred },
        { "DEFAULT SIZE:", 0.035f, 0.43f, 0.13f, 0.05f, centred },
        { "750,500", 0.035f, 0.48f, 0.13f, 0.05f, centred },
        { "SAMPLERATE:", 0.82f, 0.03f, 0.18f, 0.02f, left },
        { "48000 Hz", 0.82f, 0.08f, 0.18f, 0.02f, left },
        { juce::SystemStats::getOperatingSystemName(), 0.82f, 0.18f, 0.18f, 0.02f, left },
        { bits, 0.82f, 0.23f, 0.18f, 0.02f, left },
        { "Host / DAW :", 0.82f, 0.33f, 0.18f, 0.02f, left },
        { juce::PluginHostType().getHostDescription(), 0.82f, 0.38f, 0.18f, 0.02f, left },
        { "In / Out :", 0.82f, 0.48f, 0.18f, 0.02f, left },
        { "2 / 2", 0.82f, 0.53f, 0.18f, 0.02f, left },
    };

    juce::Image expected (juce::Image::ARGB, 900, 600, true);

    {
        juce::Graphics g (expected);
        g.fillAll (CrzQ7Colours::q7complementColourA);
        g.setFont (textAreas (screen())[0]->getFont().withHeight (screenHeight * fontHeight));
        g.setColour (juce::Colours::black);

        for (const auto& fact : facts)
        {
            const juce::Rectangle<int> box (static_cast<int> (fact.x * screenWidth),
                                            static_cast<int> (fact.y * screenHeight),
                                            static_cast<int> (fact.width * screenWidth),
                                            static_cast<int> (fact.height * screenHeight));
            g.drawFittedText (fact.text, box, fact.justification, 1, 0.7f);
        }
    }

    const auto picture = paintedPicture (screen());
    EXPECT_EQ (picture.getPixelAt (450, 505), juce::Colours::lightgrey);
    EXPECT_EQ (picture.getPixelAt (450, 18), juce::Colours::black.brighter (0.5f)); // the frame

    // Between the buttons at the left, and right of the text areas above the button.
    for (const juce::Rectangle<int> area :
         { { 20, 61, 150, 94 }, juce::Rectangle<int> { 20, 241, 150, 94 }, { 738, 0, 162, 450 } })
        EXPECT_TRUE (sameImage (picture.getClippedImage (area).createCopy(),
                                expected.getClippedImage (area).createCopy()))
            << area.toString();
}

} // namespace
