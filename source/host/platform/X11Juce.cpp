// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Finds JUCE's connection, completes its requests, and ignores the errors of late ones.

#include "X11Juce.h"

// JUCE shows its connection only together with the headers of Xlib.
#define JUCE_GUI_BASICS_INCLUDE_XHEADERS 1
#include <juce_gui_basics/juce_gui_basics.h>

namespace
{
_XDisplay* ownConnection = nullptr;
XErrorHandler previousHandler = nullptr;

_XDisplay* juceConnection()
{
    if (auto* windowSystem = juce::XWindowSystem::getInstanceWithoutCreating())
        return windowSystem->getDisplay();

    return nullptr;
}

int handleError (Display* connection, XErrorEvent* error)
{
    if (connection == ownConnection || connection == juceConnection())
        return 0;

    return previousHandler (connection, error);
}
} // namespace

void X11Juce::ignoreErrorsOf (_XDisplay& connection)
{
    ownConnection = &connection;
    previousHandler = XSetErrorHandler (handleError);
}

void X11Juce::stopIgnoringErrors()
{
    completeRequests();
    XSync (ownConnection, False);

    // Somebody may have put a handler on top meanwhile, which calls this one: it stays.
    if (const auto current = XSetErrorHandler (previousHandler); current != handleError)
        XSetErrorHandler (current);

    ownConnection = nullptr;
}

void X11Juce::completeRequests()
{
    if (auto* connection = juceConnection())
        XSync (connection, False);
}

std::optional<int> X11Juce::getFileWithEvents()
{
    if (auto* connection = juceConnection(); connection != nullptr && XPending (connection) > 0)
        return ConnectionNumber (connection);

    return {};
}
