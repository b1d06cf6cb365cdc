// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Renders many files at once, each in a process of its own.

#pragma once

#include "RenderOptions.h"

/** Runs as many processes as the options say. A file that fails does not stop the others; all that failed are
    named at the end. An interruption is passed on to the processes, which clean up behind themselves; what
    had not been started by then is named, too. */
ExitStatus runRenderBatch (const RenderOptions& options, const std::vector<RenderOptions::Task>& tasks);
