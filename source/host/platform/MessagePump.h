// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Runs JUCE's messages from the host's idle calls.

#pragma once

#include <functional>
#include <memory>

/** Runs what waits for JUCE: messages, timers, window events. A host has a loop of its own, and nobody else
   runs them there. A process owns one. */
class MessagePump
{
public:
    MessagePump();
    ~MessagePump();

    /** [host-main] Runs what waits now, without waiting for more, and a bounded number of times over. Does
       nothing inside another call of any pump. Returns false if a message destroyed this pump: then its owner
       is gone, too, and the caller must not touch itself again. Lets exceptions of messages out. */
    [[nodiscard]] bool run();

    /** [host-main] Calls the function at once, or, if a pump is at work, when that has come to its end: what
       is needed to run messages must not be destroyed by one of them. */
    static void callWhenNotRunning (std::function<void()> function);

    MessagePump (const MessagePump&) = delete;
    MessagePump& operator= (const MessagePump&) = delete;

private:
    std::shared_ptr<bool> alive;
};
