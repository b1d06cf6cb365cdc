// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The bytes of session blocks.

#pragma once

#include "XmlGuard.h"

/** The name of the one element in a block. */
inline constexpr auto sessionTag = "Q7PLUGINSETTINGS";

/** As much of a file as needs to be looked at to read a block: it is longer than the longest good one. */
inline constexpr std::size_t maxSessionBlockBytes = maxXmlTextBytes + 64;

/** [message] The element in a block, or why it is none. `data` may be null. */
GuardedXml readSessionBlock (const void* data, int sizeInBytes);

/** [message] Replaces the contents of `block` with one around the text. */
void writeSessionBlock (const juce::String& text, juce::MemoryBlock& block);
