// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// "wideloom picture": paints the editor into a PNG file.

#pragma once

#include "Command.h"

/** Adds the subcommand. */
void addPictureCommand (CLI::App& program, ExitStatus& status);
