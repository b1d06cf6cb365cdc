// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// A plug-in bundle, loaded and reached through its exported names alone.

#pragma once

#include "HostServices.h"

namespace refhost
{
/** The bundle's routines, by their names. */
struct HostRoutines
{
#define REFHOST_ROUTINE(selector, Name, ...) PI_##Name##Proc Name = nullptr;
    FIC_ROUTINES (REFHOST_ROUTINE, REFHOST_ROUTINE, REFHOST_ROUTINE, REFHOST_ROUTINE)
#undef REFHOST_ROUTINE
};

/** [host-main] */
class HostBundle
{
public:
    /** Loads a bundle folder. Null, and a problem for the user, when it is none. The code stays in memory:
       what it left in the process, such as handlers, must not lose its ground. */
    static std::unique_ptr<HostBundle> load (const std::string& path, std::string& problem);

    /** Stops it if it was started. */
    ~HostBundle();
    HostBundle (const HostBundle&) = delete;
    HostBundle& operator= (const HostBundle&) = delete;

    /** Starts the plug-in, gives it the remote object manager and this host's object, and makes its native
        real-time types visible. The first result that is not 0. */
    std::int32_t start();
    std::int32_t stop();

    /** An exported name; null when there is none. */
    void* findExport (const char* name) const;

    /** As __PI_GetRoutineDescriptor's function answers. */
    std::int32_t getRoutine (std::int32_t selector, FicRoutine* routine) const
    {
        return getDescriptor (selector, routine);
    }

    const HostRoutines& getRoutines() const noexcept { return routines; }

    /** What describes its types; index from 1. */
    std::int32_t getNumTypes() const;
    std::int32_t getTypeIDs (std::int32_t index, SFicPlugInSpec& ids) const;

    FicBundle& getReference() noexcept { return reference; }

    static constexpr std::int32_t nativePlugInType = 3;

private:
    HostBundle (const std::string& path, void* libraryToUse);

    bool findEntryPoints (std::string& problem);

    FicBundle reference;
    void* library;
    NewMachOPlugInProc newPlugIn = nullptr;
    CloseMachOPlugInProc closePlugIn = nullptr;
    PI_GetRoutineDescriptorProc getDescriptor = nullptr;
    HostRoutines routines;
    bool isStarted = false;
};
} // namespace refhost
