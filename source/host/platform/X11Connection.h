// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The plug-in's own connection to the X server, beside JUCE's, which watches the host's windows.

#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

#include <memory>

struct _XDisplay; // as Xlib calls it; its header stays out of headers, since its macros change common words

/** Exists while an editor is in a host's window. As long as it does, a request of it or of JUCE that comes
   too late for a window the host has destroyed is ignored. (Xlib would end the program; the handler of such
   errors is one for the whole program, so errors of other connections go to the handler that was there
   before.) [host-main] */
class X11Connection : public std::enable_shared_from_this<X11Connection>
{
public:
    /** A window as Xlib numbers it. */
    using WindowId = unsigned long;

    class Listener
    {
    public:
        virtual ~Listener() = default;

        virtual void windowDestroyed (WindowId window) = 0;

        /** Some watched window was shown, hidden, moved, resized or put into another. */
        virtual void windowsChanged() = 0;
    };

    /** The one connection, opened by the first who asks and closed by the last who lets go. Null without a
        server. */
    static std::shared_ptr<X11Connection> get();

    ~X11Connection();

    void addListener (Listener& listener) { listeners.add (&listener); }
    void removeListener (Listener& listener) { listeners.remove (&listener); }

    /** Tells the listeners of the window, and of all that it stands in, from now on. */
    void watch (WindowId window);

    struct WindowState
    {
        int width = 0;        // pixels
        bool isShown = false; // itself and all that it stands in
    };

    /** Null if there is no such window. */
    std::unique_ptr<WindowState> getState (WindowId window);

    /** Keeps the keys that come to a window of JUCE's as the server sends them, which JUCE does not. */
    void keepKeysOf (WindowId juceWindow);

    /** Sends the kept key that JUCE made this one of on to `target`, or, if nobody listens for keys there, to
       the nearest window around it where somebody does. */
    void sendKey (const juce::KeyPress& key, WindowId target);

    X11Connection (const X11Connection&) = delete;
    X11Connection& operator= (const X11Connection&) = delete;

private:
    explicit X11Connection (_XDisplay* openDisplay);

    void readEvents();
    void readEventsLater();

    struct Keys;

    _XDisplay* const display;
    const std::unique_ptr<Keys> keys;
    juce::ListenerList<Listener> listeners;
};
