// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The numbered routines that a host calls: one function for each row, behind the wall that no exception
// passes.

#include "Routines.h"

#include "CallNoThrow.h"
#include "GroupFunc.h"

#include <array>

namespace
{
/** For routines that want the critical section only when more than usual shall run inside it. */
struct CriticalSectionRow
{
    std::int32_t selector;
    std::int32_t lowestScope;
};

constexpr auto criticalSectionRows = std::to_array<CriticalSectionRow> ({
    { ficSelectorDraw, 99 },
    { ficSelectorSetViewPort, 99 },
    { ficSelectorProcessData, 99 },
    { ficSelectorReleaseMIDI, 99 },
    { ficSelectorGetAutoType, 100 },
});

bool asksForCriticalSection (std::int32_t selector) noexcept
{
    for (const auto& row : criticalSectionRows)
        if (row.selector == selector)
            return CProcessGroupInterface::sCriticalSectionScope >= row.lowestScope;

    return true;
}

/** Memory zones were a matter of the host's platform; here every call runs in the same one. */
constexpr bool useZone = true;

template <typename Functor>
std::int32_t CallNoThrowCommon (const Functor& functor, bool /*useZone*/, bool useCriticalSection) noexcept
{
    auto* const group = gProcessGroup;

    if (group == nullptr)
        return ficNoGroup;

    const auto entered = useCriticalSection && CProcessGroupInterface::sCriticalSectionScope != 0
                         && group->EnterCriticalSection() == ficSuccess;

    const auto result = CallAndTranslateExceptionsToReturnValues (functor);

    if (entered)
        group->LeaveCriticalSection();

    return result;
}

/** The operation that a routine goes through: the one of its name, but for these. */
template <auto operation>
inline constexpr auto routedThrough = operation;

using Interface = CProcessGroupInterface;

template <>
inline constexpr auto routedThrough<&Interface::GetControlNameOfLength> =
    &Interface::GetControlNameOfLengthLessArgs;
template <>
inline constexpr auto routedThrough<&Interface::GetAutoEventList> = &Interface::GetAutoEventListRetCompRes;
template <>
inline constexpr auto routedThrough<&Interface::GetAutoEventTag> = &Interface::GetAutoEventTagRetCompRes;
template <>
inline constexpr auto routedThrough<&Interface::SetXCMDProc> = &Interface::SetXCMDProcRetCompRes;

template <auto operation, std::int32_t selector, typename... Arguments>
std::int32_t dispatch (Arguments... arguments) noexcept
{
    return CallNoThrowCommon (
        groupFunc (routedThrough<operation>, arguments...), useZone, asksForCriticalSection (selector));
}

/** For more arguments than a function object takes. */
template <auto operation, std::int32_t selector, typename... Arguments>
std::int32_t dispatchInstance (std::uint32_t type, std::int32_t process, Arguments... arguments) noexcept
{
    constexpr std::size_t mostArguments = 4; // beside the two that name the instance

    if constexpr (sizeof...(arguments) > mostArguments)
        return dispatch<operation, selector> (SProcessSpecifier { type, process }, arguments...);
    else
        return dispatch<operation, selector> (type, process, arguments...);
}

#define GROUP_ROUTINE(selector, Name, parameters, names)                                                     \
    std::int32_t PI_##Name parameters                                                                        \
    {                                                                                                        \
        return dispatch<&Interface::Name, selector> names;                                                   \
    }
#define TYPE_ROUTINE(selector, Name, parameters, names)                                                      \
    std::int32_t PI_##Name (std::uint32_t type FIC_BARE parameters)                                          \
    {                                                                                                        \
        return dispatch<&Interface::Name, selector> (type FIC_BARE names);                                   \
    }
#define PROCESS_ROUTINE(selector, Name, answer, parameters, names)                                           \
    std::int32_t PI_##Name (std::uint32_t type, std::int32_t process FIC_BARE parameters)                    \
    {                                                                                                        \
        return dispatchInstance<&Interface::Name, selector> (type, process FIC_BARE names);                  \
    }
#define FIXED_ROUTINE(selector, Name, parameters, names)                                                     \
    std::int32_t PI_##Name (std::uint32_t type, std::int32_t process FIC_BARE parameters)                    \
    {                                                                                                        \
        return host::fixedAnswer<selector> (type, process FIC_BARE names);                                   \
    }

FIC_ROUTINES (GROUP_ROUTINE, TYPE_ROUTINE, PROCESS_ROUTINE, FIXED_ROUTINE)

#undef GROUP_ROUTINE
#undef TYPE_ROUTINE
#undef PROCESS_ROUTINE
#undef FIXED_ROUTINE

/** The typed pointer proves that the routine has the signature that the host was promised. */
template <typename Proc>
FicRoutine untyped (Proc routine) noexcept
{
    return reinterpret_cast<FicRoutine> (reinterpret_cast<void (*)()> (routine));
}

#define ROUTINE_ENTRY(selector, Name, ...) table[selector] = untyped<PI_##Name##Proc> (PI_##Name);

using RoutineTable = std::array<FicRoutine, ficNumSelectors>;

RoutineTable makeRoutineTable() noexcept
{
    RoutineTable table {};
    FIC_ROUTINES (ROUTINE_ENTRY, ROUTINE_ENTRY, ROUTINE_ENTRY, ROUTINE_ENTRY)
    return table;
}

#undef ROUTINE_ENTRY
} // namespace

std::int32_t PI_GetRoutineDescriptor (std::int32_t selector, FicRoutine* routine)
{
    static const auto routines = makeRoutineTable();

    const auto isInTable = selector >= 0 && selector < ficNumSelectors;
    const auto found = isInTable ? routines[static_cast<std::size_t> (selector)] : nullptr;

    if (routine != nullptr)
        *routine = found;

    return found == nullptr ? ficNoSuchRoutine : ficSuccess;
}
