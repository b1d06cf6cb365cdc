// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Finds the functions of the host's framework, which are not linked, by their names.

#include "UDigiLibAccess.h"

#include <array>

namespace
{
struct FicRoutineName
{
    FicFunctionIndex index;
    const char* name;
};

#define FIC_HOST_FUNCTION_NAME(Result, Name, parameters)                                                     \
    FicRoutineName { FicFunctionIndex::index##Name, #Name },

constexpr auto gFicRoutineNames =
    std::to_array<FicRoutineName> ({ FIC_HOST_FUNCTIONS (FIC_HOST_FUNCTION_NAME) });

#undef FIC_HOST_FUNCTION_NAME

bool isLoaded = false;
std::array<platform::HostFunction, gFicRoutineNames.size()> functions {};
} // namespace

std::int32_t UDigiLibAccess::Initialize()
{
    Terminate();

    if (platform::findHostFunction (FIC_FRAMEWORK_MARKER) == nullptr)
        return ficFrameworkMissing;

    for (const auto& row : gFicRoutineNames)
        functions[static_cast<std::size_t> (row.index)] = platform::findHostFunction (row.name);

    isLoaded = true;
    return ficSuccess;
}

void UDigiLibAccess::Terminate() noexcept
{
    isLoaded = false;
    functions.fill (nullptr);
}

bool UDigiLibAccess::IsLoaded() noexcept
{
    return isLoaded;
}

std::int32_t UDigiLibAccess::GetProcPtr (FicFunctionIndex index, platform::HostFunction* function) noexcept
{
    *function = functions[static_cast<std::size_t> (index)];
    return *function == nullptr ? ficNoSuchRoutine : ficSuccess;
}
