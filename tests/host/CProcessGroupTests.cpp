// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The group: its types and their order, the life of instances, and what it has from the host meanwhile.

#include "host/CDAEError.h"
#include "host/CProcessGroup.h"
#include "host/FakeFramework.h"
#include "host/FourCC.h"
#include "host/HostGlobals.h"
#include "host/TestProcess.h"
#include "host/platform/ResourceFiles.h"
#include "support/NamedRows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <new>
#include <stdexcept>

namespace
{
constexpr auto nativeCode = fourCC ("nati");
constexpr auto otherCode = fourCC ("othr");
constexpr std::int32_t nativeType = 3;
constexpr SFicTimeCodeInfo timeCode { 2, 77 };

class TestGroup : public CProcessGroup
{
public:
    TestGroup()
    {
        gProcessGroup = this;
        resetTestProcesses();
    }

    ~TestGroup() override
    {
        FreeProcessTypes();
        gProcessGroup = nullptr;
    }

    TestProcessType* native = nullptr;

protected:
    void CreateProcessTypeObjects() override
    {
        native = new TestProcessType (nativeCode, nativeType);
        AddProcessType (native);
        AddProcessType (new TestProcessType (otherCode, 0));
    }
};

std::int32_t resultOf (const std::function<std::int32_t()>& call)
{
    try
    {
        return call();
    }
    catch (const CDAEError& error)
    {
        return error.GetErrorCode();
    }
}

class CProcessGroupTest : public testing::Test
{
protected:
    CProcessGroupTest() { group.Initialize(); }

    std::int32_t instantiate (std::uint32_t type = nativeCode)
    {
        std::int32_t process = 0;
        EXPECT_EQ (group.InstantiateProcess (type, &process), ficSuccess);
        return process;
    }

    void expectNothingHeld()
    {
        constexpr int criticalSectionAlone = 1;
        EXPECT_EQ (framework.numObjects, criticalSectionAlone);
        EXPECT_EQ (platform::numOpenResourceFiles(), 0);
        EXPECT_EQ (platform::currentResourceFile(), platform::programResourceFile);
        EXPECT_EQ (gOurFicServer, nullptr);
        EXPECT_EQ (gOurTokenTask, nullptr);
        EXPECT_EQ (testProcessLog.numAlive, 0);
    }

    FakeFramework framework;
    TestGroup group;
};

TEST_F (CProcessGroupTest, HidesTypesUntilTheirKindIsEnabled)
{
    std::int16_t numTypes = 0;
    EXPECT_EQ (group.GetNumProcessTypes (&numTypes), ficSuccess);
    EXPECT_EQ (numTypes, 1);
    EXPECT_EQ (group.native->GetTypeIndex(), 2) << "behind the enabled ones";
    EXPECT_EQ (group.GetProcessTypeFromIndex (2), group.native);

    EXPECT_EQ (group.EnablePlugInType (nativeType + 1), ficSuccess);
    group.GetNumProcessTypes (&numTypes);
    EXPECT_EQ (numTypes, 1);

    EXPECT_EQ (group.EnablePlugInType (nativeType), ficSuccess);
    group.GetNumProcessTypes (&numTypes);
    EXPECT_EQ (numTypes, 2);
    EXPECT_EQ (group.GetNumProcessTypes (nullptr), ficSuccess);

    std::int32_t plugInType = 0;
    EXPECT_EQ (group.GetPlugInType (nativeCode, &plugInType), ficSuccess);
    EXPECT_EQ (plugInType, nativeType);
}

TEST_F (CProcessGroupTest, KeepsTheOrderOfEquallyEnabledTypes)
{
    group.AddProcessType (new TestProcessType (fourCC ("late"), nativeType));
    group.EnablePlugInType (nativeType + 1);
    EXPECT_EQ (group.GetProcessTypeFromOSType (otherCode)->GetTypeIndex(), 1);
    EXPECT_EQ (group.native->GetTypeIndex(), 2);
    EXPECT_EQ (group.GetProcessTypeFromOSType (fourCC ("late"))->GetTypeIndex(), 3);
}

TEST_F (CProcessGroupTest, NamesUnknownTypesAndProcesses)
{
    instantiate();

    for (const auto index : { 0, -1, 3 })
        EXPECT_EQ (resultOf ([&] { return group.GetProcessTypeFromIndex (index) == nullptr; }),
                   ficUnknownType)
            << index;

    EXPECT_EQ (group.GetProcessTypeFromOSTypeNoThrow (0), nullptr);

    EXPECT_EQ (group.FreeProcess (nativeCode, 2), ficUnknownProcess);
    EXPECT_EQ (testProcessLog.numAlive, 1);
}

TEST_F (CProcessGroupTest, HoldsHostObjectsAndResourcesWhileThereAreInstances)
{
    const auto numMadeBefore = gInstanciationNum;
    instantiate();
    instantiate();
    EXPECT_NE (gOurFicServer, nullptr);
    EXPECT_NE (gOurTokenTask, nullptr);
    EXPECT_EQ (framework.numInitFicCalls, 1);
    EXPECT_EQ (framework.numObjects, 3);
    EXPECT_EQ (platform::numOpenResourceFiles(), 1);

    group.FreeProcess (nativeCode, 1);
    EXPECT_EQ (framework.numObjects, 3);
    EXPECT_EQ (platform::numOpenResourceFiles(), 1);

    group.FreeProcess (nativeCode, 2);
    expectNothingHeld();
    EXPECT_EQ (gInstanciationNum, numMadeBefore + 2);
}

TEST_F (CProcessGroupTest, TellsANewProcessTheRateSentBeforeIt)
{
    group.SetSampleRate (96000);
    group.SetDitherBits (24);
    instantiate();
    EXPECT_EQ (testProcessLog.sampleRateAtConstruction, 96000);
    EXPECT_THAT (testProcessLog.calls,
                 testing::ElementsAre ("Initialize1", "SetSampleRate1=96000", "SetDitherBits1=24"));
    EXPECT_EQ (group.SetTimeCodeInfo (&timeCode), ficSuccess);
    EXPECT_EQ (group.native->GetFrameOffset(), std::int32_t { timeCode.frameOffset });
}

struct BroadcastCase
{
    const char* name;
    const char* call; // as a process notes it, without the index
    std::int32_t (*send) (CProcessGroup& group);
};

const BroadcastCase broadcastCases[] = {
    { "SampleRate", "SetSampleRate", [] (CProcessGroup& group) { return group.SetSampleRate (48000); } },
    { "DitherBits", "SetDitherBits", [] (CProcessGroup& group) { return group.SetDitherBits (16); } },
    { "TimeCode",
      "SetTimeCodeInfo",
      [] (CProcessGroup& group) { return group.SetTimeCodeInfo (&timeCode); } },
    { "Tempo", "SetLocationTempo", [] (CProcessGroup& group) { return group.SetLocationTempo (0, 120); } },
    { "Segment", "BoundAutoSegment", [] (CProcessGroup& group) { return group.BoundAutoSegment (0, 1); } },
    { "Prime", "Prime", [] (CProcessGroup& group) { return group.Prime (1); } },
};

using CProcessGroupBroadcast = WithRows<CProcessGroupTest, BroadcastCase>;

INSTANTIATE_ROWS (CProcessGroupBroadcast, broadcastCases);

TEST_P (CProcessGroupBroadcast, ReachesAllAndReturnsTheFirstError)
{
    instantiate (otherCode);
    instantiate();
    instantiate();
    instantiate();
    EXPECT_EQ (GetParam().send (group), ficSuccess);

    // One process throws, of the first type or of the second, and those behind it fail otherwise.
    for (const std::size_t throwing : { 1u, 2u })
    {
        testProcessLog.calls.clear();
        testProcessLog.answer = [throwing] (const std::string&) -> std::int32_t
        {
            if (testProcessLog.calls.size() == throwing)
                throw std::runtime_error ("lost");

            return testProcessLog.calls.size() > throwing ? ficPortOutOfRange : ficSuccess;
        };

        EXPECT_EQ (GetParam().send (group), ficUnknownException);
        EXPECT_THAT (testProcessLog.calls,
                     testing::ElementsAre (testing::StartsWith (GetParam().call + std::string ("1")),
                                           testing::StartsWith (GetParam().call + std::string ("1")),
                                           testing::StartsWith (GetParam().call + std::string ("2")),
                                           testing::StartsWith (GetParam().call + std::string ("3"))));
    }
}

struct FailureCase
{
    const char* name;
    const char* failingCall;
    std::int32_t (*failure)();
    std::int32_t result;
    bool isUndone; // the process had been made
};

std::int32_t refuse()
{
    return ficPortOutOfRange;
}

std::int32_t lose()
{
    throw std::runtime_error ("lost");
}

std::int32_t runOut()
{
    throw std::bad_alloc();
}

const FailureCase failureCases[] = {
    { "NoProcess", "none", {}, ficObjectNotMade, false },
    { "InitializeThrowsItsCode", "Initialize", refuse, ficPortOutOfRange, true },
    { "InitializeThrows", "Initialize", lose, ficUnknownException, true },
    { "InitializeWithoutMemory", "Initialize", runOut, ficOutOfMemory, true },
    { "SampleRateRefused", "SetSampleRate", refuse, ficPortOutOfRange, true },
    { "DitherBitsRefused", "SetDitherBits", refuse, ficPortOutOfRange, true },
};

class CProcessGroupFailure : public CProcessGroupTest, public testing::WithParamInterface<FailureCase>
{
protected:
    void failFromNowOn()
    {
        group.native->makesProcesses = GetParam().isUndone;
        testProcessLog.answer = [] (const std::string& call)
        {
            // What is undone fails too, and changes nothing.
            if (call.starts_with ("ReleaseMIDI") || call.starts_with ("Free"))
                throw std::runtime_error ("lost");

            return call.starts_with (GetParam().failingCall) ? GetParam().failure()
                                                             : std::int32_t { ficSuccess };
        };
    }
};

INSTANTIATE_ROWS (CProcessGroupFailure, failureCases);

TEST_P (CProcessGroupFailure, ToInstantiateLeavesThingsAsTheyWere)
{
    for (const std::int32_t numBefore : { 0, 1 })
    {
        const auto numMadeBefore = gInstanciationNum + numBefore;
        std::int32_t process = 99;

        if (numBefore == 1)
            instantiate();

        failFromNowOn();
        EXPECT_EQ (group.InstantiateProcess (nativeCode, &process), GetParam().result);
        EXPECT_EQ (process, 99);
        EXPECT_EQ (gInstanciationNum, numMadeBefore);
        EXPECT_EQ (group.native->GetProcessFromIndex (numBefore + 1), nullptr);

        for (const auto* const call : { "ReleaseMIDI", "Free" })
            EXPECT_EQ (testProcessLog.count (call + std::to_string (numBefore + 1)), GetParam().isUndone);

        if (numBefore == 0)
            expectNothingHeld();

        testProcessLog.answer = {};
        group.native->makesProcesses = true;
    }

    EXPECT_EQ (testProcessLog.numAlive, 1);
    EXPECT_NE (gOurTokenTask, nullptr);
    EXPECT_EQ (platform::numOpenResourceFiles(), 1);
    EXPECT_EQ (instantiate(), 2);
}

TEST_F (CProcessGroupTest, InstantiatesNothingOfAnUnknownType)
{
    EXPECT_EQ (resultOf ([&] { return group.InstantiateProcess (0, nullptr); }), ficUnknownType);
    expectNothingHeld();
}

TEST_F (CProcessGroupTest, LosesAProcessThatEndsWithAnError)
{
    instantiate();
    testProcessLog.answer = [] (const std::string&) -> std::int32_t
    { throw CDAEError (ficPortNotConnected); };
    EXPECT_EQ (group.FreeProcess (nativeCode, 1), ficPortNotConnected);
    expectNothingHeld();
}

TEST_F (CProcessGroupTest, FreesWhatIsLeftAtItsEnd)
{
    {
        TestGroup ending;
        ending.Initialize();
        ending.InstantiateProcess (nativeCode, nullptr);
        ending.InstantiateProcess (otherCode, nullptr);
        testProcessLog.answer = [] (const std::string&) -> std::int32_t { throw 1; };
    }

    expectNothingHeld();
}

struct ServiceCase
{
    const char* name;
    void (*spoil) (FakeFramework& framework);
    std::int32_t result = ficSuccess;
    bool hasServer = false;
};

const ServiceCase serviceCases[] = {
    { "InitFicFails",
      [] (auto& framework) { framework.initFicResult = ficPortOutOfRange; },
      ficPortOutOfRange },
    { "NoTokens", [] (auto& framework) { framework.gestaltAnswer = 0; } },
    { "TokensUnknown", [] (auto& framework) { framework.gestaltResult = -1; } },
    { "NotAlive", [] (auto& framework) { framework.isAlive = 0; } },
    { "NoServer", [] (auto& framework) { framework.makesServer = false; } },
    { "NoTask", [] (auto& framework) { framework.makesTokenTask = false; }, ficSuccess, true },
};

using CProcessGroupService = WithRows<CProcessGroupTest, ServiceCase>;

INSTANTIATE_ROWS (CProcessGroupService, serviceCases);

TEST_P (CProcessGroupService, MayBeMissing)
{
    GetParam().spoil (framework);
    EXPECT_EQ (group.InstantiateProcess (nativeCode, nullptr), GetParam().result);
    EXPECT_EQ (gOurFicServer != nullptr, GetParam().hasServer);
    EXPECT_EQ (gOurTokenTask, nullptr);

    EXPECT_EQ (group.FreeProcess (nativeCode, 1),
               GetParam().result == ficSuccess ? ficSuccess : ficUnknownProcess);
    expectNothingHeld();
}

TEST_F (CProcessGroupTest, NestsUsesOfItsResources)
{
    EXPECT_EQ (CProcessGroup::UseResourceFile(), platform::programResourceFile);
    const auto own = platform::currentResourceFile();
    EXPECT_NE (own, platform::programResourceFile);
    platform::useResourceFile (platform::programResourceFile);

    const auto before = CProcessGroup::UseResourceFile();
    EXPECT_EQ (platform::currentResourceFile(), own);
    CProcessGroup::RestoreResourceFile (before);
    EXPECT_EQ (platform::currentResourceFile(), platform::programResourceFile);
    EXPECT_EQ (platform::numOpenResourceFiles(), 1);

    CProcessGroup::RestoreResourceFile (platform::programResourceFile);
    CProcessGroup::RestoreResourceFile (platform::programResourceFile);
    EXPECT_EQ (platform::numOpenResourceFiles(), 0);
    EXPECT_EQ (CProcessGroup::UseResourceFile(), platform::programResourceFile)
        << "once too often changes nothing";
    EXPECT_EQ (platform::numOpenResourceFiles(), 1);
    CProcessGroup::RestoreResourceFile (platform::programResourceFile);
}

TEST_F (CProcessGroupTest, YieldsTheCriticalSectionWhollyAndTakesItBack)
{
    EXPECT_EQ (group.EnterCriticalSection(), ficSuccess);
    EXPECT_EQ (group.TryToEnterCriticalSection(), 1);
    EXPECT_EQ (framework.criticalSectionDepth, 2);

    group.YieldCriticalSection();
    EXPECT_THAT (framework.depthsAtEvents, testing::ElementsAre (0));
    EXPECT_EQ (framework.criticalSectionDepth, 2);

    for (auto i = 0; i < 3; ++i)
        EXPECT_EQ (group.LeaveCriticalSection(), ficSuccess);

    EXPECT_EQ (framework.criticalSectionDepth, 0) << "left no more often than entered";
}

TEST_F (CProcessGroupTest, EntersTheCriticalSectionOnlyIfItMay)
{
    framework.lettingIn = 0;
    EXPECT_EQ (group.TryToEnterCriticalSection(), 0);
    framework.lettingIn = 1;
    framework.services.version = 0;
    EXPECT_EQ (group.TryToEnterCriticalSection(), 0);
    framework.services.version = 1;
    framework.hasServices = false;
    EXPECT_EQ (group.TryToEnterCriticalSection(), 0);
    framework.hasServices = true;
    EXPECT_EQ (CProcessGroup().TryToEnterCriticalSection(), 0) << "none made yet";
    EXPECT_EQ (framework.criticalSectionDepth, 0);
}
} // namespace
