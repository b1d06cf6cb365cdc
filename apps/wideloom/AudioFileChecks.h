// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Checks that JUCE's readers leave out.

#pragma once

#include "Command.h"

#include <juce_core/juce_core.h>

/** Decodes a whole FLAC stream and compares it with its own checksum and length. JUCE's reader fills what is
   missing with silence.
    @returns what is wrong, or nothing */
Problem findFlacDamage (juce::InputStream& stream);
