// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// `wideloom params`: lists the parameters.

#pragma once

#include "Command.h"

void addParamsCommand (CLI::App& program, ExitStatus& status);
