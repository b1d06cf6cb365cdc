// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// How high the main display is.

#pragma once

/** [message] The height in pixels of the main display's usable area; 1000 where there is no display, or none
    that can be asked. Never 0 or less. */
int getMainDisplayUserHeight();

/** Replaces the answer while it lives, so that tests need no display. [message] */
class ScopedMainDisplayUserHeight
{
public:
    explicit ScopedMainDisplayUserHeight (int pixels);
    ~ScopedMainDisplayUserHeight();

    ScopedMainDisplayUserHeight (const ScopedMainDisplayUserHeight&) = delete;
    ScopedMainDisplayUserHeight& operator= (const ScopedMainDisplayUserHeight&) = delete;

private:
    int previous;
};
