// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// An instance's set-up from its type, and what it answers about its layout, its bypass and its meters.

#include "CEffectProcess.h"

#include "CEffectGroup.h"
#include "CEffectType.h"
#include "CPluginControl_Discrete.h"
#include "Gestalts.h"
#include "PascalText.h"
#include "platform/Ticks.h"

#include <algorithm>
#include <cstddef>

namespace
{
/** How the host's questions count among the readers of meters. */
constexpr char hostMeterClient = 101;
} // namespace

CEffectProcess::CEffectProcess()
    : meterManager ([] { return static_cast<std::uint32_t> (platform::TickCount()); }),
      auxOutputStems (std::make_unique<CAOSManager>())
{
    AddChunk (FIC_CHUNK_CONTROLS,
              EffectLayerDef::CONTROLS_CHUNK_DESCRIPTION,
              EffectLayerDef::chunkAnsweredByProcess);
}

CEffectProcess::~CEffectProcess() = default;

void CEffectProcess::Initialize()
{
    ReadType();
    meterManager.Init (this);
    EffectInit();

    // The list of meters is what the arrays are read and written by.
    if (const auto numEntries =
            static_cast<std::size_t> (std::max (numMeters, meterManager.GetNumberOfMeters()));
        numEntries > 0)
    {
        meterValues = std::make_unique<std::int32_t[]> (numEntries);
        meterClips = std::make_unique<bool[]> (numEntries);
    }

    CProcess::Initialize();
    numChunkControls = controls.GetNumControls() - static_cast<std::int32_t> (controlsNotInChunk.size());
}

void CEffectProcess::ReadType()
{
    auto* const type = dynamic_cast<CEffectType*> (GetProcessType());

    if (type == nullptr)
        return;

    std::int16_t numInputs = 0, numOutputs = 0;
    type->GetNumAudioInputs (GetProcessIndex(), &numInputs);
    type->GetNumAudioOutputs (GetProcessIndex(), &numOutputs);
    SetChannelCounts (numInputs, numOutputs);
    type->GetPlugInType (&plugInType);
    type->GetStemFormats (&stemFormats);
    type->Gestalt (Gestalts::sideChainPort, &sidechainPort);
}

void CEffectProcess::EffectInit() {}

std::unique_ptr<CPlugInView> CEffectProcess::CreateCPlugInView()
{
    return std::make_unique<CPlugInView>();
}

std::int32_t CEffectProcess::DoKeyCommand (EventRecord* event, unsigned char* handled)
{
    unsigned char isHandled = 0;
    const auto result = CProcess::DoKeyCommand (event, &isHandled);

    if (isHandled == 0)
        isHandled = HandleKeystroke (event);

    if (handled != nullptr)
        *handled = isHandled;

    return result;
}

bool CEffectProcess::HandleKeystroke (EventRecord*)
{
    return false;
}

std::int32_t CEffectProcess::GetPlugInString (std::int32_t selector, unsigned char* text)
{
    const auto found = std::find_if (plugInStrings.begin(),
                                     plugInStrings.end(),
                                     [selector] (const auto& entry) { return entry.first == selector; });

    copyPascalText (text, found == plugInStrings.end() ? std::string_view() : found->second);
    return ficSuccess;
}

std::int32_t CEffectProcess::GetSDSBaseName (char* name)
{
    auto* const type = GetProcessType();
    auto* const group = type == nullptr ? nullptr : dynamic_cast<CEffectGroup*> (type->GetProcessGroup());

    if (group == nullptr || name == nullptr)
        return CProcess::GetSDSBaseName (name);

    group->BuildSDSBaseName (name);
    return ficSuccess;
}

std::int32_t CEffectProcess::GetNumAudioInputs (std::int16_t* numInputs)
{
    if (numInputs != nullptr)
        *numInputs = numAudioInputs;

    return ficSuccess;
}

std::int32_t CEffectProcess::GetNumAudioOutputs (std::int16_t* numOutputs)
{
    if (numOutputs != nullptr)
        *numOutputs = numAudioOutputs;

    return ficSuccess;
}

std::int32_t CEffectProcess::GetNumAuxOutputStems (std::int32_t* numStems)
{
    return auxOutputStems->GetNumAuxOutputStems (numStems);
}

std::int32_t CEffectProcess::GetAuxOutputStemInfo (std::int32_t stem,
                                                   std::int32_t* stemFormat,
                                                   std::int32_t* firstPort)
{
    return auxOutputStems->GetAuxOutputStemInfo (stem, stemFormat, firstPort);
}

void CEffectProcess::ConnectSidechain()
{
    sidechainConnected = true;
}

void CEffectProcess::DisconnectSidechain()
{
    sidechainConnected = false;
}

bool CEffectProcess::DefineMasterBypassControlIndex (std::int32_t control)
{
    masterBypassControl = control;

    if (! IsValidControlIndex (control))
        return false;

    const auto* const discrete = dynamic_cast<const CPluginControl_Discrete*> (controls.GetControl (control));

    if (discrete == nullptr || discrete->GetID() == 0)
        return false;

    controlsNotInChunk.insert (discrete->GetID());
    return true;
}

std::int32_t CEffectProcess::GetMasterBypassControl (std::int32_t* control)
{
    if (control != nullptr)
        *control = masterBypassControl;

    return ficSuccess;
}

std::int32_t CEffectProcess::GetBypass (std::int32_t, unsigned char* on)
{
    std::int32_t value = longControlBottom;

    if (masterBypassControl != 0)
        GetControlValue (masterBypassControl, &value);

    if (on != nullptr)
        *on = value >= 0;

    return ficSuccess;
}

std::int32_t CEffectProcess::SetBypass (std::int32_t, unsigned char on)
{
    return masterBypassControl == 0
               ? std::int32_t { ficSuccess }
               : UpdateControlValue (masterBypassControl, on != 0 ? longControlTop : longControlBottom);
}

void CEffectProcess::AccessAllMeters (bool clear)
{
    meterManager.AccessMeters (
        hostMeterClient, meterValues.get(), meterClips.get(), CMeterManager::allMeters, nullptr, clear);
}

std::int32_t CEffectProcess::GetNumMeters (std::int32_t* numMetersFound)
{
    if (numMetersFound != nullptr)
        *numMetersFound = meterManager.GetNumberOfMeters();

    return ficSuccess;
}

std::int32_t CEffectProcess::GetMeterVal (std::int32_t meter, std::int32_t* value)
{
    std::int32_t level = 0;
    meterManager.AccessMeters (hostMeterClient, meterValues.get(), meterClips.get(), meter, &level, false);

    if (value != nullptr)
        *value = level;

    return ficSuccess;
}

std::int32_t CEffectProcess::GetMeterOrientation (std::int32_t meter, std::int32_t* orientation)
{
    if (orientation != nullptr)
    {
        const auto* const record = meterManager.GetMeter (meter);
        *orientation = record == nullptr ? 0 : record->orientation;
    }

    return ficSuccess;
}

std::int32_t CEffectProcess::GetNumMetersOfType (std::int32_t meterType, std::int32_t* numMetersFound)
{
    if (numMetersFound != nullptr)
        *numMetersFound = meterManager.GetNumMetersOfType (static_cast<char> (meterType));

    return ficSuccess;
}

std::int32_t CEffectProcess::GetMeterIndexByType (std::int32_t meterType,
                                                  std::int32_t number,
                                                  std::int32_t* meter)
{
    if (meter != nullptr)
        *meter = meterManager.GetMeterIndexByType (static_cast<char> (meterType), number);

    return ficSuccess;
}

std::int32_t CEffectProcess::GetClipState (unsigned char* hasClipped)
{
    if (! clipped)
    {
        AccessAllMeters (false);

        if (std::any_of (meterClips.get(),
                         meterClips.get() + meterManager.GetNumberOfMeters(),
                         [] (bool clip) { return clip; }))
            SetClipped (true);
    }

    return CProcess::GetClipState (hasClipped);
}

std::int32_t CEffectProcess::ClearClipState()
{
    AccessAllMeters (true);
    return CProcess::ClearClipState();
}
