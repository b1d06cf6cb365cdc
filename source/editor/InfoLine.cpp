// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Lets texts in by their importance and takes them out when their time is over.

#include "InfoLine.h"

namespace
{
constexpr double importantTextSeconds = 3.0;
constexpr double plainTextSeconds = 6.0;
} // namespace

void InfoLine::setText (const juce::String& newText, bool important, juce::Time now)
{
    if (important)
    {
        infoTextIsImportant = true;
        importantInfoTextTime = now;
    }
    else if (infoTextIsImportant)
    {
        return;
    }
    else
    {
        infoTextTime = now;
    }

    text = newText;
}

void InfoLine::tick (juce::Time now)
{
    if (text.isEmpty())
        return;

    const auto setAt = infoTextIsImportant ? importantInfoTextTime : infoTextTime;
    const auto seconds = infoTextIsImportant ? importantTextSeconds : plainTextSeconds;

    if (now > setAt + juce::RelativeTime::seconds (seconds))
    {
        text.clear();
        infoTextIsImportant = false;
    }
}
