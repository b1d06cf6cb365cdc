// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// `wideloom preset`: shows, converts and checks preset files.

#pragma once

#include "Command.h"

void addPresetCommand (CLI::App& program, ExitStatus& status);
