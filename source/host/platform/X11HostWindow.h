// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// A window of the host on an X server.

#pragma once

#include "HostWindow.h"
#include "X11Connection.h"

/** GrafPtr is the window's number. [host-main] */
class X11HostWindow final : public HostWindow, private X11Connection::Listener
{
public:
    static std::unique_ptr<HostWindow> find (GrafPtr window, Watcher& watcher);

    ~X11HostWindow() override;

    int getWidth() const override;
    bool isShown() const override;
    void addChild (juce::Component& component) override;
    void removeChild (juce::Component& component) override;
    void forwardKey (const juce::KeyPress& key) override;

    X11HostWindow (const X11HostWindow&) = delete;
    X11HostWindow& operator= (const X11HostWindow&) = delete;

private:
    X11HostWindow (std::shared_ptr<X11Connection> connectionToUse,
                   X11Connection::WindowId windowToWatch,
                   const X11Connection::WindowState& stateNow,
                   Watcher& watcherToTell);

    void windowDestroyed (X11Connection::WindowId destroyed) override;
    void windowsChanged() override;

    const std::shared_ptr<X11Connection> connection;
    const X11Connection::WindowId window;
    Watcher& watcher;
    X11Connection::WindowState state;
};
