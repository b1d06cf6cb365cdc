// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Resource files by number: which are open, and which one is the current one. Nothing reads out of them here,
// since the editor carries its own pictures and fonts; what counts is that every file that was opened is
// closed again.

#include "ResourceFiles.h"

#include <algorithm>
#include <limits>
#include <vector>

namespace platform
{
namespace
{
std::vector<std::int16_t> openFiles;
std::int16_t currentFile = programResourceFile;

bool isOpen (std::int16_t file) noexcept
{
    return file == programResourceFile
           || std::find (openFiles.begin(), openFiles.end(), file) != openFiles.end();
}
} // namespace

std::int16_t openBundleResources()
{
    std::int16_t file = 1;

    while (isOpen (file) && file < std::numeric_limits<std::int16_t>::max())
        ++file;

    openFiles.push_back (file);
    currentFile = file;
    return file;
}

void closeResourceFile (std::int16_t file) noexcept
{
    std::erase (openFiles, file);

    if (currentFile == file)
        currentFile = programResourceFile;
}

std::int16_t currentResourceFile() noexcept
{
    return currentFile;
}

void useResourceFile (std::int16_t file) noexcept
{
    if (isOpen (file))
        currentFile = file;
}

int numOpenResourceFiles() noexcept
{
    return static_cast<int> (openFiles.size());
}
} // namespace platform
