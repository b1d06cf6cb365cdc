// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Asks the main display.

#include "DisplayHeight.h"

#include <juce_gui_basics/juce_gui_basics.h>

#include <utility>

namespace
{
constexpr int heightWithoutDisplay = 1000; // pixels
int heightOverride = 0;                    // pixels; 0 for none
} // namespace

int getMainDisplayUserHeight()
{
    if (heightOverride > 0)
        return heightOverride;

    const auto* messages = juce::MessageManager::getInstanceWithoutCreating();

    // Displays belong to the message thread.
    if (messages == nullptr || ! messages->isThisTheMessageThread())
        return heightWithoutDisplay;

    const auto* display = juce::Desktop::getInstance().getDisplays().getPrimaryDisplay();
    const int height = display != nullptr ? display->userArea.getHeight() : 0;
    return height > 0 ? height : heightWithoutDisplay;
}

ScopedMainDisplayUserHeight::ScopedMainDisplayUserHeight (int pixels)
    : previous (std::exchange (heightOverride, pixels))
{
}

ScopedMainDisplayUserHeight::~ScopedMainDisplayUserHeight()
{
    heightOverride = previous;
}
