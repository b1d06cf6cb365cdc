// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Processes and types for tests of groups: they note what happens to them and fail where they are told to.

#include "host/TestProcess.h"

#include "host/CProcessGroup.h"
#include "host/CallNoThrow.h"
#include "host/HostGlobals.h"

#include <algorithm>

TestProcessLog testProcessLog;

std::int32_t TestProcessLog::call (const std::string& name)
{
    calls.push_back (name);
    return answer ? answer (name) : std::int32_t { ficSuccess };
}

int TestProcessLog::count (const std::string& name) const
{
    return static_cast<int> (std::count (calls.begin(), calls.end(), name));
}

void resetTestProcesses()
{
    testProcessLog = {};
}

TestProcess::TestProcess()
{
    ++testProcessLog.numAlive;
    testProcessLog.sampleRateAtConstruction = gProcessGroup == nullptr ? 0 : gProcessGroup->GetSampleRate();
}

TestProcess::~TestProcess()
{
    --testProcessLog.numAlive;
}

/** With the index, so that a test can let one process fail. */
std::int32_t TestProcess::call (const char* name)
{
    return testProcessLog.call (name + std::to_string (GetProcessIndex()));
}

void TestProcess::Initialize()
{
    throwIfFailed (call ("Initialize"));
}

std::int32_t TestProcess::Free()
{
    return call ("Free");
}

std::int32_t TestProcess::ReleaseMIDI()
{
    return call ("ReleaseMIDI");
}

std::int32_t TestProcess::SetSampleRate (std::int32_t newSampleRate)
{
    return testProcessLog.call ("SetSampleRate" + std::to_string (GetProcessIndex()) + "="
                                + std::to_string (newSampleRate));
}

std::int32_t TestProcess::SetDitherBits (std::int32_t numBits)
{
    return testProcessLog.call ("SetDitherBits" + std::to_string (GetProcessIndex()) + "="
                                + std::to_string (numBits));
}

std::int32_t TestProcess::SetTimeCodeInfo (const SFicTimeCodeInfo*)
{
    return call ("SetTimeCodeInfo");
}

std::int32_t TestProcess::SetLocationTempo (std::int32_t, std::int32_t)
{
    return call ("SetLocationTempo");
}

std::int32_t TestProcess::BoundAutoSegment (std::int32_t, std::int32_t)
{
    return call ("BoundAutoSegment");
}

std::int32_t TestProcess::Prime (unsigned char)
{
    return call ("Prime");
}

std::int32_t TestProcess::GetChunk (std::uint32_t, SFicPlugInChunk* chunk)
{
    const auto result = call ("GetChunk");

    if (result == ficSuccess)
        chunk->chunkSize = ficChunkHeaderSize;

    return result;
}

std::int32_t TestProcess::SetChunk (std::uint32_t, const SFicPlugInChunk*)
{
    return call ("SetChunk");
}

std::int32_t TestProcess::CompareActiveChunk (const SFicPlugInChunk*, unsigned char* same)
{
    *same = 1;
    return call ("CompareActiveChunk");
}

std::int32_t NativeTestProcess::CreateHostPlugIn (SFicPlugInId id)
{
    testProcessLog.announcedId = id;
    return testProcessLog.call ("CreateHostPlugIn");
}

TestProcessType::TestProcessType (std::uint32_t newCode, std::int32_t newPlugInType)
    : code (newCode)
{
    plugInType = newPlugInType;
}

std::int32_t TestProcessType::GetPlugInOSType (std::uint32_t* type)
{
    *type = code;
    return ficSuccess;
}

CProcess* TestProcessType::CreateCDSPProcess()
{
    return makesProcesses ? new TestProcess : nullptr;
}
