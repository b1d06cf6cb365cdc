// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The life of an instance in the host's engine: its connection arrays, its description and its end.

#include "CEffectProcessRTAS.h"

#include "CAdaptorPlugIn.h"
#include "CDAEError.h"
#include "CProcessType.h"
#include "FicFunctions.h"

#include <algorithm>
#include <new>

namespace
{
/** The selector of GetPlugInString() that asks for the name of a region. */
constexpr std::int32_t regionNameString = 5;
} // namespace

CEffectProcessRTAS::CEffectProcessRTAS()
{
    SetRenderTarget (this);
}

CEffectProcessRTAS::~CEffectProcessRTAS()
{
    SetRenderTarget (nullptr);
}

void CEffectProcessRTAS::Initialize()
{
    CEffectProcess::Initialize();
    InitializeConnectionArrays();
    connectionArraysReady = true;
}

void CEffectProcessRTAS::SetMaxRTASConnections (std::int32_t newMaxConnections)
{
    if (! connectionArraysReady)
        maxConnections = newMaxConnections;
}

void CEffectProcessRTAS::InitializeConnectionArrays()
{
    const auto size = static_cast<std::size_t> (std::max (maxConnections, 0));
    inputSamples.assign (size, nullptr);
    outputSamples.assign (size, nullptr);
    inputConnections.assign (size, nullptr);
    outputConnections.assign (size, nullptr);
}

void CEffectProcessRTAS::FreeConnectionArrays()
{
    inputSamples = {};
    outputSamples = {};
    inputConnections = {};
    outputConnections = {};
}

std::int32_t CEffectProcessRTAS::UpdateControlValue (std::int32_t control, std::int32_t value)
{
    std::int32_t masterBypass = 0;
    GetMasterBypassControl (&masterBypass);

    // Without a master bypass its index is 0, which is no control.
    if (masterBypass != 0 && control == masterBypass)
        SetBypassed (value > 0);

    return CProcess::UpdateControlValue (control, value);
}

std::int32_t CEffectProcessRTAS::GetDelaySamples (std::int16_t* numSamples)
{
    if (numSamples != nullptr)
        *numSamples = 0;

    return ficSuccess;
}

std::int32_t CEffectProcessRTAS::Free()
{
    // The host's engine uses the arrays until it is told that the instance has no ports any more.
    hostPlugIn.reset();
    FreeConnectionArrays();
    return CProcess::Free();
}

std::int32_t CEffectProcessRTAS::GetPlugInString (std::int32_t selector, unsigned char* text)
{
    if (selector != regionNameString)
        return CEffectProcess::GetPlugInString (selector, text);

    ModifyRegionName (text);
    return ficSuccess;
}

void CEffectProcessRTAS::ModifyRegionName (unsigned char*) {}

std::int32_t CEffectProcessRTAS::CreateHostPlugIn (SFicPlugInId id)
{
    try
    {
        auto made = std::make_unique<CAdaptorPlugIn> (
            id, *this, inputConnections.data(), outputConnections.data(), RenderAudioWorker);
        made->DescribeToDAE();
        hostPlugIn = std::move (made);
        return ficSuccess;
    }
    catch (std::int32_t code)
    {
        return code;
    }
    catch (const CDAEError& error)
    {
        return error.GetErrorCode();
    }
    catch (const std::bad_alloc&)
    {
        return ficOutOfMemory;
    }
}

std::int32_t CEffectProcessRTAS::GetMaximumRTASQuantum()
{
    std::int32_t hasVariableQuanta = 0;

    if (host::FicGestalt (FIC_GESTALT_VARIABLE_QUANTA, &hasVariableQuanta) != ficSuccess
        || hasVariableQuanta == 0)
        return ficFixedQuantum;

    const auto quantum = host::FicGetMaximumRTASQuantum();
    return quantum < 1 ? std::int32_t { ficFixedQuantum } : quantum;
}
