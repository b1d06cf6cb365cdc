// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Starts Xvfb and openbox, and waits until each of them is ready.

#include "XServer.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <cstdlib>
#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace
{
// For a machine that is busy with other things.
constexpr int startTimeoutMs = 20000;
constexpr int attemptMs = 100;
constexpr int maxAttempts = startTimeoutMs / attemptMs;

/** Starts a program, silently, that does not outlive this one. 0 if that is impossible. A missing program
   ends at once. */
pid_t start (std::vector<std::string> arguments)
{
    std::vector<char*> pointers;

    for (auto& argument : arguments)
        pointers.push_back (argument.data());

    pointers.push_back (nullptr);

    const auto child = ::fork();

    if (child != 0)
        return child > 0 ? child : 0;

    ::prctl (PR_SET_PDEATHSIG, SIGTERM);

    if (const int nowhere = ::open ("/dev/null", O_RDWR); nowhere >= 0)
        for (const int standardFile : { STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO })
            ::dup2 (nowhere, standardFile);

    ::execvp (pointers.front(), pointers.data());
    ::_exit (EXIT_FAILURE);
}

void end (pid_t process)
{
    if (process == 0)
        return;

    ::kill (process, SIGTERM);
    ::waitpid (process, nullptr, 0);
}

bool waitUntilReadable (int file, int timeoutMs)
{
    pollfd request { file, POLLIN, 0 };
    return ::poll (&request, 1, timeoutMs) > 0;
}
} // namespace

XServer::XServer()
{
    int pipeEnds[2] {};

    if (::pipe (pipeEnds) != 0)
    {
        fault = "no pipe";
        return;
    }

    ::fcntl (pipeEnds[0], F_SETFD, FD_CLOEXEC);
    server = start ({ "Xvfb",
                      "-displayfd",
                      std::to_string (pipeEnds[1]),
                      "-screen",
                      "0",
                      "1280x1024x24",
                      "-nolisten",
                      "tcp" });
    ::close (pipeEnds[1]);

    // It writes the number of the display, and a line end, once it is ready.
    std::string number;
    char character = 0;

    while (waitUntilReadable (pipeEnds[0], startTimeoutMs) && ::read (pipeEnds[0], &character, 1) == 1
           && character != '\n')
        number += character;

    ::close (pipeEnds[0]);

    if (number.empty() || character != '\n')
    {
        fault = "Xvfb is not installed or does not start";
        return;
    }

    ::setenv ("DISPLAY", (":" + number).c_str(), 1);
}

XServer::~XServer()
{
    end (windowManager);
    end (server);
}

bool XServer::startWindowManager()
{
    auto* const display = XOpenDisplay (nullptr);

    if (display == nullptr)
        return false;

    const auto announcement = XInternAtom (display, "_NET_SUPPORTING_WM_CHECK", False);
    XSelectInput (display, DefaultRootWindow (display), PropertyChangeMask);
    XFlush (display);
    windowManager = start ({ "openbox" });

    for (bool announced = false; ! announced;)
    {
        if (XPending (display) == 0 && ! waitUntilReadable (ConnectionNumber (display), startTimeoutMs))
        {
            XCloseDisplay (display);
            return false;
        }

        while (XPending (display) > 0)
        {
            XEvent event {};
            XNextEvent (display, &event);
            announced = announced || (event.type == PropertyNotify && event.xproperty.atom == announcement);
        }
    }

    // It rules once a window that is mapped gets a frame. While it starts it loses requests, so they are
    // repeated.
    bool rules = false;

    for (int attempt = 0; attempt < maxAttempts && ! rules; ++attempt)
    {
        const auto probe = XCreateSimpleWindow (display, DefaultRootWindow (display), 0, 0, 1, 1, 0, 0, 0);
        XSelectInput (display, probe, StructureNotifyMask);
        XMapWindow (display, probe);
        XFlush (display);

        bool hasFrame = false;
        bool isMapped = false;

        while (! isMapped
               && (XPending (display) > 0 || waitUntilReadable (ConnectionNumber (display), attemptMs)))
        {
            while (XPending (display) > 0)
            {
                XEvent event {};
                XNextEvent (display, &event);
                hasFrame = hasFrame || event.type == ReparentNotify;
                isMapped = isMapped || event.type == MapNotify;
            }
        }

        rules = hasFrame && isMapped;
        XDestroyWindow (display, probe);
        XSync (display, True);
    }

    XCloseDisplay (display);
    return rules;
}
