// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Whole reads and writes on file descriptors, and files without a name.

#pragma once

#include <cstddef>
#include <string>
#include <sys/types.h>

/** Takes the places of standard streams that the program was started without, so that nothing else is opened
    there and mistaken for them. Using one of them then fails. Comes before anything is opened. */
void occupyStandardStreams() noexcept;

/** The system's text for the present errno. */
std::string systemError();

/** Reads until the buffer is full or the stream ends, and says how many bytes came; negative when the medium
    fails or the program is asked to stop. */
ssize_t readFully (int descriptor, void* destination, std::size_t count) noexcept;

/** False, with errno set, when not all could be written. */
bool writeFully (int descriptor, const void* source, std::size_t count) noexcept;

/** A file in the folder for temporary ones that is gone as soon as it is closed, even by a crash. Negative,
   with errno set, when there can be none. */
int openNamelessFile() noexcept;
