// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// A window of the host as the window system knows it, which an editor is put into.

#pragma once

#include "../HostInterface.h"

#include <juce_gui_basics/juce_gui_basics.h>

#include <functional>
#include <memory>

/** A window that the host made and the plug-in puts a component into. Everything here is [host-main]. */
class HostWindow
{
public:
    /** Is told what becomes of the window. The calls come from JUCE's message loop and may destroy the
        HostWindow. */
    class Watcher
    {
    public:
        virtual ~Watcher() = default;

        /** It was shown, hidden, or got another width. */
        virtual void hostWindowChanged() = 0;

        /** The host destroyed it, and with it what was inside. */
        virtual void hostWindowGone() = 0;
    };

    /** How to come by a host window; the result is null if there is no such window or no window system. The
        watcher outlives the result. */
    using Source = std::function<std::unique_ptr<HostWindow> (GrafPtr window, Watcher& watcher)>;

    static std::unique_ptr<HostWindow> find (GrafPtr window, Watcher& watcher);

    /** No component may be inside any more. The window itself stays: it is the host's. */
    virtual ~HostWindow() = default;

    /** In pixels. */
    virtual int getWidth() const = 0;

    /** True if the window, and all that it stands in, is on the screen. */
    virtual bool isShown() const = 0;

    /** Makes the component a native window inside this one. Its position counts from this one's top left. */
    virtual void addChild (juce::Component& component) = 0;

    /** Takes the component's native window away, at the window system as well: when this returns, the host
       may destroy its own. Does no harm if the host was faster. */
    virtual void removeChild (juce::Component& component) = 0;

    /** Sends a key press that the component got, and did not use, on to this window. */
    virtual void forwardKey (const juce::KeyPress& key) = 0;
};

/** Replaces the source of host windows while it lives, so that tests need no window system. [message] */
class ScopedHostWindowSource
{
public:
    explicit ScopedHostWindowSource (HostWindow::Source source);
    ~ScopedHostWindowSource();

    ScopedHostWindowSource (const ScopedHostWindowSource&) = delete;
    ScopedHostWindowSource& operator= (const ScopedHostWindowSource&) = delete;

private:
    HostWindow::Source previous;
};
