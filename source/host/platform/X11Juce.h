// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// What JUCE leaves undone with its own connection to the X server when it is a guest in another program.

#pragma once

#include <optional>

struct _XDisplay;

/** Everything here is [host-main]. */
namespace X11Juce
{
/** From now on errors of this connection and of JUCE's are ignored, so that late requests to windows that a
   host has destroyed do not end the program: Xlib has one handler for all connections, and the one it starts
   with does. Errors of others go to the handler that was there before. */
void ignoreErrorsOf (_XDisplay& connection);

/** Puts the handler back that was there before, once nothing is under way any more. */
void stopIgnoringErrors();

/** Waits until the server has seen to all that JUCE asked of it. */
void completeRequests();

/** Sends what JUCE keeps back until the server has news for it, which can be never. Then, the file of JUCE's
    connection if events have come in. Those that came along with an answer do not make it look readable. */
std::optional<int> getFileWithEvents();
} // namespace X11Juce
