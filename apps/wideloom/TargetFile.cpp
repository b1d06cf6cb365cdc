// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Writes beside the target and renames, with the care that links, permissions and full disks need.

#include "TargetFile.h"

#include "FileDescriptors.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace
{
constexpr std::size_t copyBufferBytes = 1 << 16;
constexpr mode_t permissionBits = 07777, readWriteForAll = 0666;

mode_t permissionsForNewFiles() noexcept
{
    const auto mask = ::umask (0);
    ::umask (mask);
    return readWriteForAll & ~mask;
}

/** Where a path leads when links are followed, so that a link to a file stays a link. */
std::string resolved (const std::string& path)
{
    std::error_code error;
    const auto target = std::filesystem::canonical (path, error);
    return error ? path : target.string();
}
} // namespace

std::unique_ptr<TargetFile> TargetFile::create (const std::string& path, bool replace, Problem& problem)
{
    std::unique_ptr<TargetFile> file (new TargetFile);
    file->name = path == "-" ? "standard output" : "'" + path + "'";
    problem.reset();

    if (path != "-")
    {
        problem = file->openBeside (path, replace);
    }
    else if (::isatty (STDOUT_FILENO) != 0)
    {
        problem = "standard output is the terminal; lead it into a file or a program";
    }
    else
    {
        file->descriptor = openNamelessFile();

        if (file->descriptor < 0)
            problem = file->failure();
    }

    return problem ? nullptr : std::move (file);
}

Problem TargetFile::openBeside (const std::string& path, bool replace)
{
    place = resolved (path);
    mayReplace = replace;
    struct stat existing = {};
    const bool exists = ::stat (place.c_str(), &existing) == 0;

    if (exists && ! S_ISREG (existing.st_mode))
        return name + " is no plain file; choose another name, or - for standard output";

    if (exists && ! replace)
        return name + " exists already; --force replaces it";

    const auto target = std::filesystem::path (place);
    auto pattern = (target.parent_path() / ".wideloom-XXXXXX").string();
    descriptor = ::mkostemp (pattern.data(), O_CLOEXEC);

    if (descriptor < 0)
        return failure();

    temporaryPath = pattern;
    ::fchmod (descriptor, exists ? existing.st_mode & permissionBits : permissionsForNewFiles());
    return {};
}

TargetFile::~TargetFile()
{
    if (descriptor >= 0)
        ::close (descriptor);

    if (! temporaryPath.empty())
        ::unlink (temporaryPath.c_str());
}

Problem TargetFile::commit()
{
    if (place.empty())
        return copyToStandardOutput();

    // Some file systems report a full disk only here.
    const int closed = ::close (std::exchange (descriptor, -1));

    if (closed != 0)
        return failure();

    const auto* from = temporaryPath.c_str();
    int moved = mayReplace ? ::rename (from, place.c_str())
                           : ::renameat2 (AT_FDCWD, from, AT_FDCWD, place.c_str(), RENAME_NOREPLACE);

    // Not every file system can refuse to replace.
    if (moved != 0 && ! mayReplace && errno == EINVAL && ::access (place.c_str(), F_OK) != 0)
        moved = ::rename (from, place.c_str());

    if (moved != 0)
        return errno == EEXIST ? name + " has come to exist meanwhile; --force replaces it" : failure();

    temporaryPath.clear();
    return {};
}

Problem TargetFile::copyToStandardOutput() const
{
    std::array<char, copyBufferBytes> buffer;
    off_t position = 0;

    for (;;)
    {
        const auto got = ::pread (descriptor, buffer.data(), buffer.size(), position);

        if (got == 0)
            return {};

        if (got < 0 || ! writeFully (STDOUT_FILENO, buffer.data(), static_cast<std::size_t> (got)))
            return failure();

        position += got;
    }
}

Problem TargetFile::failure() const
{
    return name + " cannot be written: " + systemError();
}
