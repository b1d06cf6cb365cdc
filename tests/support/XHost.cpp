// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "XHost.h"

#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>

#include <algorithm>
#include <stdexcept>

namespace
{
int numErrors = 0;

int countError (Display*, XErrorEvent*)
{
    ++numErrors;
    return 0;
}

Window getParent (Display* display, Window window)
{
    Window root = None;
    Window parent = None;
    Window* children = nullptr;
    unsigned int numChildren = 0;

    if (XQueryTree (display, window, &root, &parent, &children, &numChildren) != 0 && children != nullptr)
        XFree (children);

    return parent;
}

Display* openDisplay()
{
    if (auto* const display = XOpenDisplay (nullptr))
        return display;

    throw std::runtime_error ("no X server");
}
} // namespace

XHost::XHost()
    : display (openDisplay())
{
}

XHost::~XHost()
{
    XCloseDisplay (display);
}

XHost& XHost::get()
{
    static XHost host;
    return host;
}

void XHost::begin()
{
    getKeys();
    keys.clear();
    numErrors = 0;
    XSetErrorHandler (countError);
}

void XHost::end()
{
    while (! topWindows.empty())
        destroy (topWindows.back());
}

GrafPtr XHost::makeWindow (int width, int height, GrafPtr parent)
{
    const auto window = XCreateSimpleWindow (display,
                                             parent != 0 ? parent : DefaultRootWindow (display),
                                             0,
                                             0,
                                             static_cast<unsigned int> (width),
                                             static_cast<unsigned int> (height),
                                             0,
                                             0,
                                             0);
    XSelectInput (display, window, StructureNotifyMask | (parent == 0 ? KeyPressMask | KeyReleaseMask : 0));
    show (window);

    if (parent == 0)
        topWindows.push_back (window);

    return window;
}

void XHost::show (GrafPtr window)
{
    XMapWindow (display, window);

    for (XEvent event {}; event.type != MapNotify;)
        XWindowEvent (display, window, StructureNotifyMask, &event);
}

void XHost::hide (GrafPtr window)
{
    const auto hasFrame = getParent (display, window) != DefaultRootWindow (display)
                          && std::ranges::find (topWindows, window) != topWindows.end();
    XUnmapWindow (display, window);

    // To be shown again too soon, before the window manager has taken its frame away, gets lost.
    for (XEvent event {}; event.type != (hasFrame ? ReparentNotify : UnmapNotify);)
        XWindowEvent (display, window, StructureNotifyMask, &event);
}

void XHost::resize (GrafPtr window, int width, int height)
{
    XResizeWindow (display, window, static_cast<unsigned int> (width), static_cast<unsigned int> (height));
    XSync (display, False);
}

void XHost::destroy (GrafPtr window)
{
    std::erase (topWindows, window);
    XDestroyWindow (display, window);
    XSync (display, False);
}

bool XHost::isShown (GrafPtr window) const
{
    XWindowAttributes attributes {};
    return XGetWindowAttributes (display, window, &attributes) != 0 && attributes.map_state == IsViewable;
}

std::vector<XHost::Child> XHost::getChildren (GrafPtr window) const
{
    Window root = None;
    Window parent = None;
    Window* windows = nullptr;
    unsigned int numWindows = 0;
    std::vector<Child> children;

    if (XQueryTree (display, window, &root, &parent, &windows, &numWindows) == 0)
        return children;

    for (unsigned int i = 0; i < numWindows; ++i)
    {
        XWindowAttributes attributes {};
        XGetWindowAttributes (display, windows[i], &attributes);
        children.push_back ({ { attributes.x, attributes.y, attributes.width, attributes.height },
                              attributes.map_state == IsViewable });
    }

    if (windows != nullptr)
        XFree (windows);

    return children;
}

void XHost::moveMouse (GrafPtr window, juce::Point<int> position)
{
    Window child = None;
    int x = 0;
    int y = 0;
    XTranslateCoordinates (
        display, window, DefaultRootWindow (display), position.x, position.y, &x, &y, &child);
    XTestFakeMotionEvent (display, -1, x, y, CurrentTime);
    XSync (display, False);
}

void XHost::pressMouse (bool down)
{
    XTestFakeButtonEvent (display, Button1, down ? True : False, CurrentTime);
    XSync (display, False);
}

void XHost::typeKey (unsigned long symbol)
{
    const auto code = XKeysymToKeycode (display, symbol);
    XTestFakeKeyEvent (display, code, True, CurrentTime);
    XTestFakeKeyEvent (display, code, False, CurrentTime);
    XSync (display, False);
}

const std::vector<XHost::Key>& XHost::getKeys()
{
    XSync (display, False);

    for (XEvent event {}; XCheckMaskEvent (display, KeyPressMask | KeyReleaseMask, &event) != 0;)
        keys.push_back ({ XLookupKeysym (&event.xkey, 0), event.type == KeyPress });

    return keys;
}

void XHost::provokeError()
{
    XMapWindow (display, None);
    XSync (display, False);
}

int XHost::getNumErrors()
{
    return numErrors;
}

bool XHost::handlesErrors()
{
    return XSetErrorHandler (countError) == countError;
}
