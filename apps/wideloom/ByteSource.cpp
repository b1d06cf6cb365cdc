// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Opens files as they are; what cannot be read twice is kept in a file without a name.

#include "ByteSource.h"

#include "FileDescriptors.h"
#include "Interruption.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

namespace
{
constexpr std::size_t copyBufferBytes = 1 << 16;
constexpr std::size_t bytesThatTell = 12;
} // namespace

std::string inputName (const std::string& path)
{
    return path == "-" ? "standard input" : "'" + path + "'";
}

bool beginsLikeAudio (const unsigned char* bytes, std::size_t count) noexcept
{
    const std::string_view text (reinterpret_cast<const char*> (bytes), count);

    if (text.starts_with ("fLaC"))
        return true;

    if (count < bytesThatTell)
        return false;

    const auto container = text.substr (0, 4);
    const auto kind = text.substr (8, 4);
    return ((container == "RIFF" || container == "RF64") && kind == "WAVE")
           || (container == "FORM" && (kind == "AIFF" || kind == "AIFC"));
}

ByteSource::ByteSource (int descriptorToOwn, std::int64_t size, bool wasStream) noexcept
    : descriptor (descriptorToOwn),
      numBytes (size),
      streamed (wasStream)
{
}

ByteSource::~ByteSource()
{
    ::close (descriptor);
}

std::unique_ptr<ByteSource> ByteSource::open (const std::string& path, Problem& problem)
{
    const int file = path == "-" ? ::fcntl (STDIN_FILENO, F_DUPFD_CLOEXEC, 0)
                                 : ::open (path.c_str(), O_RDONLY | O_CLOEXEC);

    if (file < 0)
    {
        problem = inputName (path) + ": it cannot be opened: " + systemError();
        return nullptr;
    }

    struct stat status = {};

    if (::fstat (file, &status) == 0 && S_ISREG (status.st_mode))
        return std::unique_ptr<ByteSource> (new ByteSource (file, status.st_size, false));

    std::unique_ptr<ByteSource> spooled;

    if (S_ISDIR (status.st_mode))
        problem = inputName (path) + ": this is a folder; name the audio files in it";
    else if (path == "-" && ::isatty (file) != 0)
        problem =
            "standard input: it is the terminal; lead a WAV file into it, for instance with '< file.wav'";
    else if (spooled = spool (file, problem); problem)
        problem = inputName (path) + ": " + *problem;

    ::close (file);
    return spooled;
}

std::unique_ptr<ByteSource> ByteSource::spool (int stream, Problem& problem)
{
    std::array<unsigned char, copyBufferBytes> buffer;
    auto got = readFully (stream, buffer.data(), bytesThatTell);

    if (got >= 0 && ! beginsLikeAudio (buffer.data(), static_cast<std::size_t> (got)))
    {
        problem = got == 0 ? "it is empty; a WAV, AIFF or FLAC file is needed"
                           : "this is no audio; a WAV, AIFF or FLAC file is needed";
        return nullptr;
    }

    const int file = openNamelessFile();

    if (file < 0)
    {
        problem = "it cannot be kept in a temporary file: " + systemError();
        return nullptr;
    }

    std::unique_ptr<ByteSource> spooled (new ByteSource (file, 0, true));

    while (got > 0)
    {
        if (! writeFully (file, buffer.data(), static_cast<std::size_t> (got)))
        {
            problem = "it cannot be kept in a temporary file: " + systemError();
            return nullptr;
        }

        spooled->numBytes += got;
        got = readFully (stream, buffer.data(), buffer.size());
    }

    if (got < 0)
    {
        problem = wasInterrupted() ? "it was not read to its end: interrupted"
                                   : "it cannot be read: " + systemError();
        return nullptr;
    }

    return spooled;
}

std::size_t ByteSource::read (std::int64_t position, void* destination, std::size_t count) const noexcept
{
    std::size_t done = 0;

    while (done < count)
    {
        const auto got = ::pread (descriptor,
                                  static_cast<char*> (destination) + done,
                                  count - done,
                                  position + static_cast<std::int64_t> (done));

        if (got < 0 && errno == EINTR)
            continue;

        if (got <= 0)
            break;

        done += static_cast<std::size_t> (got);
    }

    return done;
}
