// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The bytes of an input: a file, standard input or a pipe, all of known length and readable anywhere.

#pragma once

#include "Command.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

/** What cannot be sought in, a pipe for instance, is first copied to a file that has no name, so that long
    inputs need no memory and nothing stays behind. */
class ByteSource
{
public:
    /** Opens `path`, "-" for standard input. Null and a problem when that does not work or when what comes
        out of a pipe does not begin like an audio file. */
    static std::unique_ptr<ByteSource> open (const std::string& path, Problem& problem);

    ~ByteSource();
    ByteSource (const ByteSource&) = delete;
    ByteSource& operator= (const ByteSource&) = delete;

    std::int64_t size() const noexcept { return numBytes; }

    /** Whether it came through a pipe, whose writer could not go back to complete the header. */
    bool wasStreamed() const noexcept { return streamed; }

    /** Copies up to `count` bytes from `position` on and says how many; fewer only at the end or when the
        medium fails. */
    std::size_t read (std::int64_t position, void* destination, std::size_t count) const noexcept;

private:
    ByteSource (int descriptorToOwn, std::int64_t size, bool wasStream) noexcept;
    static std::unique_ptr<ByteSource> spool (int stream, Problem& problem);

    int descriptor;
    std::int64_t numBytes;
    bool streamed;
};

/** How a text for the user names an input or output: the path in quotation marks, or "standard input". */
std::string inputName (const std::string& path);

/** Whether bytes begin like WAV, AIFF or FLAC. `count` of 12 is enough to tell. */
bool beginsLikeAudio (const unsigned char* bytes, std::size_t count) noexcept;
