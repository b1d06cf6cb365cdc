// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// An X server without a screen, and a window manager on it, for one run of tests.

#pragma once

#include <string>
#include <sys/types.h>

/** Runs Xvfb on a free display, which DISPLAY then names, and ends it again. */
class XServer
{
public:
    XServer();
    ~XServer();

    /** Starts openbox and waits until it rules. False if there is none. */
    bool startWindowManager();

    /** Why there is no server; empty if there is one. */
    const std::string& getFault() const { return fault; }

    XServer (const XServer&) = delete;
    XServer& operator= (const XServer&) = delete;

private:
    std::string fault;
    pid_t server = 0, windowManager = 0;
};
