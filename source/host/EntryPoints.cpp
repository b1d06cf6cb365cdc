// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// What a host finds in the bundle by name.

#include "CProcessGroup.h"
#include "CallNoThrow.h"
#include "HostGlobals.h"
#include "Routines.h"
#include "platform/Bundle.h"

#include <cstring>
#include <utility>

#define HOST_EXPORT extern "C" __attribute__ ((visibility ("default")))

namespace
{
CFBundleRef bundleInUse = nullptr;

void closeGroup() noexcept
{
    if (gProcessGroup == nullptr)
        return;

    try
    {
        delete gProcessGroup;
    }
    catch (...)
    {
    }

    gProcessGroup = nullptr;
}

void letGoOfBundle()
{
    if (auto* const bundle = std::exchange (bundleInUse, nullptr); bundle != nullptr)
        platform::releaseBundle (bundle);
}

std::int32_t makeGroup()
{
    gProcessGroup = CProcessGroup::CreateProcessGroup();

    if (gProcessGroup == nullptr)
        return ficNoGroup;

    gProcessGroup->Initialize();
    return ficSuccess;
}

template <typename Word>
Word readWord (const void* record, std::size_t offset) noexcept
{
    Word word;
    std::memcpy (&word, static_cast<const char*> (record) + offset, sizeof (word));
    return word;
}
} // namespace

/** [host-main] Makes the group. On an error nothing is left of it, and the bundle counts as let go. */
HOST_EXPORT std::int32_t NewMachOPlugIn (CFBundleRef bundle)
{
    // A host that forgot to close what it had opened.
    closeGroup();
    letGoOfBundle();

    if (bundle != nullptr)
        platform::retainBundle (bundle);

    bundleInUse = bundle;

    const auto result = CallAndTranslateExceptionsToReturnValues (makeGroup);

    if (result != ficSuccess)
    {
        closeGroup();
        letGoOfBundle();
    }

    return result;
}

/** [host-main] Frees all instances and the group. */
HOST_EXPORT std::int32_t CloseMachOPlugIn (CFBundleRef)
{
    letGoOfBundle();
    closeGroup();
    return ficSuccess;
}

/** [host-main] The bundle that is open, or null. */
HOST_EXPORT CFBundleRef CProcessGroupGetBundleRef()
{
    return bundleInUse;
}

/** [host-main] */
HOST_EXPORT std::int16_t CProcessGroupUseResourceFile()
{
    return CProcessGroup::UseResourceFile();
}

/** [host-main] */
HOST_EXPORT void CProcessGroupRestoreResourceFile (std::int16_t file)
{
    CProcessGroup::RestoreResourceFile (file);
}

extern "C"
{
    /** The address of PI_GetRoutineDescriptor(), and three words that are 0. */
    __attribute__ ((visibility ("default"))) extern void* const __PI_GetRoutineDescriptor[4];
    void* const __PI_GetRoutineDescriptor[4] = {
        reinterpret_cast<void*> (PI_GetRoutineDescriptor), nullptr, nullptr, nullptr
    };
}

/** [host-main] For hosts with DSP cards: an answer that such a card's record already holds. */
HOST_EXPORT std::int32_t Dispatcher (const void* record)
{
    constexpr std::size_t stateOffset = 4;   // bytes
    constexpr std::size_t answerOffset = 10; // bytes

    if (record == nullptr || readWord<std::int32_t> (record, stateOffset) != 0)
        return 0;

    return readWord<std::int32_t> (record, answerOffset);
}

// For hosts with DSP cards; a native plug-in has nothing to send to one.
HOST_EXPORT std::int32_t CDSPSendLoLong()
{
    return 0;
}

HOST_EXPORT std::int32_t CDSPGetLoLong()
{
    return 0;
}

HOST_EXPORT std::int32_t CDSPDoHostCommand()
{
    return 0;
}
