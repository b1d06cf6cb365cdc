// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// A processor with its editor open, and ways to reach what is inside.

#pragma once

#include <editor/MainEditorComponent.h>
#include <editor/WideLoomAudioProcessorEditor.h>
#include <engine/WideLoomAudioProcessor.h>
#include <presets/DisplayHeight.h>

#include <functional>
#include <memory>

/** The first component of a class below `parent`, or null. */
template <typename Class>
Class* findChildOfClass (juce::Component& parent)
{
    for (auto* child : parent.getChildren())
    {
        if (auto* found = dynamic_cast<Class*> (child))
            return found;

        if (auto* found = findChildOfClass<Class> (*child))
            return found;
    }

    return nullptr;
}

/** The first component below `parent` with a component ID, or null. */
inline juce::Component* findChildWithID (juce::Component& parent, const juce::String& id)
{
    for (auto* child : parent.getChildren())
    {
        if (child->getComponentID() == id)
            return child;

        if (auto* found = findChildWithID (*child, id))
            return found;
    }

    return nullptr;
}

/** The button below `parent` with a caption, or null. */
inline juce::Button* findButton (juce::Component& parent, const juce::String& caption)
{
    for (auto* child : parent.getChildren())
    {
        if (auto* button = dynamic_cast<juce::Button*> (child);
            button != nullptr && button->getButtonText() == caption)
            return button;

        if (auto* found = findButton (*child, caption))
            return found;
    }

    return nullptr;
}

/** Starts at the default size of a display of a given height, whatever an earlier test left in the settings.
 */
struct EditorUnderTest
{
    static constexpr int displayHeight = 1000; ///< pixels

    explicit EditorUnderTest (int heightOfDisplay = displayHeight)
        : display (heightOfDisplay)
    {
        processor.resetDefaultEditorDesktopHeightRatio();
        processor.setEditorHeight (processor.getDefaultEditorHeight());
        open();
    }

    void open() { editor = std::make_unique<WideLoomAudioProcessorEditor> (&processor); }
    void close() { editor.reset(); }

    MainEditorComponent& panel() { return *editor->getMainEditor(); }

    /** Any component of the panel, by its ID. */
    template <typename Class>
    Class& control (const juce::String& id)
    {
        return dynamic_cast<Class&> (*findChildWithID (panel(), id));
    }

    const ScopedMainDisplayUserHeight display;
    WideLoomAudioProcessor processor;
    std::unique_ptr<WideLoomAudioProcessorEditor> editor;
};
