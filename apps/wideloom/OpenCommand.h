// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// "wideloom open": the editor on the desktop, with a file playing through it.

#pragma once

#include "Command.h"

/** Adds the subcommand. */
void addOpenCommand (CLI::App& program, ExitStatus& status);
