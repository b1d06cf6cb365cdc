// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// A process type of an effect: its names, codes, channels and gestalts.

#include "CEffectType.h"

#include "CEffectProcess.h"
#include "FourCC.h"
#include "Gestalts.h"
#include "PascalText.h"
#include "StemFormats.h"

#include <algorithm>

CEffectType::CEffectType (std::uint32_t newTypeID,
                          std::uint32_t newProductID,
                          std::int32_t newPlugInType,
                          std::uint32_t newCategory)
    : typeID (newTypeID),
      productID (newProductID),
      relatedTypeTag (fourCC ("grID")),
      category (newCategory),
      inputStemFormat (stemFormatNone),
      outputStemFormat (stemFormatNone),
      sideChainStemFormat (stemFormatNone)
{
    plugInType = newPlugInType;
    gestalts.insert (Gestalts::effect);
}

void CEffectType::DefineTypeNames (const char* names)
{
    typeNames = names;
}

void CEffectType::DefineSampleRateSupport (std::int32_t support) noexcept
{
    sampleRateSupport = support;
}

void CEffectType::AttachEffectProcessCreator (EffectProcessCreator creator, void*) noexcept
{
    processCreator = creator;
}

void CEffectType::DefineStemFormats (std::int32_t input, std::int32_t output, std::int32_t sideChain)
{
    const auto numInputs = input == stemFormatNone ? numAudioInputs : SurroundFormatToNumChannels (input);
    const auto numOutputs = output == stemFormatNone ? numAudioOutputs : SurroundFormatToNumChannels (output);

    AddGestalt (Gestalts::stemFormats);
    numAudioInputs = numInputs;
    numAudioOutputs = numOutputs;
    inputStemFormat = input;
    outputStemFormat = output;
    sideChainStemFormat = sideChain;
}

void CEffectType::DefinePageTableResourceName (const char* name)
{
    pageTableResourceName = name;
}

void CEffectType::AddGestalt (std::int32_t selector)
{
    gestalts.insert (selector);

    if (selector == Gestalts::auxOutputStems)
        gestalts.insert (Gestalts::withAuxOutputStems);
}

std::int32_t CEffectType::Gestalt (std::int32_t selector, std::int32_t* value)
{
    if (value == nullptr)
        return ficSuccess;

    if (selector == Gestalts::category)
        *value = static_cast<std::int32_t> (category);
    else if (selector == Gestalts::sampleRateSupport && plugInType == nativePlugInType)
        *value = sampleRateSupport;
    else if (! gestalts.contains (selector))
        *value = 0;
    else
        *value = selector == Gestalts::sideChainPort ? numAudioInputs + 1 : 1;

    return ficSuccess;
}

std::int32_t CEffectType::GetPlugInOSType (std::uint32_t* type)
{
    if (type != nullptr)
        *type = typeID;

    return ficSuccess;
}

std::int32_t CEffectType::GetStemFormats (SFicPlugInStemFormats* formats)
{
    if (formats != nullptr)
        *formats = { inputStemFormat, outputStemFormat, sideChainStemFormat };

    return ficSuccess;
}

std::int32_t CEffectType::GetProcessTypeName (std::int32_t length, unsigned char* name)
{
    GetPascalStringOfLength (name, typeNames.c_str(), length);
    return ficSuccess;
}

std::int32_t CEffectType::GetPageTableResourceName (unsigned char* name)
{
    if (pageTableResourceName.empty())
        return CProcessType::GetPageTableResourceName (name);

    copyPascalText (name, pageTableResourceName);
    return ficSuccess;
}

std::int32_t CEffectType::GetNumAudioInputs (std::int32_t, std::int16_t* numInputs)
{
    if (numInputs != nullptr)
        *numInputs = static_cast<std::int16_t> (numAudioInputs);

    return ficSuccess;
}

std::int32_t CEffectType::GetNumAudioOutputs (std::int32_t, std::int16_t* numOutputs)
{
    if (numOutputs != nullptr)
        *numOutputs = static_cast<std::int16_t> (numAudioOutputs);

    return ficSuccess;
}

// The header is written only behind a body: for a chunk that the process does not have, the host made no
// room.
std::int32_t CEffectType::GetChunk (std::int32_t process, std::uint32_t chunkID, SFicPlugInChunk* chunk)
{
    const auto result = CProcessType::GetChunk (process, chunkID, chunk);

    if (result == ficSuccess && chunk != nullptr)
    {
        chunk->typeID = typeID;
        chunk->productID = productID;
        chunk->chunkID = chunkID;
        std::fill_n (chunk->chunkName, sizeof (std::uint32_t), static_cast<unsigned char> (0));
    }

    return result;
}

bool CEffectType::isOfThisProduct (const SFicPlugInChunk* chunk) const noexcept
{
    return chunk != nullptr && chunk->productID == productID;
}

std::int32_t CEffectType::SetChunk (std::int32_t process, std::uint32_t chunkID, const SFicPlugInChunk* chunk)
{
    if (! isOfThisProduct (chunk))
        return ficChunkNotHandled;

    return CProcessType::SetChunk (process, chunkID, chunk);
}

std::int32_t CEffectType::CompareActiveChunk (std::int32_t process,
                                              const SFicPlugInChunk* chunk,
                                              unsigned char* same)
{
    if (! isOfThisProduct (chunk))
        return ficChunkNotHandled;

    return CProcessType::CompareActiveChunk (process, chunk, same);
}

CProcess* CEffectType::CreateCDSPProcess()
{
    return processCreator == nullptr ? nullptr : processCreator();
}
