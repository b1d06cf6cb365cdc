// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// `wideloom presets`: lists factory and user presets.

#pragma once

#include "Command.h"

void addPresetsCommand (CLI::App& program, ExitStatus& status);
