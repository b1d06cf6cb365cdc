// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// How the program is told to stop: by Ctrl-C, a termination request or the end of its terminal.

#pragma once

/** Makes SIGINT, SIGTERM and SIGHUP set a flag instead of ending the program, so that it can clean up, and
    makes failed writes return instead of ending it. */
void watchForInterruption() noexcept;

/** [any] Whether such a signal has come. Long work asks this often. */
bool wasInterrupted() noexcept;
