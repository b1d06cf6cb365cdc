// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// One kind of instance that the host can insert, and the instances there are of it.

#include "CProcessType.h"

#include "CProcess.h"
#include "CProcessGroup.h"
#include "CallNoThrow.h"
#include "HostGlobals.h"

#include <algorithm>

CProcessType::CProcessType()
    : sampleRate (gProcessGroup == nullptr ? CProcessGroup::defaultSampleRate
                                           : gProcessGroup->GetSampleRate()),
      ditherBits (gProcessGroup == nullptr ? 0 : gProcessGroup->GetDitherBits()),
      frameRate (gProcessGroup == nullptr ? CProcessGroup::defaultFrameRate : gProcessGroup->GetFrameRate()),
      frameOffset (gProcessGroup == nullptr ? 0 : gProcessGroup->GetFrameOffset())
{
}

CProcessType::~CProcessType()
{
    FreeProcesses();
}

#define PROCESS_OPERATION(selector, Name, answer, parameters, names)                                         \
    std::int32_t CProcessType::Name (std::int32_t process FIC_BARE parameters)                               \
    {                                                                                                        \
        auto* const found = GetProcessFromIndex (process);                                                   \
        if (found == nullptr)                                                                                \
            return ficUnknownProcess;                                                                        \
        return found->Name (FIC_REST names);                                                                 \
    }

FIC_ROUTINES (FIC_SKIP, FIC_SKIP, PROCESS_OPERATION, FIC_SKIP)

#undef PROCESS_OPERATION

std::int32_t CProcessType::GetProcessTypeName (std::int32_t, unsigned char* name)
{
    return host::neutralAnswer<ficSuccess> (name);
}

std::int32_t CProcessType::GetProcessTypeFlags (std::uint32_t* flags)
{
    return host::neutralAnswer<ficSuccess> (flags);
}

std::int32_t CProcessType::GetPlugInType (std::int32_t* type)
{
    if (type != nullptr)
        *type = plugInType;

    return ficSuccess;
}

std::int32_t CProcessType::Gestalt (std::int32_t, std::int32_t* value)
{
    return host::neutralAnswer<ficSuccess> (value);
}

std::int32_t CProcessType::GetStemFormats (SFicPlugInStemFormats* formats)
{
    return host::neutralAnswer<ficSuccess> (formats);
}

std::int32_t CProcessType::GetXMLPageTableForType (char* text, std::int32_t size)
{
    return size > 0 ? host::neutralAnswer<ficSuccess> (text) : ficSuccess;
}

std::int32_t CProcessType::GetXMLPageTableSizeForType (std::int32_t* size)
{
    return host::neutralAnswer<ficSuccess> (size);
}

std::int32_t CProcessType::GetPlugInOSType (std::uint32_t* type)
{
    return host::neutralAnswer<ficSuccess> (type);
}

std::int32_t CProcessType::GetPageTableResourceName (unsigned char* name)
{
    return host::neutralAnswer<ficSuccess> (name);
}

template <typename Operation, typename... Arguments>
std::int32_t CProcessType::CallEachProcess (Operation operation, Arguments... arguments)
{
    FirstError error;

    for (const auto& process : processes)
        error.run ([&] { return (process.get()->*operation) (arguments...); });

    return error.get();
}

std::int32_t CProcessType::SetSampleRate (std::int32_t newSampleRate)
{
    sampleRate = newSampleRate;
    return CallEachProcess (&CProcess::SetSampleRate, newSampleRate);
}

std::int32_t CProcessType::SetDitherBits (std::int32_t numBits)
{
    ditherBits = numBits;
    return CallEachProcess (&CProcess::SetDitherBits, numBits);
}

std::int32_t CProcessType::SetTimeCodeInfo (const SFicTimeCodeInfo* info)
{
    if (info == nullptr)
        return ficSuccess;

    frameRate = info->frameRate;
    frameOffset = info->frameOffset;
    return CallEachProcess (&CProcess::SetTimeCodeInfo, info);
}

std::int32_t CProcessType::SetLocationTempo (std::int32_t location, std::int32_t tempo)
{
    return CallEachProcess (&CProcess::SetLocationTempo, location, tempo);
}

std::int32_t CProcessType::BoundAutoSegment (std::int32_t start, std::int32_t end)
{
    return CallEachProcess (&CProcess::BoundAutoSegment, start, end);
}

std::int32_t CProcessType::Prime (unsigned char on)
{
    return CallEachProcess (&CProcess::Prime, on);
}

std::int32_t CProcessType::AllocateHardware()
{
    return ficSuccess;
}

std::int32_t CProcessType::FreeHardware()
{
    return ficSuccess;
}

void CProcessType::SetProcessGroup (CProcessGroup* newGroup, std::int16_t newTypeIndex) noexcept
{
    group = newGroup;
    typeIndex = newTypeIndex;
}

CProcess* CProcessType::GetProcessFromIndex (std::int32_t index) const noexcept
{
    if (index < 1)
        return nullptr;

    for (const auto& process : processes)
        if (process->GetProcessIndex() == index)
            return process.get();

    return nullptr;
}

CProcess* CProcessType::CreateCDSPProcess()
{
    return nullptr;
}

std::int32_t CProcessType::InstantiateProcess (std::int32_t* process)
{
    const auto index = CreateProcessDeactivated();

    if (process != nullptr)
        *process = index;

    return ficSuccess;
}

std::int32_t CProcessType::CreateProcessDeactivated()
{
    std::unique_ptr<CProcess> made (CreateCDSPProcess());

    if (made == nullptr)
        throw CDAEError (ficObjectNotMade);

    const auto index = LowestFreeIndex();
    auto* const process = made.get();
    processes.push_back (std::move (made));

    try
    {
        SetUpProcess (*process, index);
    }
    catch (...)
    {
        CallAndTranslateExceptionsToReturnValues ([&] { return process->ReleaseMIDI(); });
        FreeProcessByPtr (process);
        throw;
    }

    return index;
}

void CProcessType::SetUpProcess (CProcess& process, std::int16_t index)
{
    process.SetProcessType (this);
    process.SetProcessTypeIndex (typeIndex);
    process.SetProcessIndex (index);
    process.Initialize();
    throwIfFailed (process.SetSampleRate (sampleRate));
    throwIfFailed (process.SetDitherBits (ditherBits));
}

std::int16_t CProcessType::LowestFreeIndex() const noexcept
{
    std::int16_t index = 1;

    while (GetProcessFromIndex (index) != nullptr)
        ++index;

    return index;
}

std::int32_t CProcessType::FreeProcess (std::int32_t process)
{
    auto* const found = GetProcessFromIndex (process);
    return found == nullptr ? std::int32_t { ficUnknownProcess } : FreeProcessByPtr (found);
}

std::int32_t CProcessType::FreeProcessByPtr (CProcess* process) noexcept
{
    const auto place = std::find_if (
        processes.begin(), processes.end(), [&] (const auto& owned) { return owned.get() == process; });

    // From here on no routine finds it, whatever its own end calls.
    const auto freed = std::move (*place);
    processes.erase (place);

    return CallAndTranslateExceptionsToReturnValues ([&] { return freed->Free(); });
}

void CProcessType::FreeProcesses() noexcept
{
    while (! processes.empty())
        FreeProcessByPtr (processes.back().get());
}
