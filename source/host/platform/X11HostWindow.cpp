// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Follows one window over the connection and tells its watcher of changes.

#include "X11HostWindow.h"

#include <utility>

namespace
{
/** The numbers of windows leave the three highest of 32 bits free. */
constexpr GrafPtr largestWindow = 0x1fffffff;
} // namespace

std::unique_ptr<HostWindow> X11HostWindow::find (GrafPtr window, Watcher& watcher)
{
    if (window == 0 || window > largestWindow)
        return nullptr;

    auto connection = X11Connection::get();

    if (connection == nullptr)
        return nullptr;

    // Watched before it is looked at, so that no change falls between the two.
    connection->watch (window);
    const auto state = connection->getState (window);

    if (state == nullptr)
        return nullptr;

    return std::unique_ptr<HostWindow> (new X11HostWindow (std::move (connection), window, *state, watcher));
}

X11HostWindow::X11HostWindow (std::shared_ptr<X11Connection> connectionToUse,
                              X11Connection::WindowId windowToWatch,
                              const X11Connection::WindowState& stateNow,
                              Watcher& watcherToTell)
    : connection (std::move (connectionToUse)),
      window (windowToWatch),
      watcher (watcherToTell),
      state (stateNow)
{
    connection->addListener (*this);
}

X11HostWindow::~X11HostWindow()
{
    connection->removeListener (*this);
}

int X11HostWindow::getWidth() const
{
    return state.width;
}

bool X11HostWindow::isShown() const
{
    return state.isShown;
}

void X11HostWindow::addChild (juce::Component& component)
{
    // JUCE takes the number of the native parent in the shape of a pointer.
    component.addToDesktop (juce::ComponentPeer::windowIsTemporary,
                            reinterpret_cast<void*> (static_cast<std::uintptr_t> (window)));

    if (auto* peer = component.getPeer())
        connection->keepKeysOf (reinterpret_cast<X11Connection::WindowId> (peer->getNativeHandle()));
}

void X11HostWindow::removeChild (juce::Component& component)
{
    // JUCE waits here for the server to do it.
    component.removeFromDesktop();
}

void X11HostWindow::forwardKey (const juce::KeyPress& key)
{
    connection->sendKey (key, window);
}

void X11HostWindow::windowDestroyed (X11Connection::WindowId destroyed)
{
    if (destroyed == window)
        watcher.hostWindowGone(); // which may destroy this object
}

void X11HostWindow::windowsChanged()
{
    // It may stand in other windows than before.
    connection->watch (window);
    const auto newState = connection->getState (window);

    if (newState == nullptr)
        return; // news of its end is on its way

    if (newState->isShown != state.isShown || newState->width != state.width)
    {
        state = *newState;
        watcher.hostWindowChanged(); // which may destroy this object
    }
}
