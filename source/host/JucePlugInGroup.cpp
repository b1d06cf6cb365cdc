// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// This plug-in, as its host sees it: names, codes, channel configurations.

#include "JucePlugInGroup.h"

#include "CEffectTypeRTAS.h"
#include "FourCC.h"
#include "Gestalts.h"
#include "JucePlugInProcess.h"
#include "StemFormats.h"

#include <array>

namespace
{
// What the host knows the plug-in by: sessions keep these, never change one.
constexpr auto manufacturerName = "QUORVEXDSP";
constexpr auto ourManufacturerID = fourCC ("Q7Qv");
constexpr auto productID = fourCC ("Q7Wl");
constexpr auto firstTypeID = fourCC ("jcaa");
constexpr std::uint32_t ourVersion = 0x00010100;
constexpr std::uint32_t effectCategory = 512;
constexpr std::int32_t sampleRateSupport = 6;

// Selectors that the host asks the group and its types for. The host alone knows what the first two are to
// it.
constexpr std::int32_t groupGestalt = 14;
constexpr std::int32_t typeGestalt = 8;

struct ChannelConfig
{
    std::int16_t inputs, outputs;
};

constexpr std::array _channelConfigs { ChannelConfig { 2, 2 } };
} // namespace

CProcessGroup* makePlugInGroup()
{
    return std::make_unique<JucePlugInGroup>().release();
}

JucePlugInGroup::JucePlugInGroup()
{
    DefineManufacturerNamesAndID (manufacturerName, ourManufacturerID);
    DefinePlugInNamesAndVersion (createRTASName(), ourVersion);
    AddGestalt (groupGestalt);
}

JucePlugInGroup::~JucePlugInGroup()
{
    // While this is still the group that gives out instance numbers.
    FreeProcessTypes();
    MessagePump::callWhenNotRunning (juce::shutdownJuce_GUI);
}

const char* JucePlugInGroup::createRTASName() noexcept
{
    return "WideLoom\nWideLoom";
}

CEffectProcess* JucePlugInGroup::createNewProcess()
{
    juce::initialiseJuce_GUI();
    return std::make_unique<JucePlugInProcess>().release();
}

void JucePlugInGroup::CreateEffectTypes()
{
    auto typeID = firstTypeID;

    for (const auto& config : _channelConfigs)
    {
        auto type = std::make_unique<CEffectTypeRTAS> (typeID++, productID, effectCategory);
        type->DefineTypeNames (createRTASName());
        type->DefineSampleRateSupport (sampleRateSupport);
        type->DefineStemFormats (stemFormatOf (config.inputs), stemFormatOf (config.outputs), 0);
        type->AddGestalt (typeGestalt);
        type->AddGestalt (Gestalts::variableQuanta);
        type->AttachEffectProcessCreator (createNewProcess, nullptr);
        AddEffectType (type.release());
    }
}
