// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Finds windows on the X server, or wherever a test has set instead.

#include "HostWindow.h"

#include "X11HostWindow.h"

#include <utility>

namespace
{
HostWindow::Source& hostWindowSource()
{
    static HostWindow::Source source { X11HostWindow::find };
    return source;
}
} // namespace

std::unique_ptr<HostWindow> HostWindow::find (GrafPtr window, Watcher& watcher)
{
    return hostWindowSource() (window, watcher);
}

ScopedHostWindowSource::ScopedHostWindowSource (HostWindow::Source source)
    : previous (std::exchange (hostWindowSource(), std::move (source)))
{
}

ScopedHostWindowSource::~ScopedHostWindowSource()
{
    hostWindowSource() = std::move (previous);
}
