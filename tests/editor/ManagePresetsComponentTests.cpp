// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The panel that names a preset: its entry, its keys and buttons, its place and its ground.

#include <editor/ManagePresetsComponent.h>

#include "DeliverMessages.h"
#include "PaintedPicture.h"

#include <engine/WideLoomAudioProcessor.h>

#include <gtest/gtest.h>

#include <stdexcept>
#include <utility>

namespace
{
/** A processor whose current preset has whatever name a test gives it. */
class NamedProcessor : public WideLoomAudioProcessor
{
public:
    const juce::String getProgramName (int program) override
    {
        return program == getCurrentProgram() ? name : juce::String ("?");
    }

    juce::String name { "Wide *" };
};

/** Does what the main panel does with the component, and keeps a record. */
class SavingPanel : public ManagePresetsComponent::Owner
{
public:
    void saveUserPreset() override
    {
        log.add ("save " + component->getPresetName());
        component->hide();
    }

    void cancelUserPresetSaving() override
    {
        log.add ("cancel");
        component->hide();
    }

    ManagePresetsComponent* component = nullptr;
    juce::StringArray log;
};

/** The component in a panel of 900 x 600 pixels, which gives it 360 x 240. */
class ManagePresetsComponentTest : public testing::Test
{
protected:
    void SetUp() override
    {
        panel.setSize (900, 600);
        panel.addAndMakeVisible (component);
        component.setBoundsRelative (0.3f, 0.16f, 0.4f, 0.4f);
        owner.component = &component;
        component.show();
    }

    juce::TextEditor& entry() { return *partOfType<juce::TextEditor> (0); }
    juce::TextButton& saveButton() { return *partOfType<juce::TextButton> (0); }
    juce::TextButton& cancelButton() { return *partOfType<juce::TextButton> (1); }

    void type (const juce::String& text)
    {
        entry().selectAll();
        entry().insertTextAtCaret (text);
    }

    /** Keys reach their listener by messages, as clicks by code do. */
    void press (int keyCode)
    {
        entry().keyPressed (juce::KeyPress (keyCode));
        deliverPostedMessages();
    }

    NamedProcessor processor;
    SavingPanel owner;
    juce::Font font { 40.0f };
    juce::Component panel;
    ManagePresetsComponent component { &processor, &owner, &font };

private:
    template <typename Part>
    Part* partOfType (int index)
    {
        for (auto* child : component.getChildren())
            if (auto* part = dynamic_cast<Part*> (child); part != nullptr && index-- == 0)
                return part;

        throw std::logic_error ("no such part");
    }
};

TEST_F (ManagePresetsComponentTest, OpensWithTheCurrentNameSelected)
{
    // A file may carry a name that could not be typed; it stays whole.
    constexpr auto* untypeable = "(0).1234567890123456789012345678901234567890";
    using Pair = std::pair<const char*, const char*>;

    for (const auto& [name, shown] : { Pair { "Plain", "Plain" },
                                       Pair { "Changed *", "Changed " },
                                       Pair { "*", "" },
                                       Pair { untypeable, untypeable } })
    {
        component.hide();
        EXPECT_FALSE (component.isVisible());
        processor.name = name;
        component.show();

        EXPECT_TRUE (component.isVisible());
        EXPECT_EQ (entry().getText(), shown);
        EXPECT_EQ (entry().getHighlightedText(), shown);
    }
}

TEST_F (ManagePresetsComponentTest, TakesOnlyNamesOfThirtyNineCharacters)
{
    using Pair = std::pair<const char*, const char*>;

    for (const auto& [typed, taken] :
         { Pair { "a/b\\c*d:e.f", "abcdef" },
           Pair { "Az09 _-!+#%&", "Az09 _-!+#%&" },
           Pair { "123456789012345678901234567890123456789X", "123456789012345678901234567890123456789" } })
    {
        type (typed);
        EXPECT_EQ (entry().getText(), taken);
    }
}

TEST_F (ManagePresetsComponentTest, ReturnSavesUnderTheTextEnteredOrElseTheNameItOpenedWith)
{
    type ("New name");
    press (juce::KeyPress::returnKey);
    component.show();
    entry().clear();
    press (juce::KeyPress::returnKey);

    // The save takes the "*" away.
    EXPECT_EQ (owner.log, juce::StringArray ({ "save New name", "save Wide *" }));
}

TEST_F (ManagePresetsComponentTest, TwoReturnsInOneGoSaveOnce)
{
    entry().keyPressed (juce::KeyPress (juce::KeyPress::returnKey));
    press (juce::KeyPress::returnKey);

    EXPECT_EQ (owner.log, juce::StringArray ("save Wide "));
}

TEST_F (ManagePresetsComponentTest, EscapeBringsTheNameBackAndStaysOpen)
{
    type ("Something else");
    press (juce::KeyPress::escapeKey);

    EXPECT_TRUE (component.isVisible());
    EXPECT_TRUE (owner.log.isEmpty());
    EXPECT_EQ (entry().getText(), "Wide ");
    EXPECT_EQ (entry().getHighlightedText(), "Wide ");
    EXPECT_EQ (component.getPresetName(), "Wide ");
}

TEST_F (ManagePresetsComponentTest, ButtonsSaveAndCancel)
{
    type ("Mine");
    saveButton().triggerClick();
    deliverPostedMessages();
    EXPECT_EQ (owner.log, juce::StringArray ("save Mine"));

    component.show();
    cancelButton().triggerClick();
    deliverPostedMessages();
    EXPECT_EQ (owner.log, juce::StringArray ({ "save Mine", "cancel" }));
}

TEST_F (ManagePresetsComponentTest, PlacesItsPartsAndSizesItsFont)
{
    EXPECT_EQ (component.getBounds(), juce::Rectangle<int> (270, 96, 360, 240));
    EXPECT_EQ (entry().getBounds(), juce::Rectangle<int> (18, 60, 324, 53));
    EXPECT_EQ (saveButton().getBounds(), juce::Rectangle<int> (18, 168, 153, 48));
    EXPECT_EQ (cancelButton().getBounds(), juce::Rectangle<int> (189, 168, 153, 48));
    EXPECT_NEAR (entry().getFont().getHeight(), 33.6f, 1.0e-4f); // 240 * 0.2 * 0.7
}

TEST_F (ManagePresetsComponentTest, PaintsItsGroundAndCaption)
{
    const auto image = paintedPicture (component);

    // Round by 1 % of the panel's 600 pixels; the frame begins after 5 % of 240.
    EXPECT_EQ (image.getPixelAt (0, 0).getAlpha(), 0);
    EXPECT_EQ (image.getPixelAt (6, 0), juce::Colours::black);
    EXPECT_EQ (image.getPixelAt (11, 130), juce::Colours::black);
    EXPECT_EQ (image.getPixelAt (13, 130).getRed(), 26);

    // The caption stands between its top, 14 pixels, and the entry; nothing of it below the buttons.
    EXPECT_GT (countPixels (image, { 18, 14, 324, 40 }, juce::Colours::darkgrey, 4), 50);
    EXPECT_EQ (countPixels (image, { 18, 120, 324, 40 }, juce::Colours::darkgrey, 4), 0);
}

} // namespace
