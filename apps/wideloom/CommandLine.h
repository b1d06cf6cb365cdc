// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Puts the subcommands together and runs the one that is asked for.

#pragma once

#include "Command.h"

/** [message] Parses and runs; prints help, version and what is wrong. */
ExitStatus runCommandLine (int argc, char** argv);
