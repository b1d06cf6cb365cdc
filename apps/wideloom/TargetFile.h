// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// A file that comes into being all at once or not at all.

#pragma once

#include "Command.h"

#include <memory>
#include <string>

/** Is written under a temporary name beside its place, and takes its place when it is complete. Without
    commit() nothing stays behind. A path of "-" stands for standard output, to which the complete file is
    copied. */
class TargetFile
{
public:
    /** Null and a problem that names the path when there is something already and `replace` is not set, or
        when the folder cannot be written to. */
    static std::unique_ptr<TargetFile> create (const std::string& path, bool replace, Problem& problem);

    ~TargetFile();
    TargetFile (const TargetFile&) = delete;
    TargetFile& operator= (const TargetFile&) = delete;

    /** Open for reading and writing at any place until commit(). */
    int getDescriptor() const noexcept { return descriptor; }

    /** How messages name it: the path in quotes, or "standard output". */
    const std::string& getName() const noexcept { return name; }

    /** Puts the file in its place. */
    Problem commit();

private:
    TargetFile() = default;
    Problem openBeside (const std::string& path, bool replace);
    Problem copyToStandardOutput() const;
    Problem failure() const;

    std::string name;
    std::string place;         ///< where it goes; empty for standard output
    std::string temporaryPath; ///< empty when there is none to be removed
    int descriptor = -1;
    bool mayReplace = false;
};
