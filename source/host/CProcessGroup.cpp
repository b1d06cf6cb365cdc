// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The one object behind all routines: its process types, and the routines passed on to them.

#include "CProcessGroup.h"

#include "CProcessType.h"
#include "CallNoThrow.h"
#include "DAERemoteObject.h"
#include "FicFunctions.h"
#include "HostGlobals.h"

#include <algorithm>

CProcessGroup::CProcessGroup() = default;

CProcessGroup::~CProcessGroup()
{
    FreeProcessTypes();
    ReleaseHostObjects();
}

void CProcessGroup::Initialize()
{
    UDigiLibAccess::Initialize(); // without the framework each of its functions fails by itself
    CreateProcessTypeObjects();
    SortProcessTypeObjects();
    InitializeCriticalSection();
}

void CProcessGroup::CreateProcessTypeObjects() {}

void CProcessGroup::AddProcessType (CProcessType* type)
{
    processTypes.emplace_back (type);
}

void CProcessGroup::SortProcessTypeObjects()
{
    std::stable_partition (
        processTypes.begin(), processTypes.end(), [] (const auto& type) { return type->IsEnabled(); });
    InitProcessTypeObjects();
}

void CProcessGroup::InitProcessTypeObjects()
{
    std::int16_t index = 0;

    for (const auto& type : processTypes)
        type->SetProcessGroup (this, ++index);
}

void CProcessGroup::FreeProcessTypes() noexcept
{
    for (const auto& type : processTypes)
        type->FreeProcesses();

    processTypes.clear();
}

CProcessType* CProcessGroup::GetProcessTypeFromOSTypeNoThrow (std::uint32_t wanted) const
{
    for (const auto& type : processTypes)
    {
        std::uint32_t code = 0;

        if (type->GetPlugInOSType (&code) == ficSuccess && code == wanted)
            return type.get();
    }

    return nullptr;
}

CProcessType* CProcessGroup::GetProcessTypeFromOSType (std::uint32_t wanted) const
{
    if (auto* const type = GetProcessTypeFromOSTypeNoThrow (wanted); type != nullptr)
        return type;

    throw CDAEError (ficUnknownType);
}

CProcessType* CProcessGroup::GetProcessTypeFromIndexNoThrow (std::int32_t index) const noexcept
{
    for (const auto& type : processTypes)
        if (type->GetTypeIndex() == index)
            return type.get();

    return nullptr;
}

CProcessType* CProcessGroup::GetProcessTypeFromIndex (std::int32_t index) const
{
    if (auto* const type = GetProcessTypeFromIndexNoThrow (index); type != nullptr)
        return type;

    throw CDAEError (ficUnknownType);
}

template <std::int32_t selector, typename Operation, typename... Arguments>
std::int32_t CProcessGroup::CallType (Operation operation, std::uint32_t type, Arguments... arguments)
{
    if constexpr (selector == ficSelectorInstantiateProcess)
        return InstantiateOfType (type, arguments...);
    else if constexpr (selector == ficSelectorFreeProcess)
        return FreeOfType (type, arguments...);
    else
        return (GetProcessTypeFromOSType (type)->*operation) (arguments...);
}

#define TYPE_OPERATION(selector, Name, parameters, names)                                                    \
    std::int32_t CProcessGroup::Name (std::uint32_t type FIC_BARE parameters)                                \
    {                                                                                                        \
        return CallType<selector> (&CProcessType::Name, type FIC_BARE names);                                \
    }
#define PROCESS_OPERATION(selector, Name, answer, parameters, names)                                         \
    std::int32_t CProcessGroup::Name (std::uint32_t type, std::int32_t process FIC_BARE parameters)          \
    {                                                                                                        \
        return GetProcessTypeFromOSType (type)->Name (process FIC_BARE names);                               \
    }

FIC_ROUTINES (FIC_SKIP, TYPE_OPERATION, PROCESS_OPERATION, FIC_SKIP)

#undef TYPE_OPERATION
#undef PROCESS_OPERATION

template <typename Operation, typename... Arguments>
std::int32_t CProcessGroup::CallEachType (Operation operation, Arguments... arguments)
{
    FirstError error;

    for (const auto& type : processTypes)
        error.run ([&] { return (type.get()->*operation) (arguments...); });

    return error.get();
}

std::int32_t CProcessGroup::SetSampleRate (std::int32_t newSampleRate)
{
    sampleRate = newSampleRate;
    return CallEachType (&CProcessType::SetSampleRate, newSampleRate);
}

std::int32_t CProcessGroup::SetDitherBits (std::int32_t numBits)
{
    ditherBits = numBits;
    return CallEachType (&CProcessType::SetDitherBits, numBits);
}

std::int32_t CProcessGroup::SetTimeCodeInfo (const SFicTimeCodeInfo* info)
{
    if (info == nullptr)
        return ficSuccess;

    frameRate = info->frameRate;
    frameOffset = info->frameOffset;
    return CallEachType (&CProcessType::SetTimeCodeInfo, info);
}

std::int32_t CProcessGroup::SetLocationTempo (std::int32_t location, std::int32_t tempo)
{
    return CallEachType (&CProcessType::SetLocationTempo, location, tempo);
}

std::int32_t CProcessGroup::BoundAutoSegment (std::int32_t start, std::int32_t end)
{
    return CallEachType (&CProcessType::BoundAutoSegment, start, end);
}

std::int32_t CProcessGroup::Prime (unsigned char on)
{
    return CallEachType (&CProcessType::Prime, on);
}

std::int32_t CProcessGroup::AllocateHardware()
{
    return CallEachType (&CProcessType::AllocateHardware);
}

std::int32_t CProcessGroup::FreeHardware()
{
    return CallEachType (&CProcessType::FreeHardware);
}

std::int32_t CProcessGroup::SetXCMDProc (FicXCMDProc callback)
{
    gXCMDProcPtr = callback;
    DAERemoteObjectForgetManager(); // a refusal was the old callback's
    return ficSuccess;
}

std::int32_t CProcessGroup::SetCFicWidgetObject (std::uintptr_t object)
{
    SetCFicPlugInObject (object);
    return ficSuccess;
}

std::int32_t CProcessGroup::GetRelatedProcessType (SFicPlugInSpec*, std::int32_t, std::int32_t)
{
    return ficNoRelatedType;
}

std::int32_t CProcessGroup::GetRelatedProcessTypeOfType (
    SFicPlugInSpec*, std::int32_t, std::int32_t, std::int32_t, std::int32_t, std::int32_t)
{
    return ficNoRelatedType;
}

std::int32_t CProcessGroup::GetNumProcessTypes (std::int16_t* numTypes)
{
    const auto numEnabled = std::count_if (
        processTypes.begin(), processTypes.end(), [] (const auto& type) { return type->IsEnabled(); });

    if (numTypes != nullptr)
        *numTypes = static_cast<std::int16_t> (numEnabled);

    return ficSuccess;
}

std::int32_t CProcessGroup::EnablePlugInType (std::int32_t plugInType)
{
    for (const auto& type : processTypes)
        if (type->HasPlugInType (plugInType))
            type->Enable();

    SortProcessTypeObjects();
    return ficSuccess;
}
