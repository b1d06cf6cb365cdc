// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// What a host sees of the plug-in.

#pragma once

#include "HostSession.h"

#include <juce_core/juce_core.h>

/** All that the plug-in tells of itself, its type and a fresh instance. */
juce::var hostInfoJson (HostSession& session);

/** The same to be read by people. */
juce::String hostInfoText (const juce::var& info);
