// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Readies the window system for editors.

#pragma once

namespace platform
{
/** [host-main] To be called before anything of JUCE's user interface, when the group of processes is made. On
   a bare X server JUCE would end the program with the first window it opens, since it relies on names that
   only a window manager registers; this registers them. Harmless where there is no window system, and when
   called again. */
void initialiseMacRTAS();
} // namespace platform
