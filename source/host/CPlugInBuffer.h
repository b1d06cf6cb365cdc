// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The words of one message to the host's real-time engine.

#pragma once

#include <cstdint>
#include <vector>

/** Words are as wide as a pointer, so that a reference needs one, and numbers are widened. */
class CPlugInBuffer
{
public:
    /** [host-main] */
    void AppendWord (std::uintptr_t word) { words.push_back (word); }

    /** [host-main] */
    const std::uintptr_t* GetWords() const noexcept { return words.data(); }
    std::int32_t GetNumWords() const noexcept { return static_cast<std::int32_t> (words.size()); }

private:
    std::vector<std::uintptr_t> words;
};
