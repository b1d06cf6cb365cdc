// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// `wideloom host-info`: what a host sees of the plug-in.

#pragma once

#include "Command.h"

void addHostInfoCommand (CLI::App& program, ExitStatus& status);
