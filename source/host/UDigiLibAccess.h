// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Finds the functions of the host's framework, which are not linked, by their names.

#pragma once

#include "HostInterface.h"
#include "platform/HostLibrary.h"

#include <cstdint>

#define FIC_HOST_FUNCTION_INDEX(Result, Name, parameters) index##Name,

/** Counts the rows of FIC_HOST_FUNCTIONS. */
enum class FicFunctionIndex
{
    FIC_HOST_FUNCTIONS (FIC_HOST_FUNCTION_INDEX)
};

#undef FIC_HOST_FUNCTION_INDEX

/** The framework as one library object per bundle. [host-main] to load and unload, [any] to ask. */
class UDigiLibAccess
{
public:
    /** Looks up every name of gFicRoutineNames. Returns ficFrameworkMissing, and all functions then count as
       missing, if the framework's marker is not there, else 0. */
    static std::int32_t Initialize();

    /** Forgets what Initialize() found. */
    static void Terminate() noexcept;

    static bool IsLoaded() noexcept;

    /** Gives the function of that index and returns 0, or gives null and returns ficNoSuchRoutine. */
    static std::int32_t GetProcPtr (FicFunctionIndex index, platform::HostFunction* function) noexcept;
};
