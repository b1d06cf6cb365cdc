// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Preset files and session blocks that the user names.

#pragma once

#include "Command.h"

#include "presets/UserPresetFile.h"

/** Reads a preset file. The problem names it. */
Problem readPresetFile (const std::string& path, UserPresetFile::Contents& contents);

/** A problem when the tree sets none of the effect's parameters, so that loading it would change nothing. */
Problem findEmptiness (const juce::ValueTree& preset);

/** Reads a file that is a session block from its first byte on. The problem names it. */
Problem readSessionFile (const std::string& path, juce::MemoryBlock& block);
