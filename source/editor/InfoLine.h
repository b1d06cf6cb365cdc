// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// What stands in the panel's bottom line, and for how long.

#pragma once

#include <juce_core/juce_core.h>

/** Holds one text. An important one cannot be replaced by a plain one until it has been cleared. Time is
   handed in, so nothing here waits. [message] */
class InfoLine
{
public:
    /** The first text counts as plain and infinitely old: the first tick clears it. */
    explicit InfoLine (const juce::String& firstText)
        : text (firstText)
    {
    }

    void setText (const juce::String& newText, bool important, juce::Time now);

    /** Clears a text that has stood its time. */
    void tick (juce::Time now);

    const juce::String& getText() const noexcept { return text; }

private:
    juce::String text;
    bool infoTextIsImportant = false;
    juce::Time infoTextTime; ///< when the latest plain text was set
    juce::Time importantInfoTextTime;
};
