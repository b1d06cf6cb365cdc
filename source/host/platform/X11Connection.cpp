// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Reads the events of watched windows in JUCE's loop, and hands key presses on to the host's window.

#include "X11Connection.h"

#include "X11Juce.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <algorithm>
#include <deque>
#include <iterator>
#include <vector>

// Xlib's macro for the number of an event hides JUCE's class.
namespace
{
constexpr int keyPressEvent = KeyPress;
} // namespace
#undef KeyPress

namespace
{
/** True if JUCE makes this key press of the event. JUCE keeps no more of a key than the text and a code,
   whose low byte is that of the X symbol where there is no text. */
bool makes (XKeyEvent event, const juce::KeyPress& key)
{
    constexpr unsigned int symbolByte = 0xff;
    char text = 0;
    KeySym symbol = NoSymbol;

    if (XLookupString (&event, &text, 1, &symbol, nullptr) > 0)
        return key.getTextCharacter() == static_cast<juce::juce_wchar> (static_cast<unsigned char> (text));

    return key.getTextCharacter() == 0
           && (static_cast<unsigned int> (symbol) & symbolByte)
                  == (static_cast<unsigned int> (key.getKeyCode()) & symbolByte);
}

std::weak_ptr<X11Connection>& sharedConnection()
{
    static std::weak_ptr<X11Connection> connection;
    return connection;
}
} // namespace

/** The keys that came in, oldest first. Those that the editor uses stay until a later one is sent on, or
   there are too many. */
struct X11Connection::Keys
{
    static constexpr std::size_t maxKept = 64;

    void add (const XKeyEvent& event)
    {
        kept.push_back (event);

        if (kept.size() > maxKept)
            kept.pop_front();
    }

    std::deque<XKeyEvent> kept;
};

std::shared_ptr<X11Connection> X11Connection::get()
{
    if (auto existing = sharedConnection().lock())
        return existing;

    auto* display = XOpenDisplay (nullptr);

    if (display == nullptr)
        return nullptr;

    const std::shared_ptr<X11Connection> connection (new X11Connection (display));
    sharedConnection() = connection;
    return connection;
}

X11Connection::X11Connection (_XDisplay* openDisplay)
    : display (openDisplay),
      keys (std::make_unique<Keys>())
{
    X11Juce::ignoreErrorsOf (*display);
    juce::LinuxEventLoop::registerFdCallback (ConnectionNumber (display), [this] (int) { readEvents(); });
}

X11Connection::~X11Connection()
{
    juce::LinuxEventLoop::unregisterFdCallback (ConnectionNumber (display));
    X11Juce::stopIgnoringErrors();
    XCloseDisplay (display);
}

void X11Connection::watch (WindowId window)
{
    WindowId root = None;

    for (auto current = window; current != None && current != root;)
    {
        XSelectInput (display, current, StructureNotifyMask);

        Window parent = None;
        Window* children = nullptr;
        unsigned int numChildren = 0;

        if (XQueryTree (display, current, &root, &parent, &children, &numChildren) == 0)
            break;

        if (children != nullptr)
            XFree (children);

        current = parent;
    }

    readEventsLater();
}

std::unique_ptr<X11Connection::WindowState> X11Connection::getState (WindowId window)
{
    XWindowAttributes attributes {};
    const bool exists = XGetWindowAttributes (display, window, &attributes) != 0;
    readEventsLater();

    if (! exists)
        return nullptr;

    return std::make_unique<WindowState> (
        WindowState { attributes.width, attributes.map_state == IsViewable });
}

void X11Connection::keepKeysOf (WindowId juceWindow)
{
    // What JUCE's connection has not sent yet, the server does not know.
    X11Juce::completeRequests();
    XSelectInput (display, juceWindow, KeyPressMask);
    XFlush (display);
    readEventsLater();
}

void X11Connection::sendKey (const juce::KeyPress& key, WindowId target)
{
    // After an answer of the server all events from before it are here, those that JUCE has seen among them.
    XSync (display, False);

    for (XEvent event {}; XCheckTypedEvent (display, keyPressEvent, &event) != 0;)
        keys->add (event.xkey);

    // Those in front of the right one were used by the editor. Without a right one the last key must do.
    auto& kept = keys->kept;
    const auto right = std::ranges::find_if (kept, [&key] (const auto& event) { return makes (event, key); });

    if (kept.empty())
    {
        readEventsLater();
        return;
    }

    XEvent event {};
    event.xkey = right != kept.end() ? *right : kept.back();
    kept.erase (kept.begin(), right != kept.end() ? std::next (right) : right);

    event.xkey.window = target;
    XSendEvent (display, target, True, KeyPressMask, &event);

    // The real release goes to the editor; a host that counts the keys held down must not wait for it.
    event.xkey.type = KeyRelease;
    XSendEvent (display, target, True, KeyReleaseMask, &event);
    XFlush (display);
    readEventsLater();
}

void X11Connection::readEvents()
{
    const auto self = shared_from_this(); // a listener may let go of the connection

    while (XPending (display) > 0)
    {
        std::vector<WindowId> destroyed;
        bool anyChange = false;

        do
        {
            XEvent event {};
            XNextEvent (display, &event);

            switch (event.type)
            {
                case keyPressEvent:
                    keys->add (event.xkey);
                    break;

                case DestroyNotify:
                    destroyed.push_back (event.xdestroywindow.window);
                    break;

                case MapNotify:
                case UnmapNotify:
                case ReparentNotify:
                case ConfigureNotify:
                    anyChange = true;
                    break;

                default:
                    break;
            }
        } while (XEventsQueued (display, QueuedAlready) > 0);

        for (const auto window : destroyed)
            listeners.call ([window] (Listener& listener) { listener.windowDestroyed (window); });

        if (anyChange)
            listeners.call ([] (Listener& listener) { listener.windowsChanged(); });
    }
}

void X11Connection::readEventsLater()
{
    // Events that came along with an answer, or were fetched while requests went out, no longer make the
    // connection look readable.
    if (XEventsQueued (display, QueuedAfterReading) > 0)
        juce::MessageManager::callAsync (
            [connection = weak_from_this()]
            {
                if (const auto stillThere = connection.lock())
                    stillThere->readEvents();
            });
}
