// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// What each control is called, what it says in the bottom line, and how each label is edited.

#include "EditorUnderTest.h"

#include <gtest/gtest.h>

#include <set>

namespace
{
/** Calls `visit` for every control of the panel that has a tooltip of its own. */
template <typename Visit>
void forEachWithTooltip (juce::Component& parent, const Visit& visit)
{
    for (auto* child : parent.getChildren())
    {
        if (auto* client = dynamic_cast<juce::SettableTooltipClient*> (child);
            client != nullptr && client->getTooltip().isNotEmpty())
            visit (*child, client->getTooltip());

        if (dynamic_cast<juce::Slider*> (child) == nullptr) // its text box says the same
            forEachWithTooltip (*child, visit);
    }
}

TEST (MainEditorTooltips, StandInTheBottomLineWhileTheMouseIsOverTheirControls)
{
    EditorUnderTest test;
    std::set<juce::String> seen;

    forEachWithTooltip (test.panel(),
                        [&] (juce::Component& control, const juce::String& tooltip)
                        {
                            test.panel().setNewInfoText ("another", false);
                            test.panel().componentHovered (&control);
                            EXPECT_EQ (test.control<juce::Label> ("bottomInfoLabel").getText(), tooltip);
                            EXPECT_TRUE (seen.insert (tooltip).second) << "twice: " << tooltip;
                        });

    // All but the meters and the line itself, and the two buttons of the saving panel.
    EXPECT_EQ (seen.size(), 40u);
}

TEST (MainEditorTooltips, BeginWithTheCaptionsOfTheirButtons)
{
    EditorUnderTest test;

    for (const juce::String name :
         { "muteAll", "bypass", "safeBass", "swapLr", "phaseFlip", "mono", "muteMid" })
        EXPECT_TRUE (test.control<juce::Button> (name + "Button")
                         .getTooltip()
                         .startsWith (test.control<juce::Button> (name + "Button").getButtonText() + ":"))
            << name;
}

struct LabelCase
{
    const char* id;
    const char* tooltip; ///< as it begins
    int justification;
    bool editOnSingleClick, editOnDoubleClick, lossOfFocusDiscards;
};

constexpr LabelCase labelCases[] = {
    { "titleLabel", "WideLoom v1.", juce::Justification::centred, false, false, false },
    { "bottomInfoLabel", "", juce::Justification::bottomLeft, false, false, false },
    { "channelNameLabel", "CHANNEL NAME", juce::Justification::centred, true, false, false },
    { "presetNameLabel", "PRESET NAME:", juce::Justification::centred, false, true, true },
    { "stereoWidthLabel", "STEREO WIDTH", juce::Justification::left, false, true, true },
    { "panLabel", "PAN: Use sli", juce::Justification::right, false, true, true },
};

TEST (MainEditorLabels, AreAlignedAndEditedByTheirRules)
{
    EditorUnderTest test;

    for (const auto& row : labelCases)
    {
        SCOPED_TRACE (row.id);
        auto& label = test.control<juce::Label> (row.id);
        EXPECT_EQ (label.getTooltip().substring (0, 12), row.tooltip);
        EXPECT_EQ (label.getJustificationType().getFlags(), row.justification);
        EXPECT_EQ (label.isEditableOnSingleClick(), row.editOnSingleClick);
        EXPECT_EQ (label.isEditableOnDoubleClick(), row.editOnDoubleClick);
        EXPECT_EQ (label.doesLossOfFocusDiscardChanges(), row.lossOfFocusDiscards);
    }
}
} // namespace
