// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The compressed body of preset files.

#pragma once

#include <juce_core/juce_core.h>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

/** [any] Inflates a zlib stream (RFC 1950); what stands behind its end is left alone. Nothing if the stream
   is damaged, cut short, fails its own checksum, or gives more than `maxBytes`. */
std::optional<std::string> inflateZlib (std::string_view stream, std::size_t maxBytes);

/** [any] The bytes as a zlib stream, compressed at the highest level. */
juce::MemoryBlock deflateZlib (std::string_view bytes);
