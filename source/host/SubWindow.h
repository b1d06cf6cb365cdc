// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Keeps a component in its place inside a window of the host.

#pragma once

#include "platform/HostWindow.h"

/** A component inside a host's window: at its top, in the middle if it is narrower, at the left edge if not;
   shown and hidden with it. When the host destroys the window first, the component comes out of it and lives
   on unseen. Made and destroyed by attachSubWindow() and removeSubWindow(). [host-main] */
class SubWindow final : private HostWindow::Watcher
{
public:
    SubWindow (GrafPtr hostWindow, juce::Component& comp);
    ~SubWindow() override;

    /** Sends a key on to the host's window. */
    void forwardKey (const juce::KeyPress& key);

    SubWindow (const SubWindow&) = delete;
    SubWindow& operator= (const SubWindow&) = delete;

private:
    void hostWindowChanged() override;
    void hostWindowGone() override;

    void followHostWindow();

    juce::Component& component;
    std::unique_ptr<HostWindow> window; // null if there never was one, or is none any more
};

/** Puts the component into the host's window. It stays out of any if there is no such window. */
std::unique_ptr<SubWindow> attachSubWindow (GrafPtr hostWindow, juce::Component& comp);

/** Takes the component out again; after that the host may destroy its window. */
void removeSubWindow (std::unique_ptr<SubWindow> subWindow);

/** Sends a key that the editor did not use on to the host's window. */
void forwardCurrentKeyEventToHostWindow (SubWindow& subWindow, const juce::KeyPress& key);

/** Closes every menu, and the modal component if there is one. JUCE takes them away with its next messages.
 */
void closeMenusAndModalComponent();
