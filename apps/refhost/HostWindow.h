// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The window in which the host shows an instance's editor.

#pragma once

#include "HostInstance.h"

struct _XDisplay;

namespace refhost
{
/** [host-main] Opens an instance's view in a window of its own, as large as the view asks for. The instance
    outlives it. */
class HostWindow
{
public:
    /** Null, and a problem for the user, when there is no display or no view. */
    static std::unique_ptr<HostWindow> open (const HostBundle& bundle,
                                             HostServices& services,
                                             const HostInstance& instance,
                                             const std::string& title,
                                             std::string& problem);

    /** Takes the view away before the window goes. */
    ~HostWindow();
    HostWindow (const HostWindow&) = delete;
    HostWindow& operator= (const HostWindow&) = delete;

    void setTitle (const std::string& title);

    /** Handles what has happened to the window, follows the view's size when the plug-in says that it
       changed, and lets the instance idle. False once the user has closed the window. */
    bool idle();

    /** Waits until something happens to the window, or some time has passed. */
    void wait (int milliseconds) const;

    /** Keys that the plug-in left to the host, as X11 keysyms, since the last call. */
    std::vector<unsigned long> takeKeys();

    unsigned long getWindowNumber() const noexcept { return window; }

private:
    HostWindow (const HostBundle& bundleToUse,
                HostServices& servicesToUse,
                const HostInstance& instanceToUse);

    bool readViewSize();
    bool makeWindow (const std::string& title);
    void followViewSize();
    void limitSize();

    const HostBundle& bundle;
    HostServices& services;
    const HostInstance& instance;
    _XDisplay* display = nullptr;
    unsigned long window = 0, deleteMessage = 0;
    int width = 0, height = 0; // pixels
    bool isClosed = false, sizeChanged = false;
    std::function<void (const SFicSDSToken&)> previousObserver;
    std::vector<unsigned long> keys;
};
} // namespace refhost
