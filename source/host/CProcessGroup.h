// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The one object behind all routines: the process types of a plug-in, its live instances and its host
// objects.

#pragma once

#include "CProcessGroupInterface.h"

#include <cstdint>
#include <memory>
#include <vector>

class CProcessType;

/** Passes every routine to the type that it names. All operations are [host-main]; they return a FicResult,
   or throw a CDAEError, except where they say otherwise. */
class CProcessGroup : public CProcessGroupInterface
{
public:
    CProcessGroup();
    ~CProcessGroup() override;

    CProcessGroup (const CProcessGroup&) = delete;
    CProcessGroup& operator= (const CProcessGroup&) = delete;

    /** The plug-in's own group, made by makePlugInGroup(); the caller owns it. */
    static CProcessGroup* CreateProcessGroup();

    /** Called once, when gProcessGroup is set: finds the host's functions, makes the types and the critical
       section. Throws a CDAEError. */
    virtual void Initialize();

#define TYPE_OPERATION(selector, Name, parameters, names)                                                    \
    std::int32_t Name (std::uint32_t type FIC_BARE parameters) override;
#define PROCESS_OPERATION(selector, Name, answer, parameters, names)                                         \
    std::int32_t Name (std::uint32_t type, std::int32_t process FIC_BARE parameters) override;

    FIC_ROUTINES (FIC_SKIP, TYPE_OPERATION, PROCESS_OPERATION, FIC_SKIP)

#undef TYPE_OPERATION
#undef PROCESS_OPERATION

    // Stored if there is something to store, then passed on to every type. After an error the others still
    // get it, and the first error is returned.
    std::int32_t SetSampleRate (std::int32_t newSampleRate) override;
    std::int32_t SetDitherBits (std::int32_t numBits) override;
    std::int32_t SetTimeCodeInfo (const SFicTimeCodeInfo* info) override;
    std::int32_t SetLocationTempo (std::int32_t location, std::int32_t tempo) override;
    std::int32_t BoundAutoSegment (std::int32_t start, std::int32_t end) override;
    std::int32_t Prime (unsigned char on) override;
    std::int32_t AllocateHardware() override;
    std::int32_t FreeHardware() override;

    std::int32_t SetXCMDProc (FicXCMDProc callback) override;
    std::int32_t SetCFicWidgetObject (std::uintptr_t object) override;
    std::int32_t GetRelatedProcessType (SFicPlugInSpec* spec,
                                        std::int32_t inputs,
                                        std::int32_t outputs) override;
    std::int32_t GetRelatedProcessTypeOfType (SFicPlugInSpec* spec,
                                              std::int32_t wantedPlugInType,
                                              std::int32_t inputs,
                                              std::int32_t outputs,
                                              std::int32_t inputFormat,
                                              std::int32_t outputFormat) override;

    /** Types that the host has not enabled yet are not counted. */
    std::int32_t GetNumProcessTypes (std::int16_t* numTypes) override;
    std::int32_t EnablePlugInType (std::int32_t plugInType) override;

    /** Takes the type over. */
    void AddProcessType (CProcessType* type);

    /** Throws a CDAEError if there is none. */
    CProcessType* GetProcessTypeFromOSType (std::uint32_t type) const;
    CProcessType* GetProcessTypeFromIndex (std::int32_t index) const;
    /** Null if there is none. */
    CProcessType* GetProcessTypeFromOSTypeNoThrow (std::uint32_t type) const;
    CProcessType* GetProcessTypeFromIndexNoThrow (std::int32_t index) const noexcept;

    /** Frees all processes, then all types. Whoever derives and has what a process needs to end calls it from
       the destructor. */
    void FreeProcessTypes() noexcept;

    /** Makes the bundle's resources the current file, and returns the file that was current before. */
    static std::int16_t UseResourceFile();
    /** Undoes one UseResourceFile(), and makes `file` current. */
    static void RestoreResourceFile (std::int16_t file);

    /** 0 if the section was entered; only then LeaveCriticalSection() follows. */
    std::int32_t EnterCriticalSection();
    std::int32_t LeaveCriticalSection();
    /** 1 if the section was entered, else 0. */
    unsigned char TryToEnterCriticalSection();
    /** Lets the host in once: leaves the section wholly, polls events and enters to the same depth. */
    void YieldCriticalSection();

protected:
    /** Adds the types. None here. */
    virtual void CreateProcessTypeObjects();

private:
    void SortProcessTypeObjects();
    void InitProcessTypeObjects();
    void InitializeCriticalSection();
    void CloseWithoutInstances();
    void ReleaseHostObjects();

    std::int32_t InstantiateOfType (std::uint32_t type, std::int32_t* process);
    std::int32_t FreeOfType (std::uint32_t type, std::int32_t process);

    template <std::int32_t selector, typename Operation, typename... Arguments>
    std::int32_t CallType (Operation operation, std::uint32_t type, Arguments... arguments);

    template <typename Operation, typename... Arguments>
    std::int32_t CallEachType (Operation operation, Arguments... arguments);

    std::vector<std::unique_ptr<CProcessType>> processTypes;
    std::int32_t numLiveProcesses = 0;
    FicObject criticalSection = nullptr;
    std::int32_t criticalSectionDepth = 0;

    static std::int16_t fOpenCount;  // UseResourceFile() calls not yet undone
    static std::int16_t fResFile;    // the bundle's resources while they are open
    static std::int16_t prevResFile; // what was current before the first instance
};

/** The group of this plug-in; the caller owns it. Defined where the plug-in is. */
CProcessGroup* makePlugInGroup();
