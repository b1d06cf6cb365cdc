// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Makes the window with Xlib and keeps it as large as the view.

#include "HostWindow.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <poll.h>

#include <algorithm>
#include <utility>

namespace refhost
{
HostWindow::HostWindow (const HostBundle& bundleToUse,
                        HostServices& servicesToUse,
                        const HostInstance& instanceToUse)
    : bundle (bundleToUse),
      services (servicesToUse),
      instance (instanceToUse)
{
}

std::unique_ptr<HostWindow> HostWindow::open (const HostBundle& bundle,
                                              HostServices& services,
                                              const HostInstance& instance,
                                              const std::string& title,
                                              std::string& problem)
{
    std::unique_ptr<HostWindow> opened (new HostWindow (bundle, services, instance));
    opened->display = ::XOpenDisplay (nullptr);

    if (opened->display == nullptr)
        problem = "there is no display to open a window on";
    else if (! opened->readViewSize())
        problem = "the plug-in shows no editor";
    else if (opened->makeWindow (title))
        return opened;

    return {};
}

bool HostWindow::readViewSize()
{
    Rect area {};
    bundle.getRoutines().GetViewRect (instance.getType(), instance.getIndex(), &area);
    width = area.right - area.left;
    height = area.bottom - area.top;
    return width > 0 && height > 0;
}

bool HostWindow::makeWindow (const std::string& title)
{
    window = ::XCreateSimpleWindow (display,
                                    DefaultRootWindow (display),
                                    0,
                                    0,
                                    static_cast<unsigned> (width),
                                    static_cast<unsigned> (height),
                                    0,
                                    0,
                                    BlackPixel (display, DefaultScreen (display)));
    deleteMessage = ::XInternAtom (display, "WM_DELETE_WINDOW", False);
    ::XSetWMProtocols (display, window, &deleteMessage, 1);
    ::XSelectInput (display, window, StructureNotifyMask | KeyPressMask | FocusChangeMask);
    setTitle (title);
    limitSize();
    ::XMapWindow (display, window);

    // The plug-in is on a connection of its own: the window has to be there before it is told.
    ::XSync (display, False);

    // The plug-in's size changes are tokens of its process.
    previousObserver = services.tokens.observer;
    services.tokens.observer = [this] (const SFicSDSToken& token)
    {
        if (token.tokenType == FIC_TOKEN_SET && token.tokenSubType == FIC_TOKEN_NEW_SIZE)
            sizeChanged = true;

        if (previousObserver)
            previousObserver (token);
    };

    bundle.getRoutines().SetViewPort (instance.getType(), instance.getIndex(), window);
    return true;
}

HostWindow::~HostWindow()
{
    if (window != 0)
    {
        bundle.getRoutines().SetViewPort (instance.getType(), instance.getIndex(), 0);
        services.tokens.observer = std::move (previousObserver);
        ::XDestroyWindow (display, window);
    }

    if (display != nullptr)
        ::XCloseDisplay (display);
}

void HostWindow::setTitle (const std::string& title)
{
    Xutf8SetWMProperties (
        display, window, title.c_str(), title.c_str(), nullptr, 0, nullptr, nullptr, nullptr);
    ::XFlush (display);
}

void HostWindow::limitSize()
{
    // The plug-in alone says how large its view is.
    XSizeHints hints {};
    hints.flags = PMinSize | PMaxSize;
    hints.min_width = hints.max_width = width;
    hints.min_height = hints.max_height = height;
    ::XSetWMNormalHints (display, window, &hints);
}

void HostWindow::followViewSize()
{
    if (! std::exchange (sizeChanged, false) || ! readViewSize())
        return;

    limitSize();
    ::XResizeWindow (display, window, static_cast<unsigned> (width), static_cast<unsigned> (height));
    ::XFlush (display);
}

bool HostWindow::idle()
{
    while (::XPending (display) > 0)
    {
        XEvent event;
        ::XNextEvent (display, &event);

        if (event.type == ClientMessage
            && static_cast<unsigned long> (event.xclient.data.l[0]) == deleteMessage)
            isClosed = true;
        else if (event.type == KeyPress)
            keys.push_back (::XLookupKeysym (&event.xkey, 0));
    }

    instance.idle();
    followViewSize();
    return ! isClosed;
}

void HostWindow::wait (int milliseconds) const
{
    if (::XPending (display) > 0)
        return;

    pollfd connection { ConnectionNumber (display), POLLIN, 0 };
    ::poll (&connection, 1, milliseconds);
}

std::vector<unsigned long> HostWindow::takeKeys()
{
    return std::exchange (keys, {});
}
} // namespace refhost
