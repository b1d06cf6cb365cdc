// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Parameter changes at given samples, read from a file.

#pragma once

#include "Command.h"
#include "ParameterText.h"

#include <cstdint>
#include <string_view>
#include <vector>

struct AutomationEvent
{
    std::int64_t position = 0; ///< frames from the start
    ParameterSetting setting;
};

/** Events by position; those of one position in the order of the file. */
using AutomationEvents = std::vector<AutomationEvent>;

/** Reads lines of "position,name,value": the frame from 0, a name of the parameter table, the normalised
   value. Blank lines, lines that begin with "#" and a heading of just these three words are passed over. The
   problem names the file and the line. */
Problem readAutomation (std::string_view text, const std::string& fileName, AutomationEvents& events);

/** The same from a file. */
Problem loadAutomation (const std::string& path, AutomationEvents& events);
