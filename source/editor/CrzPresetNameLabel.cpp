// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The label that shows the current preset's name and lets the user change it.

#include "CrzPresetNameLabel.h"

CrzPresetNameLabel::CrzPresetNameLabel (int longestName,
                                        const juce::String& nameOfComponent,
                                        const juce::String& initialText,
                                        const juce::String& allowed)
    : juce::Label (nameOfComponent, initialText),
      maxNameLength (longestName),
      allowedCharacters (allowed)
{
}

juce::String CrzPresetNameLabel::nameFrom (const juce::String& typedText) const
{
    return typedText.trim().retainCharacters (allowedCharacters);
}

void CrzPresetNameLabel::editorShown (juce::TextEditor* shownEditor)
{
    juce::Label::editorShown (shownEditor);

    const auto name = shownEditor->getText().removeCharacters ("*");
    shownEditor->setInputRestrictions (maxNameLength, allowedCharacters);
    shownEditor->setText (name, true);
    shownEditor->setHighlightedRegion ({ 0, name.length() });
}
