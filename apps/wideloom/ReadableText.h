// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// File names, which may hold any bytes, as text for places that take nothing but text.

#pragma once

#include <juce_core/juce_core.h>

#include <string_view>

/** The text as it is if it is UTF-8. If not, with a replacement character for each byte that is not ASCII,
   for tables, pictures and JSON. */
juce::String readableText (std::string_view text);
