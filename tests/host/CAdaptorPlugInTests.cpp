// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the host's engine is told of a process, word by word and in which order.

#include "host/CAdaptorPlugIn.h"
#include "host/CDAEError.h"
#include "host/CEffectTypeRTAS.h"
#include "host/DAERemoteObject.h"
#include "host/FakeEngine.h"
#include "host/FakeFramework.h"
#include "host/FourCC.h"
#include "host/Gestalts.h"
#include "host/RenderingProcess.h"
#include "host/UDigiLibAccess.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <new>

namespace
{
using testing::ElementsAre;
using testing::Pair;
using Words = std::vector<std::uintptr_t>;

constexpr std::uintptr_t objectOfHost = 0xABCD;
constexpr std::int32_t processIndex = 5;
const SFicPlugInId plugInId { fourCC ("manu"), fourCC ("prod"), fourCC ("type"), objectOfHost, processIndex };

std::uintptr_t word (const void* address)
{
    return reinterpret_cast<std::uintptr_t> (address);
}

class CAdaptorPlugInTest : public testing::Test
{
protected:
    CAdaptorPlugInTest()
        : type (fourCC ("type"), fourCC ("prod"), 0)
    {
        UDigiLibAccess::Initialize();
        type.DefineTypeNames ("Some effect");
        type.DefineStemFormats (1, 1, 0);
        process.SetProcessType (&type);
    }

    ~CAdaptorPlugInTest() override { process.Free(); }

    const SRTASPCustomData& blockOfHost() const
    {
        return *static_cast<SRTASPCustomData*> (engine.dataBlock());
    }

    FakeFramework framework;
    FakeEngine engine;
    CEffectTypeRTAS type;
    RenderingProcess process;
};
} // namespace

TEST_F (CAdaptorPlugInTest, DescribesPortsWorkerAndDataBeforeItself)
{
    type.AddGestalt (Gestalts::variableQuanta);
    process.Initialize();
    ASSERT_EQ (process.CreateHostPlugIn (plugInId), ficSuccess);

    EXPECT_THAT (engine.outline(),
                 ElementsAre (Pair (ficRemotePlugIn, 2u),
                              Pair (ficRemoteInput, 1u),
                              Pair (ficRemoteInput, 1u),
                              Pair (ficRemoteOutput, 1u),
                              Pair (ficRemoteOutput, 1u),
                              Pair (ficRemoteWorker, 6u),
                              Pair (ficRemoteData, 1u),
                              Pair (ficRemotePlugIn, 1u),
                              Pair (ficRemotePlugIn, 3u)));

    auto* const plugIn = engine.described (ficRemotePlugIn).at (0);
    const auto inputs = engine.described (ficRemoteInput);
    const auto outputs = engine.described (ficRemoteOutput);
    auto* const worker = engine.described (ficRemoteWorker).at (0);
    auto* const data = engine.described (ficRemoteData).at (0);

    EXPECT_EQ (engine.description (inputs[1]), (Words { 1, word (plugIn), 2 }));
    EXPECT_EQ (engine.description (outputs[0]), (Words { 1, word (plugIn), 1 }));
    EXPECT_EQ (engine.description (plugIn),
               (Words { 1,
                        fourCC ("manu"),
                        fourCC ("prod"),
                        fourCC ("type"),
                        objectOfHost,
                        processIndex,
                        2,
                        word (inputs[0]),
                        word (inputs[1]),
                        2,
                        word (outputs[0]),
                        word (outputs[1]),
                        1,
                        word (worker) }));

    const auto& workerWords = engine.description (worker);
    ASSERT_EQ (workerWords.size(), 10u);
    EXPECT_EQ (workerWords[1], reinterpret_cast<std::uintptr_t> (&CEffectProcessRTAS::RenderAudioWorker));
    EXPECT_EQ ((Words { workerWords.begin() + 2, workerWords.begin() + 8 }),
               (Words { 4, 1, word (data), 0, 0, 0 }));
    EXPECT_STREQ (reinterpret_cast<const char*> (workerWords[8]), "Some effect");
    EXPECT_EQ (workerWords[9], 0u);

    EXPECT_EQ (engine.description (data)[2], sizeof (SRTASPCustomData));
    EXPECT_EQ (blockOfHost().process, static_cast<CProcess*> (&process));
    EXPECT_NE (blockOfHost().inputConnections, nullptr);
    EXPECT_EQ (blockOfHost().numInputs, 2);
    EXPECT_EQ (blockOfHost().numOutputs, 2);
    EXPECT_EQ (blockOfHost().sidechainPort, 0);
    EXPECT_EQ (blockOfHost().variableQuanta, 1);
}

TEST_F (CAdaptorPlugInTest, SendsNothingAboutObjectsBeforeTheyAreRegistered)
{
    process.Initialize();
    ASSERT_EQ (process.CreateHostPlugIn (plugInId), ficSuccess);
    ASSERT_EQ (engine.kinds.size(), 7u);
    int numReferences = 0;

    for (const auto& message : engine.messages)
    {
        EXPECT_TRUE (message.known.contains (message.object));

        for (const auto each : message.words)
            if (auto* const object = reinterpret_cast<void*> (each); engine.kinds.contains (object))
            {
                EXPECT_TRUE (message.known.contains (object)) << "of kind " << engine.kinds.at (object);
                ++numReferences;
            }
    }

    // Each of four ports and the plug-in to each other, the worker to its data, the plug-in to the worker.
    EXPECT_EQ (numReferences, 10);
}

TEST_F (CAdaptorPlugInTest, GivesTheCodeOfWhatTheHostThrowsAndLetsSchedulingGoOn)
{
    struct Row
    {
        const char* name;
        std::function<void()> fail;
        std::int32_t result;
    };

    const Row rows[] = {
        { "no memory", [] { throw std::bad_alloc(); }, -9006 },
        { "a number", [] { throw std::int32_t { -123 }; }, -123 },
        { "an error", [] { throw CDAEError (ficObjectNotMade); }, -7053 },
    };

    process.Initialize();

    for (const auto& row : rows)
    {
        int numCalls = 0;
        engine.messages.clear();
        engine.onCall = [&]
        {
            if (++numCalls == 2) // the first port
                row.fail();
        };

        EXPECT_EQ (process.CreateHostPlugIn (plugInId), row.result) << row.name;
        EXPECT_THAT (engine.outline(),
                     ElementsAre (Pair (ficRemotePlugIn, 2u),
                                  Pair (ficRemotePlugIn, 3u),
                                  Pair (ficRemotePlugIn, 2u),
                                  Pair (ficRemotePlugIn, 1u),
                                  Pair (ficRemotePlugIn, 3u)))
            << row.name;
    }

    engine.onCall = nullptr;
    EXPECT_EQ (process.CreateHostPlugIn (plugInId), ficSuccess);
}

TEST_F (CAdaptorPlugInTest, SaysAtItsEndThatThereAreNoPorts)
{
    process.Initialize();
    ASSERT_EQ (process.CreateHostPlugIn (plugInId), ficSuccess);
    auto* const plugIn = engine.described (ficRemotePlugIn).at (0);
    engine.messages.clear();

    EXPECT_EQ (process.Free(), ficSuccess);
    EXPECT_THAT (
        engine.outline(),
        ElementsAre (Pair (ficRemotePlugIn, 2u), Pair (ficRemotePlugIn, 1u), Pair (ficRemotePlugIn, 3u)));
    const auto& words = engine.description (plugIn);
    EXPECT_EQ ((Words { words.begin() + 6, words.end() }), (Words { 0, 0, 0 }));
}

TEST_F (CAdaptorPlugInTest, HasPortsForSideChainAndAuxiliaryOutputs)
{
    type.AddGestalt (Gestalts::sideChainPort);
    type.AddGestalt (Gestalts::auxOutputStems);
    process.numAuxStems = 2;
    process.Initialize();
    ASSERT_EQ (process.CreateHostPlugIn (plugInId), ficSuccess);

    const auto inputs = engine.described (ficRemoteInput);
    ASSERT_EQ (inputs.size(), 3u);
    EXPECT_EQ (engine.description (inputs[2])[2], 3u);
    EXPECT_EQ (engine.described (ficRemoteOutput).size(), 6u);
    EXPECT_EQ (blockOfHost().sidechainPort, 3);
    EXPECT_EQ (blockOfHost().numInputs, 2);
    EXPECT_EQ (blockOfHost().numOutputs, 2);
}

TEST_F (CAdaptorPlugInTest, CutsTheWorkersNameAndAsksTheHostForVariableQuanta)
{
    type.DefineTypeNames (std::string (100, 'x').c_str());
    type.AddGestalt (Gestalts::variableQuanta);
    process.Initialize();
    engine.givesDataBlocks = false;
    EXPECT_EQ (process.CreateHostPlugIn (plugInId), ficSuccess);
    EXPECT_EQ (engine.dataBlock(), nullptr);

    // The text is the worker's, and goes with it.
    const auto& words = engine.description (engine.described (ficRemoteWorker).at (0));
    EXPECT_EQ (std::string (reinterpret_cast<const char*> (words[8])), std::string (64, 'x'));
    engine.givesDataBlocks = true;

    for (const auto& [answer, result, expected] : { std::tuple { 0, 0, 0 }, { 1, 0, 1 }, { 1, -1, 0 } })
    {
        framework.gestaltAnswer = answer;
        framework.gestaltResult = result;
        ASSERT_EQ (process.CreateHostPlugIn (plugInId), ficSuccess);
        EXPECT_EQ (blockOfHost().variableQuanta, expected) << answer << " " << result;
    }
}

TEST_F (CAdaptorPlugInTest, AsksOnceForTheManagerUntilItIsForgotten)
{
    engine.isThere = false;
    process.Initialize();
    EXPECT_EQ (process.CreateHostPlugIn (plugInId), ficSuccess);
    engine.isThere = true;
    EXPECT_EQ (process.CreateHostPlugIn (plugInId), ficSuccess);
    EXPECT_EQ (engine.numTimesAsked, 1);
    EXPECT_TRUE (engine.messages.empty());

    DAERemoteObjectForgetManager(); // as the group does for a new callback
    EXPECT_EQ (process.Free(), ficSuccess);
    ASSERT_EQ (engine.kinds.size(), 1u);
    EXPECT_THAT (
        engine.outline(),
        ElementsAre (Pair (ficRemotePlugIn, 2u), Pair (ficRemotePlugIn, 1u), Pair (ficRemotePlugIn, 3u)));
}

TEST_F (CAdaptorPlugInTest, WithoutAWorkerTakesTheGenericOne)
{
    process.Initialize();

    for (const bool scattered : { false, true })
    {
        if (scattered)
            type.AddGestalt (Gestalts::scatterGatherWorker);

        CAdaptorPlugIn plugIn (plugInId, process, nullptr, nullptr, nullptr);
        plugIn.DescribeToDAE();
        EXPECT_EQ (engine.description (engine.described (ficRemoteWorker).back())[1],
                   reinterpret_cast<std::uintptr_t> (scattered ? &CEffectProcessRTAS::PlugInWorkerSG
                                                               : &CEffectProcessRTAS::PlugInWorker));
    }
}

TEST_F (CAdaptorPlugInTest, ReadsAndWritesTheHostsCopyOfTheData)
{
    S_RTASP_CustomDataAdmin data;
    SRTASPCustomData values { &process, nullptr, nullptr, 2, 6, 3, 1 };
    data.SetAll (values);
    EXPECT_EQ (data.GetAll().numOutputs, 6);

    data.DescribeToDAE();
    EXPECT_EQ (blockOfHost().numOutputs, 6);
    static_cast<SRTASPCustomData*> (engine.dataBlock())->sidechainPort = 9;
    EXPECT_EQ (data.GetAll().sidechainPort, 9);
}
