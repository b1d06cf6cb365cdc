// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// A process type of an effect: its names, codes, channels and gestalts.

#pragma once

#include "CProcessType.h"

#include <cstdint>
#include <set>
#include <string>

class CEffectProcess;

/** Makes a new process that the caller owns. */
using EffectProcessCreator = CEffectProcess* (*)();

/** All operations are [host-main]. */
class CEffectType : public virtual CProcessType
{
public:
    CEffectType (std::uint32_t newTypeID,
                 std::uint32_t newProductID,
                 std::int32_t newPlugInType,
                 std::uint32_t newCategory);

    /** Names of falling length with newlines between them. */
    void DefineTypeNames (const char* names);
    void DefineSampleRateSupport (std::int32_t support) noexcept;
    void AttachEffectProcessCreator (EffectProcessCreator creator, void* unused) noexcept;

    /** Formats may be -1, for none. Throws a CDAEError for formats that there are not. */
    void DefineStemFormats (std::int32_t input, std::int32_t output, std::int32_t sideChain);
    void DefinePageTableResourceName (const char* name);

    /** From now on the type answers 1 to that selector. Some selectors bring others along. */
    virtual void AddGestalt (std::int32_t selector);

    std::int32_t Gestalt (std::int32_t selector, std::int32_t* value) override;
    std::int32_t GetPlugInOSType (std::uint32_t* type) override;
    std::int32_t GetStemFormats (SFicPlugInStemFormats* formats) override;
    std::int32_t GetProcessTypeName (std::int32_t length, unsigned char* name) override;
    std::int32_t GetPageTableResourceName (unsigned char* name) override;

    // The type's own counts, for any process index.
    std::int32_t GetNumAudioInputs (std::int32_t process, std::int16_t* numInputs) override;
    std::int32_t GetNumAudioOutputs (std::int32_t process, std::int16_t* numOutputs) override;

    /** Signs what a process wrote. */
    std::int32_t GetChunk (std::int32_t process, std::uint32_t chunkID, SFicPlugInChunk* chunk) override;
    // Chunks of another product are refused.
    std::int32_t SetChunk (std::int32_t process,
                           std::uint32_t chunkID,
                           const SFicPlugInChunk* chunk) override;
    std::int32_t CompareActiveChunk (std::int32_t process,
                                     const SFicPlugInChunk* chunk,
                                     unsigned char* same) override;

    std::uint32_t GetTypeID() const noexcept { return typeID; }
    std::uint32_t GetProductID() const noexcept { return productID; }
    /** Types with the same tag may stand for each other in other channel formats. */
    std::uint32_t GetRelatedTypeTag() const noexcept { return relatedTypeTag; }

protected:
    CProcess* CreateCDSPProcess() override;

private:
    bool isOfThisProduct (const SFicPlugInChunk* chunk) const noexcept;

    std::set<std::int32_t> gestalts;
    std::string typeNames;
    std::uint32_t typeID, productID, relatedTypeTag, category;
    std::int32_t numAudioInputs = 0, numAudioOutputs = 0;
    std::int32_t inputStemFormat, outputStemFormat, sideChainStemFormat;
    EffectProcessCreator processCreator = nullptr;
    std::string pageTableResourceName;
    std::int32_t sampleRateSupport = 1;
};
