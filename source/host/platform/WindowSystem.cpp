// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Registers the names that JUCE only looks up, over a connection that stays open.

#include "WindowSystem.h"

#include <X11/Xlib.h>

#include <array>
#include <memory>

namespace
{
/** What JUCE looks up without registering it. */
constexpr std::array<const char*, 11> windowManagerNames { "WM_PROTOCOLS",
                                                           "WM_TAKE_FOCUS",
                                                           "WM_DELETE_WINDOW",
                                                           "_NET_WM_PING",
                                                           "WM_CHANGE_STATE",
                                                           "WM_STATE",
                                                           "_NET_WM_WINDOW_TYPE",
                                                           "_NET_WM_WINDOW_TYPE_NORMAL",
                                                           "_NET_WM_WINDOW_TYPE_COMBO",
                                                           "_NET_WM_STATE",
                                                           "_NET_WM_STATE_HIDDEN" };

struct CloseDisplay
{
    void operator() (Display* display) const { XCloseDisplay (display); }
};
} // namespace

void platform::initialiseMacRTAS()
{
    // A server forgets all names when its last client leaves, so the connection stays.
    static std::unique_ptr<Display, CloseDisplay> connection;

    if (connection != nullptr)
        return;

    connection.reset (XOpenDisplay (nullptr));

    if (connection == nullptr)
        return;

    for (const auto* name : windowManagerNames)
        XInternAtom (connection.get(), name, False);
}
