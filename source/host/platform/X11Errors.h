// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Keeps late requests to windows that a host has destroyed from ending the program.

#pragma once

struct _XDisplay;

/** Xlib has one error handler for the program, and the one it starts with ends it. Everything here is
 * [host-main]. */
namespace X11Errors
{
/** From now on errors of this connection and of JUCE's are ignored. Those of others go to the handler that
   was there before. */
void ignoreErrorsOf (_XDisplay& connection);

/** Puts the handler back that was there before, once nothing is under way any more. */
void stopIgnoring();

/** Waits until the server has seen to all that JUCE asked of it. */
void completeJuceRequests();
} // namespace X11Errors
