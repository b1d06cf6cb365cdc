// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The group of an effect's types: what they have in common, names, codes and gestalts.

#include "CEffectGroup.h"

#include "CEffectTypeRTAS.h"
#include "CallNoThrow.h"
#include "Gestalts.h"
#include "GetStringOfLength.h"
#include "PascalText.h"
#include "StemFormats.h"

#include <array>

namespace
{
constexpr std::int32_t effectAutoType = 3;
constexpr std::int32_t midiChunkKind = 2;
constexpr std::int32_t sameCountsAsType = -3; // instead of numbers of channels
constexpr std::uint32_t lowByte = 0xff;

std::string longestNameOf (const std::string& names)
{
    constexpr std::int32_t maxNameLength = 127; // bytes
    std::array<char, maxNameLength + 1> name {};
    GetStringOfLength (name.data(), names.c_str(), maxNameLength);
    return name.data();
}

template <typename Value>
void setResult (Value* result, Value value)
{
    if (result != nullptr)
        *result = value;
}

/** What tells whether a type fits a layout of channels. */
struct ChannelLayout
{
    explicit ChannelLayout (CProcessType& type)
    {
        SFicPlugInStemFormats formats {};
        type.GetStemFormats (&formats);
        inputFormat = formats.input;
        outputFormat = formats.output;

        std::int16_t count = 0;
        type.GetNumAudioInputs (0, &count);
        inputs = count;
        type.GetNumAudioOutputs (0, &count);
        outputs = count;
    }

    std::int32_t inputs, outputs, inputFormat, outputFormat;
};
} // namespace

void CEffectGroup::DefineManufacturerNamesAndID (const char* names, std::uint32_t id)
{
    manufacturerNames = names;
    manufacturerID = id;
}

void CEffectGroup::DefinePlugInNamesAndVersion (const char* names, std::uint32_t newVersion)
{
    plugInNames = names;
    version = newVersion;
}

void CEffectGroup::CreateProcessTypeObjects()
{
    CreateEffectTypes();
}

void CEffectGroup::CreateEffectTypes() {}

void CEffectGroup::AddEffectType (CEffectType* type)
{
    if (auto* const nativeType = dynamic_cast<CEffectTypeRTAS*> (type);
        nativeType != nullptr && nativeType->HasPlugInType (nativePlugInType))
        nativeType->SetGroupWord (&plugInObject);

    AddProcessType (type);
}

void CEffectGroup::AddGestalt (std::int32_t selector)
{
    gestalts.insert (selector);
}

std::int32_t CEffectGroup::Gestalt (std::uint32_t type, std::int32_t selector, std::int32_t* value)
{
    if (selector == Gestalts::chunkKind)
    {
        if (value != nullptr)
            *value = static_cast<std::uint32_t> (*value) == FIC_CHUNK_MIDI ? midiChunkKind : 0;

        return ficSuccess;
    }

    if (! gestalts.contains (selector))
        return CProcessGroup::Gestalt (type, selector, value);

    setResult (value, std::int32_t { 1 });
    return ficSuccess;
}

std::int32_t CEffectGroup::GetAutoType()
{
    return effectAutoType;
}

std::int32_t CEffectGroup::GetManufacturerName (std::int32_t length, unsigned char* name)
{
    GetPascalStringOfLength (name, manufacturerNames.c_str(), length);
    return ficSuccess;
}

std::int32_t CEffectGroup::GetPlugInName (unsigned char* name, std::int32_t length)
{
    GetPascalStringOfLength (name, plugInNames.c_str(), length);
    return ficSuccess;
}

std::int32_t CEffectGroup::GetProcessTypeIDs (std::int32_t typeIndex,
                                              std::uint32_t* manufacturer,
                                              std::uint32_t* product,
                                              std::uint32_t* type)
{
    auto* const found = dynamic_cast<CEffectType*> (GetProcessTypeFromIndexNoThrow (typeIndex));

    if (found == nullptr)
        return ficUnknownTypeIndex;

    setResult (manufacturer, manufacturerID);
    setResult (product, found->GetProductID());
    return found->GetPlugInOSType (type);
}

// As in the type, only behind a body.
std::int32_t CEffectGroup::GetChunk (std::uint32_t type,
                                     std::int32_t process,
                                     std::uint32_t chunkID,
                                     SFicPlugInChunk* chunk)
{
    const auto result = CProcessGroup::GetChunk (type, process, chunkID, chunk);

    if (result == ficSuccess && chunk != nullptr)
    {
        chunk->version = static_cast<std::int32_t> (version);
        chunk->manufacturerID = manufacturerID;
    }

    return result;
}

bool CEffectGroup::isOfThisMaker (const SFicPlugInChunk* chunk) const noexcept
{
    return chunk != nullptr && chunk->manufacturerID == manufacturerID;
}

std::int32_t CEffectGroup::SetChunk (std::uint32_t type,
                                     std::int32_t process,
                                     std::uint32_t chunkID,
                                     const SFicPlugInChunk* chunk)
{
    if (! isOfThisMaker (chunk))
        return ficChunkNotHandled;

    return CProcessGroup::SetChunk (type, process, chunkID, chunk);
}

std::int32_t CEffectGroup::CompareActiveChunk (std::uint32_t type,
                                               std::int32_t process,
                                               const SFicPlugInChunk* chunk,
                                               unsigned char* same)
{
    if (! isOfThisMaker (chunk))
        return ficChunkNotHandled;

    return CProcessGroup::CompareActiveChunk (type, process, chunk, same);
}

CEffectType* CEffectGroup::findEffectType (std::uint32_t type) const
{
    return dynamic_cast<CEffectType*> (GetProcessTypeFromOSTypeNoThrow (type));
}

std::int32_t CEffectGroup::GetRelatedProcessType (SFicPlugInSpec* spec,
                                                  std::int32_t inputs,
                                                  std::int32_t outputs)
{
    auto* const found = spec == nullptr ? nullptr : findEffectType (spec->typeID);

    if (found == nullptr)
        return ficNoRelatedType;

    if (inputs == sameCountsAsType)
    {
        const ChannelLayout own (*found);
        inputs = own.inputs;
        outputs = own.outputs;
    }

    const auto isMonoOrStereo = [] (std::int32_t count) { return count == 1 || count == 2; };

    if (! isMonoOrStereo (inputs) || ! isMonoOrStereo (outputs))
        return ficSuccess;

    std::int32_t plugInType = 0;
    throwIfFailed (found->GetPlugInType (&plugInType));
    return GetRelatedProcessTypeOfType (
        spec, plugInType, inputs, outputs, stemFormatOf (inputs), stemFormatOf (outputs));
}

std::int32_t CEffectGroup::GetRelatedProcessTypeOfType (SFicPlugInSpec* spec,
                                                        std::int32_t wantedPlugInType,
                                                        std::int32_t inputs,
                                                        std::int32_t outputs,
                                                        std::int32_t inputFormat,
                                                        std::int32_t outputFormat)
{
    auto* const given =
        spec == nullptr || spec->manufacturerID != manufacturerID ? nullptr : findEffectType (spec->typeID);

    if (given == nullptr)
        return ficNoRelatedType;

    const auto byCounts = inputFormat == stemFormatNone || outputFormat == stemFormatNone;

    for (std::int32_t index = 1; auto* const type = GetProcessTypeFromIndexNoThrow (index); ++index)
    {
        const auto* const candidate = dynamic_cast<CEffectType*> (type);

        if (candidate == nullptr || candidate->GetRelatedTypeTag() != given->GetRelatedTypeTag()
            || ! candidate->HasPlugInType (wantedPlugInType))
            continue;

        const ChannelLayout layout (*type);
        const auto fits = byCounts ? layout.inputs == inputs && layout.outputs == outputs
                                   : layout.inputFormat == inputFormat && layout.outputFormat == outputFormat;

        if (fits)
        {
            spec->typeID = candidate->GetTypeID();
            spec->productID = candidate->GetProductID();
            return ficSuccess;
        }
    }

    return ficNoRelatedType;
}

void CEffectGroup::BuildSDSBaseName (char* out)
{
    if (sdsBaseName.empty())
        sdsBaseName = "Plug-Ins/" + longestNameOf (manufacturerNames) + "/" + longestNameOf (plugInNames)
                      + "/" + std::to_string (version & lowByte);

    copyHostText (out, sdsBaseName, maxSDSBaseNameLength);
}
