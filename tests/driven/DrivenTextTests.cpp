// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// What is typed with a real keyboard.

#include "DrivenEditor.h"

#include "support/NamedRows.h"

#include <gmock/gmock.h>

namespace
{
using testing::ElementsAre;

struct ValueCase
{
    const char* name;
    const char* id; ///< of a label, or of a knob with its number below
    bool isKnob;
    ParameterId parameter;
    const char* typed;
    float value; ///< normalised
};

constexpr ValueCase valueCases[] = {
    { "Width", "stereoWidthLabel", false, ParameterId::stereoWidth, "150", 0.75f },
    { "WidthWithUnit", "stereoWidthLabel", false, ParameterId::stereoWidth, "40 %", 0.2f },
    { "PanToTheLeft", "panLabel", false, ParameterId::pan, "L20", 0.4f },
    { "PanToTheRight", "panLabel", false, ParameterId::pan, "R50", 0.75f },
    { "Gain", "inputGainSlider", true, ParameterId::inputGain, "6dB", 0.75f },
    { "GainWithDecimalComma", "outputGainSlider", true, ParameterId::outputGain, "+ 1,2", 0.55f },
};

class DrivenValues : public DrivenEditor, public testing::WithParamInterface<ValueCase>
{
};

TEST_P (DrivenValues, AreTakenOverWithReturn)
{
    const auto& row = GetParam();
    auto& edited = row.isKnob ? *findChildOfClass<juce::Label> (control (row.id)) : label (row.id);
    const int stepsBefore = countUndoSteps();

    person.doubleClick (edited);
    ASSERT_TRUE (waitUntil ([&] { return edited.isBeingEdited(); }));
    enter (row.typed);
    EXPECT_TRUE (waitUntil ([&] { return ! edited.isBeingEdited(); }));
    EXPECT_NEAR (valueOf (row.parameter), row.value, 2.0e-4f);
    EXPECT_EQ (countUndoSteps(), stepsBefore + 1);
}

TEST_P (DrivenValues, AreDroppedWithEscape)
{
    const auto& row = GetParam();
    auto& edited = row.isKnob ? *findChildOfClass<juce::Label> (control (row.id)) : label (row.id);
    const auto text = edited.getText();
    const float before = valueOf (row.parameter);

    person.doubleClick (edited);
    ASSERT_TRUE (waitUntil ([&] { return edited.isBeingEdited(); }));
    person.typeOver (row.typed);
    person.hit (TestDevices::Key::escape);
    EXPECT_TRUE (waitUntil ([&] { return ! edited.isBeingEdited(); }));
    EXPECT_EQ (valueOf (row.parameter), before);
    EXPECT_EQ (edited.getText(), text);
}

INSTANTIATE_TEST_SUITE_P (Texts, DrivenValues, testing::ValuesIn (valueCases), rowName<ValueCase>);

class DrivenNames : public DrivenEditor
{
};

TEST_F (DrivenNames, AChannelIsNamedAfterOneClick)
{
    auto& name = label ("channelNameLabel");
    person.click (name);
    ASSERT_TRUE (waitUntil ([&] { return name.isBeingEdited(); }));
    enter ("Lead Vox");
    EXPECT_TRUE (waitUntil ([&] { return processor->getChannelName() == "Lead Vox"; }))
        << processor->getChannelName();
    EXPECT_EQ (name.findColour (juce::Label::textColourId), juce::Colours::black);

    // Without discarding: a click elsewhere takes the text over.
    person.click (name);
    ASSERT_TRUE (waitUntil ([&] { return name.isBeingEdited(); }));
    person.typeOver ("Choir");
    person.click (control ("monoButton"));
    EXPECT_TRUE (waitUntil ([&] { return processor->getChannelName() == "Choir"; }))
        << processor->getChannelName();
}

TEST_F (DrivenNames, APresetIsRenamedAfterTwoAndUndoTakesItBack)
{
    auto& name = label ("presetNameLabel");
    const auto before = processor->getCurrentPresetName();
    person.click (name);
    person.doubleClick (name);
    ASSERT_TRUE (waitUntil ([&] { return name.isBeingEdited(); }));
    enter ("My/ Track*");
    EXPECT_TRUE (waitUntil ([&] { return processor->getCurrentPresetName().startsWith ("My Track"); }))
        << processor->getCurrentPresetName();

    // The arrows look at the history again when a parameter changes.
    clickUntil ("monoButton", [&] { return valueOf (ParameterId::mono) == 1.0f; });
    clickUntil ("undoButton", [&] { return valueOf (ParameterId::mono) == 0.0f; });
    clickUntil ("undoButton", [&] { return processor->getCurrentPresetName().startsWith (before); });
    EXPECT_EQ (name.getText(), processor->getCurrentPresetName());
}

TEST_F (DrivenNames, ANameOfBlanksIsRefused)
{
    auto& name = label ("presetNameLabel");
    person.doubleClick (name);
    ASSERT_TRUE (waitUntil ([&] { return name.isBeingEdited(); }));
    enter ("   ");
    EXPECT_TRUE (waitUntil ([&] { return infoText() == "PRESET NAME: new preset name not accepted !!!"; }));
    EXPECT_EQ (name.getText(), processor->getProgramName (0));
}

TEST_F (DrivenNames, SpaceIsForTheHostUnlessATextIsTyped)
{
    person.hit (TestDevices::Key::space);
    EXPECT_TRUE (waitUntil ([&] { return numSpaces == 1; }));

    // A button that was clicked does not keep it.
    person.click (control ("monoButton"));
    person.hit (TestDevices::Key::space);
    EXPECT_TRUE (waitUntil ([&] { return numSpaces == 2; }));

    auto& name = label ("channelNameLabel");
    person.click (name);
    ASSERT_TRUE (waitUntil ([&] { return name.isBeingEdited(); }));
    enter ("A B");
    EXPECT_TRUE (waitUntil ([&] { return processor->getChannelName() == "A B"; }));
    EXPECT_EQ (numSpaces, 2);
}

class DrivenSaving : public DrivenEditor
{
protected:
    juce::File folder() const { return processor->getUserPresetsFolder(); }

    juce::TextEditor& nameEntry()
    {
        return *findChildOfClass<juce::TextEditor> (control ("managePresetsComponent"));
    }

    void openPanel()
    {
        clickUntil ("saveButton", [&] { return control ("managePresetsComponent").isShowing(); });
        ASSERT_TRUE (waitUntil ([&] { return nameEntry().hasKeyboardFocus (false); }));
    }
};

TEST_F (DrivenSaving, WritesAFileUnderTheTypedName)
{
    processor->setParamAndNotifyHost ("Pan", 0.25f, true);
    openPanel();
    EXPECT_FALSE (control ("muteAllButton").isVisible());

    person.type ("Driven/ 1"); // the old name is selected, and no file name takes a slash
    person.hit (TestDevices::Key::returnKey);
    EXPECT_TRUE (waitUntil ([&] { return infoText() == "SAVE: OK, user preset was saved !"; }));
    EXPECT_TRUE (folder().getChildFile ("Driven 1.q7p").existsAsFile());
    EXPECT_EQ (label ("presetNameLabel").getText(), "Driven 1");
    EXPECT_TRUE (control ("muteAllButton").isVisible());
}

TEST_F (DrivenSaving, EscapeRestoresTheNameAndCancelCloses)
{
    openPanel();
    const auto before = nameEntry().getText();
    const auto filesBefore = folder().getNumberOfChildFiles (juce::File::findFiles);
    person.type ("something else");
    ASSERT_TRUE (waitUntil ([&] { return nameEntry().getText() == "something else"; }));
    person.hit (TestDevices::Key::escape);
    EXPECT_TRUE (waitUntil ([&] { return nameEntry().getText() == before; }));
    EXPECT_TRUE (control ("managePresetsComponent").isShowing());

    person.click (*findButton (control ("managePresetsComponent"), "CANCEL"));
    EXPECT_TRUE (waitUntil ([&] { return infoText() == "CANCEL: preset was NOT saved ..."; }));
    EXPECT_FALSE (control ("managePresetsComponent").isVisible());
    EXPECT_EQ (folder().getNumberOfChildFiles (juce::File::findFiles), filesBefore);
}
} // namespace
