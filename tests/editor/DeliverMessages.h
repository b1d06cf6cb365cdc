// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Runs the message loop for what has been posted, and no longer.

#pragma once

#include <juce_events/juce_events.h>

/** Delivers every message posted before the call. */
inline void deliverPostedMessages()
{
    bool reachedTheEnd = false;
    juce::MessageManager::callAsync ([&reachedTheEnd] { reachedTheEnd = true; });

    while (! reachedTheEnd)
        juce::MessageManager::getInstance()->runDispatchLoopUntil (1);
}
