// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The functions that the host's engine calls: what they hand on, and that nothing gets out of them.

#include "host/CEffectTypeRTAS.h"
#include "host/FakeEngine.h"
#include "host/FakeFramework.h"
#include "host/FourCC.h"
#include "host/RenderingProcess.h"
#include "host/S_RTASP_CustomDataAdmin.h"

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>

namespace
{
class RenderWorkers : public testing::Test
{
protected:
    RenderWorkers()
        : type (fourCC ("type"), fourCC ("prod"), 0)
    {
        type.DefineStemFormats (1, 1, 0);
        process.SetProcessType (&type);
        process.Initialize();
        process.TestAndClearMetersReady();
        data.process = &process;
        instance.globals.emptyOutput = &emptyOutput;
        instance.globals.quantum = 512;

        connect();
    }

    ~RenderWorkers() override { process.Free(); }

    void connect()
    {
        for (std::size_t port = 0; port < samples.size(); ++port)
            instance.setPort (port, &samples[port]);
    }

    void render (FicWorkerProc worker = CEffectProcessRTAS::RenderAudioWorker)
    {
        process.latest = {};
        worker (instance.get(), &instance.globals);
    }

    FakeFramework framework;
    CEffectTypeRTAS type;
    RenderingProcess process;
    SRTASPCustomData data { nullptr, nullptr, nullptr, 2, 2, 0, 0 };
    FakeInstance instance { &data, 5 };
    std::array<float, 5> samples {};
    float emptyOutput = 0.0f;
};

const auto workers = { CEffectProcessRTAS::RenderAudioWorker,
                       CEffectProcessRTAS::PlugInWorker,
                       CEffectProcessRTAS::PlugInWorkerSG };
} // namespace

TEST_F (RenderWorkers, HandOnEachPortsSamples)
{
    for (auto* const worker : workers)
    {
        render (worker);
        ASSERT_NE (process.latest.inputs, nullptr);
        EXPECT_EQ (process.latest.inputs[0], &samples[0]);
        EXPECT_EQ (process.latest.inputs[1], &samples[1]);
        EXPECT_EQ (process.latest.outputs[0], &samples[2]);
        EXPECT_EQ (process.latest.outputs[1], &samples[3]);
        EXPECT_TRUE (process.TestAndClearMetersReady());
    }
}

TEST_F (RenderWorkers, ASideChainStandsBehindTheInputs)
{
    data.sidechainPort = 3;
    render();
    EXPECT_EQ (process.latest.inputs[2], &samples[2]);
    EXPECT_EQ (process.latest.outputs[0], &samples[3]);
    EXPECT_EQ (process.latest.outputs[1], &samples[4]);
}

TEST_F (RenderWorkers, ABlockHas32SamplesUnlessQuantaVary)
{
    constexpr auto huge = std::numeric_limits<std::int32_t>::max();

    for (const std::int32_t quantum : { 0, 1, 31, 512, -5, huge })
    {
        instance.globals.quantum = quantum;
        data.variableQuanta = 0;
        render();
        EXPECT_EQ (process.latest.numSamples, 32) << quantum;
        data.variableQuanta = 1;
        render();
        EXPECT_EQ (process.latest.numSamples, quantum);
    }
}

TEST_F (RenderWorkers, AnExceptionEndsTheBlockAndNoMore)
{
    bool throwsStandard = false;
    process.onRender = [&]
    {
        if (throwsStandard)
            throw std::runtime_error ("in the middle of a block");

        throw 1;
    };

    for (auto* const worker : workers)
    {
        connect();

        throwsStandard = ! throwsStandard;
        render (worker);
        EXPECT_FALSE (process.TestAndClearMetersReady());
        ASSERT_NE (process.latest.outputs, nullptr);
        EXPECT_EQ (process.latest.outputs[0], &emptyOutput);
        EXPECT_EQ (process.latest.outputs[1], &emptyOutput);

        // Only the generic workers put the empty output into the host's words, too.
        const bool isGeneric = worker != &CEffectProcessRTAS::RenderAudioWorker;
        EXPECT_EQ (instance.getPort (1), &samples[1]);
        EXPECT_EQ (instance.getPort (2), isGeneric ? &emptyOutput : &samples[2]);
        EXPECT_EQ (instance.getPort (3), isGeneric ? &emptyOutput : &samples[3]);
        EXPECT_EQ (instance.getPort (4), &samples[4]);
    }

    process.onRender = nullptr;

    connect();

    render();
    EXPECT_EQ (process.latest.outputs[0], &samples[2]);
    EXPECT_TRUE (process.TestAndClearMetersReady());
}

TEST_F (RenderWorkers, RenderNothingFromBadRecords)
{
    const auto good = data;
    const auto expectNothing = [&] (const char* what)
    {
        for (auto* const worker : workers)
        {
            render (worker);
            EXPECT_EQ (process.latest.outputs, nullptr) << what;
            EXPECT_FALSE (process.TestAndClearMetersReady()) << what;
        }
    };

    data.numInputs = 49;
    expectNothing ("more inputs than there can be");
    data = good;
    data.process = nullptr;
    expectNothing ("no process");
    data = good;
    instance.setPort (0, nullptr);
    expectNothing ("no samples");
    instance.setPort (0, &samples[0]);
    instance.removePort (3);
    expectNothing ("no word");
    instance.get()->customData = nullptr;
    expectNothing ("no data");

    for (auto* const worker : workers)
    {
        worker (nullptr, &instance.globals);
        worker (instance.get(), nullptr);
    }
}

TEST_F (RenderWorkers, RenderNothingOnceTheProcessIsFreed)
{
    process.Free();
    render();
    EXPECT_EQ (process.latest.outputs, nullptr);
}
