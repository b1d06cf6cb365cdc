// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Loops around system calls that do less than they were asked for.

#include "FileDescriptors.h"

#include "Interruption.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <initializer_list>
#include <unistd.h>

void occupyStandardStreams() noexcept
{
    // The lowest free number is the one that open() gives, and all below it are taken.
    for (const int stream : { STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO })
        if (::fcntl (stream, F_GETFD) < 0
            && ::open ("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY) != stream)
            return;
}

std::string systemError()
{
    return std::strerror (errno);
}

ssize_t readFully (int descriptor, void* destination, std::size_t count) noexcept
{
    std::size_t done = 0;

    while (done < count)
    {
        const auto got = ::read (descriptor, static_cast<char*> (destination) + done, count - done);

        if (got < 0 && errno == EINTR && ! wasInterrupted())
            continue;

        if (got < 0)
            return got;

        if (got == 0)
            break;

        done += static_cast<std::size_t> (got);
    }

    return static_cast<ssize_t> (done);
}

bool writeFully (int descriptor, const void* source, std::size_t count) noexcept
{
    const auto* bytes = static_cast<const char*> (source);

    while (count > 0)
    {
        const auto written = ::write (descriptor, bytes, count);

        if (written < 0 && errno == EINTR && ! wasInterrupted())
            continue;

        if (written < 0)
            return false;

        bytes += written;
        count -= static_cast<std::size_t> (written);
    }

    return true;
}

int openNamelessFile() noexcept
{
    const char* folder = std::getenv ("TMPDIR");
    auto pattern = std::string (folder != nullptr && *folder != 0 ? folder : "/tmp") + "/wideloom-XXXXXX";
    const int descriptor = ::mkostemp (pattern.data(), O_CLOEXEC);

    if (descriptor >= 0)
        ::unlink (pattern.c_str());

    return descriptor;
}
