// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// A host as the X server sees it: windows, a mouse and a keyboard, over a connection of its own.

#pragma once

#include "host/HostInterface.h"

#include <juce_gui_basics/juce_gui_basics.h>

#include <vector>

struct _XDisplay;

class XHost
{
public:
    /** The one for all tests of a program: a window manager takes a new window for an old one that had its
       number, and the server gives the numbers of a connection that was closed to the next. */
    static XHost& get();

    ~XHost();

    /** Forgets keys and errors, and hears of errors from now on. */
    void begin();

    /** Destroys what windows there are. */
    void end();

    /** A window that is on the screen, in another or by itself. */
    GrafPtr makeWindow (int width, int height, GrafPtr parent = 0);

    void show (GrafPtr window);
    void hide (GrafPtr window);
    void resize (GrafPtr window, int width, int height);
    void destroy (GrafPtr window);

    /** Itself and all that it stands in. */
    bool isShown (GrafPtr window) const;

    /** What all windows stand in. */
    GrafPtr getScreen() const;

    /** A window on the screen that has a title with these words in it, whoever made it. 0 if there is none.
     */
    GrafPtr findWindow (const juce::String& words) const;

    /** Of ASCII characters. */
    juce::String getTitle (GrafPtr window) const;

    /** Does what a window's close button does. */
    void askToClose (GrafPtr window);

    struct Child
    {
        juce::Rectangle<int> bounds; // in its parent
        bool isShown = false;
    };

    std::vector<Child> getChildren (GrafPtr window) const;

    /** In pixels, without what a window manager puts around it. */
    juce::Point<int> getSize (GrafPtr window) const;

    /** Puts the mouse on a point of the window. */
    void moveMouse (GrafPtr window, juce::Point<int> position);
    void pressMouse (bool down);

    /** Presses the key of that X symbol and lets it go. */
    void typeKey (unsigned long symbol);

    struct Key
    {
        unsigned long symbol = 0;
        bool down = false;

        bool operator== (const Key&) const = default;
    };

    /** The keys that came to the host's windows so far. */
    const std::vector<Key>& getKeys();

    /** Makes a request that the server refuses. */
    void provokeError();

    /** Requests that the server refused, of whatever connection, as far as the program's handler heard of
       them; looks at windows that were just gone do not count. */
    static int getNumErrors();

    /** True if the handler that the host set is the program's. */
    static bool handlesErrors();

    XHost (const XHost&) = delete;
    XHost& operator= (const XHost&) = delete;

private:
    XHost();

    _XDisplay* const display;
    std::vector<Key> keys;
    std::vector<GrafPtr> topWindows;
};
