// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Reads and replaces files so that neither a strange file nor a failed write does harm.

#pragma once

#include <juce_core/juce_core.h>

#include <cstddef>
#include <optional>
#include <string>

/** [message] At most the first `maxBytes` of a regular file. Nothing if it cannot be read, or is a folder, a
    pipe or a device, which may never end or never begin. */
std::optional<std::string> readFileStart (const juce::File& file, std::size_t maxBytes);

/** [message] Puts `contents` under the target's name in one step: whoever looks sees the old file or the
   whole new one. When it fails the old file stays, and the result says why. A folder is never replaced. */
juce::Result replaceFile (const juce::File& target, const juce::MemoryBlock& contents);
