// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The names that are typed into the panel, its bottom line, and how it knows a menu.

#include "PanelControls.h"

#include <gtest/gtest.h>

namespace
{
juce::Time secondsFromNow (double seconds)
{
    return juce::Time::getCurrentTime() + juce::RelativeTime::seconds (seconds);
}

//==================================================================================================
// Names

TEST (MainEditorNames, PresetNameIsFilteredUndoableAndNeverEmpty)
{
    EditorUnderTest test;
    auto& label = test.control<juce::Label> ("presetNameLabel");
    auto& infoLine = test.control<juce::Label> ("bottomInfoLabel");
    const auto original = label.getText();

    label.setText ("  My/ *Preset ", juce::sendNotificationSync);
    EXPECT_EQ (label.getText(), "My Preset");
    EXPECT_TRUE (test.processor.getCurrentPresetName().startsWith ("My Preset"));

    label.setText ("/// ", juce::sendNotificationSync);
    EXPECT_TRUE (label.getText().startsWith ("My Preset"));
    EXPECT_EQ (infoLine.getText(), "PRESET NAME: new preset name not accepted !!!");

    click (test, "undoButton");
    EXPECT_EQ (label.getText(), original);
}

TEST (MainEditorNames, ChannelNameOutlivesTheEditor)
{
    EditorUnderTest test;
    const auto colour = [&]
    { return test.control<juce::Label> ("channelNameLabel").findColour (juce::Label::textColourId); };
    const auto text = [&] { return test.control<juce::Label> ("channelNameLabel").getText(); };
    const auto unnamed = juce::Colour (255, 53, 0).darker (0.2f);

    EXPECT_EQ (text(), "No Channel Name");
    EXPECT_EQ (colour(), unnamed);

    test.control<juce::Label> ("channelNameLabel").setText ("  Strings ", juce::sendNotificationSync);
    test.close();
    test.open();
    EXPECT_EQ (text(), "Strings");
    EXPECT_EQ (colour(), juce::Colours::black);

    for (const char* noName : { "   ", "No Channel Name" })
    {
        test.control<juce::Label> ("channelNameLabel").setText ("x", juce::sendNotificationSync);
        test.control<juce::Label> ("channelNameLabel").setText (noName, juce::sendNotificationSync);
        EXPECT_EQ (text(), "No Channel Name");
        EXPECT_EQ (test.processor.getChannelName(), "No Channel Name");
        EXPECT_EQ (colour(), unnamed);
    }
}

TEST (MainEditorNames, ChannelNameIsTypedAsHighAsItIsShown)
{
    EditorUnderTest test;
    auto& label = test.control<juce::Label> ("channelNameLabel");
    juce::TextEditor entry;
    test.panel().editorShown (&label, entry);
    EXPECT_EQ (entry.getFont().getHeight(), static_cast<float> (label.getHeight()));
}

//==================================================================================================
// The bottom line

TEST (MainEditorNames, BottomLineShowsTooltips)
{
    EditorUnderTest test;
    auto& line = test.control<juce::Label> ("bottomInfoLabel");
    auto& panel = test.panel();

    EXPECT_EQ (line.getText(), "WideLoom v1.1");
    panel.poll (juce::Time::getCurrentTime());
    EXPECT_EQ (line.getText(), "");

    panel.componentHovered (findChildWithID (panel, "stereoComponent"));
    EXPECT_EQ (line.getText(), "this shows the stereo field");
    panel.componentHovered (nullptr);
    panel.componentHovered (findChildWithID (panel, "panLawGroup")); // a bare component has no tooltip
    EXPECT_EQ (line.getText(), "this shows the stereo field");
    panel.componentHovered (&panel);
    EXPECT_EQ (line.getText(), "");

    panel.setNewInfoText ("plain", false);
    panel.poll (secondsFromNow (7.0));
    EXPECT_EQ (line.getText(), "");
}

TEST (MainEditorNames, BottomLineDoesNotAgeWhileResizing)
{
    EditorUnderTest test;
    auto& line = test.control<juce::Label> ("bottomInfoLabel");
    test.panel().setNewInfoText ("important", true);
    test.panel().resizingStarted();
    test.panel().poll (secondsFromNow (100.0));
    EXPECT_EQ (line.getText(), "important");
    test.panel().resizingStopped();
    EXPECT_EQ (line.getText(), "important"); // the new size is plain text
    test.panel().poll (secondsFromNow (4.0));
    EXPECT_EQ (line.getText(), "");
}

//==================================================================================================
// Saving

TEST (MainEditorNames, SavingReportsHowItWent)
{
    EditorUnderTest test;
    auto& line = test.control<juce::Label> ("bottomInfoLabel");
    const auto folder = test.processor.getUserPresetsFolder();
    const auto file = folder.getChildFile ("Init.q7p");

    click (test, "saveButton");
    test.panel().cancelUserPresetSaving();
    EXPECT_EQ (line.getText(), "CANCEL: preset was NOT saved ...");
    EXPECT_FALSE (file.exists());

    click (test, "saveButton");
    test.panel().saveUserPreset();
    EXPECT_EQ (line.getText(), "SAVE: OK, user preset was saved !");
    EXPECT_TRUE (file.existsAsFile());

    // A folder stands where the file should go.
    file.deleteFile();
    file.createDirectory();
    file.getChildFile ("something").create();
    click (test, "saveButton");
    test.panel().saveUserPreset();
    EXPECT_EQ (line.getText(), "SAVE: FAILED, user preset was NOT saved !");
    EXPECT_TRUE (file.isDirectory());
    EXPECT_FALSE (findChildWithID (test.panel(), "managePresetsComponent")->isVisible());
    file.deleteRecursively();
}

//==================================================================================================
// The settings menu's watch

TEST (MainEditorNames, KnowsAMenuByTheNearestName)
{
    juce::Component menu { "menu" }, other { "other" }, child, grandchild, orphan;
    menu.addAndMakeVisible (child);
    child.addAndMakeVisible (grandchild);
    EXPECT_TRUE (MainEditorComponent::belongsToMenu (&menu));
    EXPECT_TRUE (MainEditorComponent::belongsToMenu (&grandchild));
    EXPECT_FALSE (MainEditorComponent::belongsToMenu (&orphan));
    EXPECT_FALSE (MainEditorComponent::belongsToMenu (nullptr));
    menu.addAndMakeVisible (other);
    other.addAndMakeVisible (orphan);
    EXPECT_FALSE (MainEditorComponent::belongsToMenu (&orphan));
}
} // namespace
