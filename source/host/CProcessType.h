// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// One kind of instance that the host can insert, and the instances there are of it.

#pragma once

#include "RoutineRows.h"

#include <cstdint>
#include <memory>
#include <vector>

class CProcess;
class CProcessGroup;

/** Owns its processes and finds each by its 1-based index. All operations are [host-main] and return a
   FicResult except where they say otherwise. */
class CProcessType
{
public:
    /** Rates and offsets come from gProcessGroup. */
    CProcessType();
    virtual ~CProcessType();

    CProcessType (const CProcessType&) = delete;
    CProcessType& operator= (const CProcessType&) = delete;

    // The routines that concern a type, and those that concern an instance: each of these returns
    // ficUnknownProcess and touches no result for an index that there is not, and otherwise calls the
    // process.
#define TYPE_OPERATION(selector, Name, parameters, names) virtual std::int32_t Name (FIC_REST parameters);
#define PROCESS_OPERATION(selector, Name, answer, parameters, names)                                         \
    virtual std::int32_t Name (std::int32_t process FIC_BARE parameters);

    FIC_ROUTINES (FIC_SKIP, TYPE_OPERATION, PROCESS_OPERATION, FIC_SKIP)

#undef TYPE_OPERATION
#undef PROCESS_OPERATION

    // Stored if there is something to store, then passed on to every process. After an error the others still
    // get it, and the first error is returned.
    virtual std::int32_t SetSampleRate (std::int32_t newSampleRate); // Hz
    virtual std::int32_t SetDitherBits (std::int32_t numBits);
    virtual std::int32_t SetTimeCodeInfo (const SFicTimeCodeInfo* info);
    virtual std::int32_t SetLocationTempo (std::int32_t location, std::int32_t tempo);
    virtual std::int32_t BoundAutoSegment (std::int32_t start, std::int32_t end);
    virtual std::int32_t Prime (unsigned char on);

    // For hardware; a native type has none.
    virtual std::int32_t AllocateHardware();
    virtual std::int32_t FreeHardware();

    /** The type's code, here 0. */
    virtual std::int32_t GetPlugInOSType (std::uint32_t* type);

    /** A Pascal string, here empty. */
    virtual std::int32_t GetPageTableResourceName (unsigned char* name);

    /** Null for an index below 1 or unknown. */
    CProcess* GetProcessFromIndex (std::int32_t index) const noexcept;

    /** Frees all processes, whatever they throw. To be called while the whole object still stands. */
    void FreeProcesses() noexcept;

    /** Whether the host counts this type; those without a plug-in type it always does. */
    bool IsEnabled() const noexcept
    {
        return isEnabled || plugInType == 0;
    }
    void Enable() noexcept
    {
        isEnabled = true;
    }

    bool HasPlugInType (std::int32_t wanted) const noexcept
    {
        return plugInType == wanted;
    }

    void SetProcessGroup (CProcessGroup* newGroup, std::int16_t newTypeIndex) noexcept;
    CProcessGroup* GetProcessGroup() const noexcept
    {
        return group;
    }
    /** 1-based */
    std::int16_t GetTypeIndex() const noexcept
    {
        return typeIndex;
    }

    std::int32_t GetSampleRate() const noexcept
    {
        return sampleRate;
    } // Hz
    std::int32_t GetDitherBits() const noexcept
    {
        return ditherBits;
    }
    signed char GetFrameRate() const noexcept
    {
        return frameRate;
    }
    std::int32_t GetFrameOffset() const noexcept
    {
        return frameOffset;
    }

protected:
    /** A new process that nobody owns yet, or null, which is the answer here. */
    virtual CProcess* CreateCDSPProcess();

    std::int32_t plugInType = 0; // 3 for native real-time

private:
    std::int32_t CreateProcessDeactivated();
    void SetUpProcess (CProcess& process, std::int16_t index);
    std::int16_t LowestFreeIndex() const noexcept;
    std::int32_t FreeProcessByPtr (CProcess* process) noexcept;

    template <typename Operation, typename... Arguments>
    std::int32_t CallEachProcess (Operation operation, Arguments... arguments);

    CProcessGroup* group = nullptr;
    std::int16_t typeIndex = 0;
    std::int32_t sampleRate, ditherBits;
    signed char frameRate;
    std::int32_t frameOffset;
    bool isEnabled = false;
    std::vector<std::unique_ptr<CProcess>> processes;
};
