// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Processes and types for tests of groups: they note what happens to them and fail where they are told to.

#pragma once

#include "host/CEffectProcess.h"
#include "host/CProcessType.h"
#include "host/HostPlugInMaker.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

/** What test processes do, and what became of them. Begins anew with resetTestProcesses(). */
struct TestProcessLog
{
    int numAlive = 0;
    std::vector<std::string> calls;
    /** Called with the name of each call, before it answers; may throw. Its result is the call's. */
    std::function<std::int32_t (const std::string&)> answer;
    std::int32_t sampleRateAtConstruction = 0;
    SFicPlugInId announcedId {};

    std::int32_t call (const std::string& name);
    int count (const std::string& name) const;
};

extern TestProcessLog testProcessLog;
void resetTestProcesses();

/** Each call is noted with the process's index, so that a test can let one process fail. */
class TestProcess : public virtual CEffectProcess
{
public:
    TestProcess();
    ~TestProcess() override { --testProcessLog.numAlive; }

    void Initialize() override;
    std::int32_t Free() override { return call ("Free"); }
    std::int32_t ReleaseMIDI() override { return call ("ReleaseMIDI"); }
    std::int32_t SetSampleRate (std::int32_t rate) override { return call ("SetSampleRate", rate); }
    std::int32_t SetDitherBits (std::int32_t bits) override { return call ("SetDitherBits", bits); }
    std::int32_t SetTimeCodeInfo (const SFicTimeCodeInfo*) override { return call ("SetTimeCodeInfo"); }
    std::int32_t SetLocationTempo (std::int32_t, std::int32_t) override { return call ("SetLocationTempo"); }
    std::int32_t BoundAutoSegment (std::int32_t, std::int32_t) override { return call ("BoundAutoSegment"); }
    std::int32_t Prime (unsigned char) override { return call ("Prime"); }
    std::int32_t GetChunk (std::uint32_t, SFicPlugInChunk* chunk) override;
    std::int32_t SetChunk (std::uint32_t, const SFicPlugInChunk*) override { return call ("SetChunk"); }
    std::int32_t CompareActiveChunk (const SFicPlugInChunk*, unsigned char* same) override;

private:
    std::int32_t call (const std::string& name) const;
    std::int32_t call (const std::string& name, std::int32_t value) const;
};

/** One that can announce itself to the host's engine. */
class NativeTestProcess : public TestProcess, public HostPlugInMaker
{
public:
    std::int32_t CreateHostPlugIn (SFicPlugInId id) override;
};

/** A type of TestProcesses. */
class TestProcessType : public CProcessType
{
public:
    TestProcessType (std::uint32_t newCode, std::int32_t newPlugInType);

    std::int32_t GetPlugInOSType (std::uint32_t* type) override
    {
        *type = code;
        return ficSuccess;
    }

    bool makesProcesses = true;

protected:
    CProcess* CreateCDSPProcess() override { return makesProcesses ? new TestProcess : nullptr; }

private:
    std::uint32_t code;
};
