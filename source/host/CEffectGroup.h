// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The group of an effect's types: what they have in common, names, codes and gestalts.

#pragma once

#include "CProcessGroup.h"

#include <cstdint>
#include <set>
#include <string>

class CEffectType;

/** All operations are [host-main]. */
class CEffectGroup : public CProcessGroup
{
public:
    /** Names of falling length with newlines between them. */
    void DefineManufacturerNamesAndID (const char* names, std::uint32_t id);
    void DefinePlugInNamesAndVersion (const char* names, std::uint32_t newVersion);

    /** Takes the type over. */
    void AddEffectType (CEffectType* type);
    /** From now on the group answers 1 to that selector, for every type. */
    void AddGestalt (std::int32_t selector);

    std::int32_t Gestalt (std::uint32_t type, std::int32_t selector, std::int32_t* value) override;
    std::int32_t GetAutoType() override;
    std::int32_t GetManufacturerName (std::int32_t length, unsigned char* name) override;
    /** A Pascal string. */
    std::int32_t GetPlugInName (unsigned char* name, std::int32_t length);
    std::int32_t GetProcessTypeIDs (std::int32_t typeIndex,
                                    std::uint32_t* manufacturer,
                                    std::uint32_t* product,
                                    std::uint32_t* type) override;

    /** Signs what a process wrote. */
    std::int32_t GetChunk (std::uint32_t type,
                           std::int32_t process,
                           std::uint32_t chunkID,
                           SFicPlugInChunk* chunk) override;
    // Chunks of another manufacturer are refused.
    std::int32_t SetChunk (std::uint32_t type,
                           std::int32_t process,
                           std::uint32_t chunkID,
                           const SFicPlugInChunk* chunk) override;
    std::int32_t CompareActiveChunk (std::uint32_t type,
                                     std::int32_t process,
                                     const SFicPlugInChunk* chunk,
                                     unsigned char* same) override;

    std::int32_t GetRelatedProcessType (SFicPlugInSpec* spec,
                                        std::int32_t inputs,
                                        std::int32_t outputs) override;
    std::int32_t GetRelatedProcessTypeOfType (SFicPlugInSpec* spec,
                                              std::int32_t wantedPlugInType,
                                              std::int32_t inputs,
                                              std::int32_t outputs,
                                              std::int32_t inputFormat,
                                              std::int32_t outputFormat) override;

    std::uint32_t GetVersion() const noexcept { return version; }
    std::uint32_t GetManufacturerID() const noexcept { return manufacturerID; }

    /** Longest name that BuildSDSBaseName() writes, in bytes without the terminator. */
    static constexpr std::int32_t maxSDSBaseNameLength = 255;

    /** The first part of the names that instances reserve with the host's token service. `out` holds
        maxSDSBaseNameLength + 1 bytes. */
    void BuildSDSBaseName (char* out);

protected:
    void CreateProcessTypeObjects() override;

    /** Makes the types and adds them with AddEffectType(). None here. */
    virtual void CreateEffectTypes();

private:
    bool isOfThisMaker (const SFicPlugInChunk* chunk) const noexcept;
    CEffectType* findEffectType (std::uint32_t type) const;

    std::string manufacturerNames;
    std::uint32_t manufacturerID = 0;
    std::string plugInNames;
    std::uint32_t version = 0;
    std::set<std::int32_t> gestalts;
    std::string sdsBaseName; // empty until it is first asked for
};
