// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// `wideloom render`: runs audio files through the effect.

#pragma once

#include "Command.h"

void addRenderCommand (CLI::App& program, ExitStatus& status);
