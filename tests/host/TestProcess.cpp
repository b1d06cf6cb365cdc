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

std::int32_t TestProcess::call (const std::string& name) const
{
    return testProcessLog.call (name + std::to_string (GetProcessIndex()));
}

std::int32_t TestProcess::call (const std::string& name, std::int32_t value) const
{
    return testProcessLog.call (name + std::to_string (GetProcessIndex()) + "=" + std::to_string (value));
}

void TestProcess::Initialize()
{
    throwIfFailed (call ("Initialize"));
}

std::int32_t TestProcess::GetChunk (std::uint32_t, SFicPlugInChunk* chunk)
{
    const auto result = call ("GetChunk");

    if (result == ficSuccess)
        chunk->chunkSize = ficChunkHeaderSize;

    return result;
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
