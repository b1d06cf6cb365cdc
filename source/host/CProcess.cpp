// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The life of an instance, the numbers that the host gives it, and its answers to what it knows nothing of.

#include "CProcess.h"

#include "CProcessGroup.h"
#include "CProcessType.h"
#include "FourCC.h"
#include "HostGlobals.h"

namespace
{
constexpr auto blankChunkID = fourCC ("    ");
}

CProcess::CProcess()
    : sampleRate (gProcessGroup == nullptr ? CProcessGroup::defaultSampleRate
                                           : gProcessGroup->GetSampleRate()),
      frameRate (gProcessGroup == nullptr ? CProcessGroup::defaultFrameRate : gProcessGroup->GetFrameRate()),
      frameOffset (gProcessGroup == nullptr ? 0 : gProcessGroup->GetFrameOffset())
{
}

CProcess::~CProcess()
{
    FreeTokens();
}

void CProcess::Initialize()
{
    InitializeView();

    try
    {
        InitializeTokens();
    }
    catch (...)
    {
        FreeTokens();
        throw;
    }
}

std::int32_t CProcess::Free()
{
    FreeTokens();
    view.reset();
    return ficSuccess;
}

void CProcess::SetProcessType (CProcessType* type)
{
    processType = type;
}

std::int32_t CProcess::DoIdle()
{
    return RunPlatformMessages() ? DoTokenIdle() : std::int32_t { ficSuccess };
}

bool CProcess::RunPlatformMessages()
{
    return true;
}

std::int32_t CProcess::SetSampleRate (std::int32_t newSampleRate)
{
    sampleRate = newSampleRate;
    return ficSuccess;
}

std::int32_t CProcess::SetDitherBits (std::int32_t)
{
    return ficSuccess;
}

std::int32_t CProcess::SetTimeCodeInfo (const SFicTimeCodeInfo* info)
{
    if (info != nullptr)
    {
        frameRate.store (info->frameRate, std::memory_order_relaxed);
        frameOffset.store (info->frameOffset, std::memory_order_relaxed);
    }

    return ficSuccess;
}

std::int32_t CProcess::SetLocationTempo (std::int32_t, std::int32_t tempo)
{
    locationTempo = tempo;
    return ficSuccess;
}

std::int32_t CProcess::BoundAutoSegment (std::int32_t, std::int32_t)
{
    return ficSuccess;
}

std::int32_t CProcess::Prime (unsigned char)
{
    return ficSuccess;
}

signed char CProcess::GetFrameRate() const
{
    return frameRate.load (std::memory_order_relaxed);
}

std::int32_t CProcess::GetFrameOffset() const
{
    return frameOffset.load (std::memory_order_relaxed);
}

void CProcess::SetProcessTypeIndex (std::int16_t index)
{
    processTypeIndex = index;
}

std::int16_t CProcess::GetProcessTypeIndex() const
{
    return processTypeIndex;
}

void CProcess::SetProcessIndex (std::int16_t index)
{
    processIndex = index;
}

std::int16_t CProcess::GetProcessIndex() const
{
    return processIndex;
}

void CProcess::SetDriverRefNum (std::int32_t refNum)
{
    driverRefNum = refNum;
}

std::int32_t CProcess::GetDriverRefNum() const
{
    return driverRefNum;
}

void CProcess::SetHardwareRefNum (std::int32_t refNum)
{
    hardwareRefNum = refNum;
}

std::int32_t CProcess::GetHardwareRefNum() const
{
    return hardwareRefNum;
}

void CProcess::SetChannelCounts (std::int16_t numInputs, std::int16_t numOutputs) noexcept
{
    numAudioInputs = numInputs;
    numAudioOutputs = numOutputs;
}

bool CProcess::WeHaveVariableNumInputs() const
{
    return false;
}

bool CProcess::WeHaveVariableNumOutputs() const
{
    return false;
}

std::int32_t CProcess::IsInputPortConnected (std::int32_t, unsigned char* connected)
{
    if (connected != nullptr)
        *connected = 1;

    return ficSuccess;
}

std::int32_t CProcess::GetDelaySamplesLong (std::int32_t* numSamples)
{
    std::int16_t delay = 0;
    const auto result = GetDelaySamples (&delay);

    if (numSamples != nullptr)
        *numSamples = delay;

    return result;
}

std::int32_t CProcess::GetIndexedChunkID (std::int32_t, std::uint32_t* chunkID)
{
    if (chunkID != nullptr)
        *chunkID = blankChunkID;

    return ficChunkNotHandled;
}

std::int32_t CProcess::GetNumChanges (std::int32_t* numChangesSoFar)
{
    if (numChangesSoFar != nullptr)
        *numChangesSoFar = numChanges;

    return ficSuccess;
}

std::int32_t CProcess::GetPlugInType() const
{
    std::int32_t type = 0;

    if (processType != nullptr)
        processType->GetPlugInType (&type);

    return type;
}

void CProcess::GetMetersFromDSPorRTAS (std::int32_t*, bool*) {}

bool CProcess::TestAndClearMetersReady() noexcept
{
    return metersReady.exchange (false, std::memory_order_relaxed);
}

std::int32_t CProcess::GetClipState (unsigned char* hasClipped)
{
    if (hasClipped != nullptr)
        *hasClipped = clipped;

    return ficSuccess;
}

std::int32_t CProcess::ClearClipState()
{
    clipped = false;
    return ficSuccess;
}

void CProcess::SetClipped (bool hasClipped)
{
    clipped = hasClipped;
}

std::int32_t CProcess::GetPageTableList (std::int32_t* numPageTables)
{
    return host::neutralAnswer<ficSuccess> (numPageTables);
}
