// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Makes windows, moves the mouse and types with Xlib, and counts the server's errors.

#include "XHost.h"

#include <X11/Xlib.h>
#include <X11/Xproto.h>
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>

#include <algorithm>
#include <stdexcept>

namespace
{
int numErrors = 0;

/** Windows of others may go while they are looked at. */
bool onlyLooks (const XErrorEvent& error)
{
    return error.error_code == BadWindow
           && (error.request_code == X_QueryTree || error.request_code == X_GetWindowAttributes
               || error.request_code == X_GetProperty);
}

int countError (Display*, XErrorEvent* error)
{
    numErrors += ! onlyLooks (*error);
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

/** Those at the bottom first. */
std::vector<Window> getChildWindows (Display* display, Window window)
{
    Window root = None;
    Window parent = None;
    Window* windows = nullptr;
    unsigned int numWindows = 0;
    std::vector<Window> children;

    if (XQueryTree (display, window, &root, &parent, &windows, &numWindows) == 0)
        return children;

    if (windows != nullptr)
    {
        children.assign (windows, windows + numWindows);
        XFree (windows);
    }

    return children;
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

GrafPtr XHost::getScreen() const
{
    return DefaultRootWindow (display);
}

juce::String XHost::getTitle (GrafPtr window) const
{
    XTextProperty text {};

    if (XGetWMName (display, window, &text) == 0 || text.value == nullptr)
        return {};

    const juce::String title (reinterpret_cast<const char*> (text.value));
    XFree (text.value);
    return title;
}

GrafPtr XHost::findWindow (const juce::String& words) const
{
    // Frames of a window manager have their windows in them.
    for (const auto top : getChildWindows (display, getScreen()))
    {
        if (getTitle (top).contains (words))
            return top;

        for (const auto inFrame : getChildWindows (display, top))
            if (getTitle (inFrame).contains (words))
                return inFrame;
    }

    return 0;
}

void XHost::askToClose (GrafPtr window)
{
    XEvent event {};
    event.xclient.type = ClientMessage;
    event.xclient.window = window;
    event.xclient.message_type = XInternAtom (display, "WM_PROTOCOLS", False);
    event.xclient.format = 32;
    event.xclient.data.l[0] = static_cast<long> (XInternAtom (display, "WM_DELETE_WINDOW", False));
    XSendEvent (display, window, False, NoEventMask, &event);
    XSync (display, False);
}

juce::Point<int> XHost::getSize (GrafPtr window) const
{
    XWindowAttributes attributes {};
    XGetWindowAttributes (display, window, &attributes);
    return { attributes.width, attributes.height };
}

std::vector<XHost::Child> XHost::getChildren (GrafPtr window) const
{
    std::vector<Child> children;

    for (const auto child : getChildWindows (display, window))
    {
        XWindowAttributes attributes {};
        XGetWindowAttributes (display, child, &attributes);
        children.push_back ({ { attributes.x, attributes.y, attributes.width, attributes.height },
                              attributes.map_state == IsViewable });
    }

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
