// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Everything that a host can ask of a plug-in, and the answers where nobody knows better.

#include "CProcessGroupInterface.h"

namespace
{
constexpr std::int32_t fullCriticalSectionScope = 99;
constexpr std::int16_t lowestComponentSelector = -6;
} // namespace

std::int32_t CProcessGroupInterface::sCriticalSectionScope = fullCriticalSectionScope;

#define GROUP_OPERATION(selector, Name, parameters, names)                                                   \
    std::int32_t CProcessGroupInterface::Name parameters                                                     \
    {                                                                                                        \
        return host::neutralAnswer<ficSuccess> names;                                                        \
    }
#define TYPE_OPERATION(selector, Name, parameters, names)                                                    \
    std::int32_t CProcessGroupInterface::Name (std::uint32_t type FIC_BARE parameters)                       \
    {                                                                                                        \
        return host::neutralAnswer<ficSuccess> (type FIC_BARE names);                                        \
    }
#define PROCESS_OPERATION(selector, Name, answer, parameters, names)                                         \
    std::int32_t CProcessGroupInterface::Name (std::uint32_t type, std::int32_t process FIC_BARE parameters) \
    {                                                                                                        \
        return host::neutralAnswer<answer> (type, process FIC_BARE names);                                   \
    }
#define FIXED_OPERATION(selector, Name, parameters, names)                                                   \
    std::int32_t CProcessGroupInterface::Name (std::uint32_t type, std::int32_t process FIC_BARE parameters) \
    {                                                                                                        \
        return host::fixedAnswer<selector> (type, process FIC_BARE names);                                   \
    }

FIC_ROUTINES (GROUP_OPERATION, TYPE_OPERATION, PROCESS_OPERATION, FIXED_OPERATION)

#undef GROUP_OPERATION
#undef TYPE_OPERATION
#undef PROCESS_OPERATION
#undef FIXED_OPERATION

std::int32_t CProcessGroupInterface::GetControlNameOfLengthLessArgs (SProcessSpecifier specifier,
                                                                     std::int32_t control,
                                                                     char* name,
                                                                     std::int32_t length,
                                                                     std::uint32_t controllerType,
                                                                     std::int16_t* requiredLength)
{
    return GetControlNameOfLength (
        specifier.type, specifier.process, control, name, length, controllerType, requiredLength);
}

std::int32_t CProcessGroupInterface::GetAutoEventListRetCompRes (std::uint32_t type,
                                                                 std::int32_t process,
                                                                 std::int32_t control,
                                                                 std::int32_t* numEvents)
{
    return GetAutoEventList (type, process, control, numEvents);
}

std::int32_t CProcessGroupInterface::GetAutoEventTagRetCompRes (std::uint32_t type,
                                                                std::int32_t process,
                                                                std::int32_t control,
                                                                std::uint32_t* tag)
{
    return GetAutoEventTag (type, process, control, tag);
}

std::int32_t CProcessGroupInterface::SetXCMDProcRetCompRes (FicXCMDProc callback)
{
    return SetXCMDProc (callback);
}

bool CProcessGroupInterface::CanDoSelector (std::int16_t selector) noexcept
{
    return selector >= lowestComponentSelector && selector < ficNumSelectors;
}
