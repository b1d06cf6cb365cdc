// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The thread tags that comments use, and what the audio thread relies on.

#pragma once

#include <atomic>

/*  Thread tags in the comments of engine, presets and host:

    [audio]      the host's real-time thread. No allocation, no lock but the processor's callback lock,
                 no waiting, no file, no juce::String, no exception.
    [message]    the message thread, which is the host's main thread. May do anything.
    [host-main]  the host's main thread, from a call that the host makes.
    [any]        any thread, at any time, without waiting.

    What two threads touch is a relaxed std::atomic when it is one value, and a LatestValueExchange when
    it is a group. Nothing else is shared.
*/

static_assert (std::atomic<float>::is_always_lock_free);
static_assert (std::atomic<double>::is_always_lock_free);
static_assert (std::atomic<bool>::is_always_lock_free);
