// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Everything that a host can ask of a plug-in: one virtual operation for each routine.

#pragma once

#include "RoutineRows.h"

#include <cstdint>

/** The two arguments that name an instance, as one. */
struct SProcessSpecifier
{
    std::uint32_t type;
    std::int32_t process;
};

/** What the routines are applied to. Each operation has the routine's signature; here it gives the neutral
   answer of its row. All operations are [host-main]. */
class CProcessGroupInterface
{
public:
    virtual ~CProcessGroupInterface() = default;

#define GROUP_OPERATION(selector, Name, parameters, names) virtual std::int32_t Name parameters;
#define TYPE_OPERATION(selector, Name, parameters, names)                                                    \
    virtual std::int32_t Name (std::uint32_t type FIC_BARE parameters);
#define PROCESS_OPERATION(selector, Name, answer, parameters, names)                                         \
    virtual std::int32_t Name (std::uint32_t type, std::int32_t process FIC_BARE parameters);
#define FIXED_OPERATION(selector, Name, parameters, names)                                                   \
    virtual std::int32_t Name (std::uint32_t type, std::int32_t process FIC_BARE parameters);

    FIC_ROUTINES (GROUP_OPERATION, TYPE_OPERATION, PROCESS_OPERATION, FIXED_OPERATION)

#undef GROUP_OPERATION
#undef TYPE_OPERATION
#undef PROCESS_OPERATION
#undef FIXED_OPERATION

    /** For the routine with more arguments than a function object takes. */
    std::int32_t GetControlNameOfLengthLessArgs (SProcessSpecifier specifier,
                                                 std::int32_t control,
                                                 char* name,
                                                 std::int32_t length,
                                                 std::uint32_t controllerType,
                                                 std::int16_t* requiredLength);

    /** The operations of the same names, for their results alone. */
    std::int32_t GetAutoEventListRetCompRes (std::uint32_t type,
                                             std::int32_t process,
                                             std::int32_t control,
                                             std::int32_t* numEvents);
    std::int32_t GetAutoEventTagRetCompRes (std::uint32_t type,
                                            std::int32_t process,
                                            std::int32_t control,
                                            std::uint32_t* tag);
    std::int32_t SetXCMDProcRetCompRes (FicXCMDProc callback);

    /** Whether the host may send this selector: those of the table, its gaps among them, and the six below 0
       that every component answers. */
    static bool CanDoSelector (std::int16_t selector) noexcept;

    /** Hz */
    std::int32_t GetSampleRate() const noexcept
    {
        return sampleRate;
    }
    std::int32_t GetDitherBits() const noexcept
    {
        return ditherBits;
    }
    /** A code of SFicTimeCodeInfo. */
    signed char GetFrameRate() const noexcept
    {
        return frameRate;
    }
    /** Frames. */
    std::int32_t GetFrameOffset() const noexcept
    {
        return frameOffset;
    }

    static constexpr std::int32_t defaultSampleRate = 44100; // Hz
    static constexpr signed char defaultFrameRate = 5;       // 30 frames a second

    /** What the host gave with SetCFicWidgetObject; 0 before. */
    std::uintptr_t GetCFicPlugInObject() const noexcept
    {
        return plugInObject;
    }
    void SetCFicPlugInObject (std::uintptr_t object) noexcept
    {
        plugInObject = object;
    }

    /** How much of the adapter runs inside the host's critical section: 0 nothing, 99 nearly all, above 99
     * all. */
    static std::int32_t sCriticalSectionScope;

protected:
    std::uintptr_t target = 0; // the host's; never looked into
    std::int32_t sampleRate = defaultSampleRate;
    std::int32_t ditherBits = 0;
    signed char frameRate = defaultFrameRate;
    std::int32_t frameOffset = 0;
    std::uintptr_t plugInObject = 0;
};
