// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The label that shows the current preset's name and lets the user change it.

#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

/** A label whose text entry starts without the "*" of a changed preset and takes only what a preset name may
    hold. [message] */
class CrzPresetNameLabel : public juce::Label
{
public:
    /** `maxNameLength` is in characters. */
    CrzPresetNameLabel (int maxNameLength,
                        const juce::String& componentName,
                        const juce::String& initialText,
                        const juce::String& allowedCharacters);

    /** The name that a typed text stands for: trimmed, with the allowed characters only. Empty when none is
        left, which is no name. */
    juce::String nameFrom (const juce::String& typedText) const;

protected:
    void editorShown (juce::TextEditor* editor) override;

private:
    int maxNameLength;
    juce::String allowedCharacters;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (CrzPresetNameLabel)
};
