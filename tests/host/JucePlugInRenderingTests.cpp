// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Blocks from the host's engine to the processor and back.

#include "engine/ParameterTable.h"
#include "engine/WideLoomAudioProcessor.h"
#include "host/BridgeFixture.h"
#include "host/ParameterScale.h"
#include "host/ProbeProcessor.h"
#include "support/AllocationCounter.h"

#include <gmock/gmock.h>

#include <atomic>
#include <cstdlib>
#include <limits>
#include <stdexcept>
#include <thread>

namespace
{
constexpr std::int32_t masterBypass = 1;
constexpr auto top = std::numeric_limits<std::int32_t>::max();
constexpr auto bottom = std::numeric_limits<std::int32_t>::min();

class JucePlugInRendering : public BridgeFixture
{
protected:
    JucePlugInRendering()
    {
        auto owned = std::make_unique<ProbeProcessor>();
        probe = owned.get();
        process = instantiateWith (std::move (owned));
        ports = std::make_unique<StereoPorts> (engine);
    }

    ~JucePlugInRendering() override { process.reset(); }

    /** Whether the first `numSamples` of both outputs are `expected` and the next ones as before. */
    void expectOutput (float expected, std::size_t numSamples) const
    {
        for (const std::size_t channel : { 0u, 1u })
        {
            if (numSamples > 0)
            {
                EXPECT_EQ (ports->output (channel, 0), expected);
                EXPECT_EQ (ports->output (channel, numSamples - 1), expected);
            }

            EXPECT_EQ (ports->output (channel, numSamples), StereoPorts::outputBefore);
        }
    }

    std::unique_ptr<JucePlugInProcess> process;
    ProbeProcessor* probe = nullptr;
    std::unique_ptr<StereoPorts> ports;
};
} // namespace

TEST_F (JucePlugInRendering, TheProcessorWorksInPlaceOnACopyOfTheInput)
{
    for (const int size : { 0, 1, 31, 512 })
    {
        ports->reset();
        ports->render (size);
        expectOutput (StereoPorts::inputLevel + 1.0f, static_cast<std::size_t> (size));
        EXPECT_EQ (ports->channels[0][0], StereoPorts::inputLevel);
    }

    ports->render (-3);
    EXPECT_THAT (probe->sizes, testing::ElementsAre (0, 1, 31, 512, 0));
}

TEST_F (JucePlugInRendering, InputsThatAreTheOutputsAreNotCopied)
{
    std::array channels { ports->channels[0].data(), ports->channels[1].data() };
    process->RenderAudio (channels.data(), channels.data(), 64);
    EXPECT_EQ (ports->channels[1][63], StereoPorts::inputLevel + 1.0f);
    EXPECT_EQ (ports->channels[1][64], StereoPorts::inputLevel);
}

TEST_F (JucePlugInRendering, TheMasterBypassLeavesTheInputInTheOutput)
{
    for (const auto& [value, isBypassed] :
         { std::pair { top, true }, { bottom, false }, { 1, true }, { 0, false } })
    {
        const int before = probe->numTimesBypassed;
        process->UpdateControlValue (masterBypass, value);
        process->UpdateControlValue (2, isBypassed ? bottom : top); // no bypass
        ports->reset();
        ports->render (64);
        EXPECT_EQ (probe->numTimesBypassed - before, isBypassed ? 1 : 0) << value;
        expectOutput (StereoPorts::inputLevel + (isBypassed ? 0.0f : 1.0f), 64);
    }
}

TEST_F (JucePlugInRendering, ASuspendedProcessorIsSilentEvenWhenBypassed)
{
    probe->suspendProcessing (true);

    for (const std::int32_t bypass : { bottom, top })
    {
        process->UpdateControlValue (masterBypass, bypass);
        ports->reset();
        ports->render (64);
        expectOutput (0.0f, 64);
    }

    EXPECT_TRUE (probe->sizes.empty());
    EXPECT_EQ (probe->numTimesBypassed, 0);
}

TEST_F (JucePlugInRendering, AnExceptionEndsItsBlockAndLeavesTheLockFree)
{
    probe->midBlock = [] { throw std::runtime_error ("in the middle of a block"); };
    process->TestAndClearMetersReady();
    ports->render (64);
    EXPECT_FALSE (process->TestAndClearMetersReady());
    expectOutput (StereoPorts::inputLevel, 64);

    std::thread (
        [this]
        {
            EXPECT_TRUE (probe->getCallbackLock().tryEnter());
            probe->getCallbackLock().exit();
        })
        .join();

    probe->midBlock = [] {};
    ports->render (64);
    EXPECT_TRUE (process->TestAndClearMetersReady());
    expectOutput (StereoPorts::inputLevel + 1.0f, 64);
}

TEST_F (JucePlugInRendering, EventsOfOneBlockDoNotReachTheNext)
{
    probe->leavesAnEvent = true;

    for (int block = 0; block < 3; ++block)
        ports->render (64);

    EXPECT_EQ (probe->numEventsFound, 0);
}

TEST_F (JucePlugInRendering, MoreInputsThanOutputsReachTheProcessor)
{
    auto wide = std::make_unique<ProbeProcessor>();
    auto* const wideProbe = wide.get();
    JucePlugInProcess wideProcess (std::move (wide));
    wideProcess.SetProcessType (&type());
    wideProcess.Initialize();
    wideProbe->setPlayConfigDetails (2, 1, 44100.0, 512);

    std::array inputs { ports->channels[0].data(), ports->channels[1].data() };
    std::array outputs { ports->channels[2].data() };
    wideProcess.RenderAudio (inputs.data(), outputs.data(), 64);
    EXPECT_EQ (wideProbe->numChannels, 2);
    EXPECT_EQ (ports->channels[2][0], StereoPorts::inputLevel + 1.0f);
    EXPECT_EQ (ports->channels[1][0], StereoPorts::inputLevel + 1.0f) << "in place";
    wideProcess.Free();
}

TEST_F (JucePlugInRendering, TheWorkerNeitherAllocatesNorTakesALockButTheCallbackLock)
{
    if (! AllocationCounter::isAvailable())
        GTEST_SKIP() << "a sanitizer stands in for the functions that would be counted";

    const auto counted = [] (auto&& work)
    {
        const AllocationCounter counter;
        work();
        return std::pair { counter.heapCalls(), counter.locks() };
    };

    void* volatile canary = nullptr;
    EXPECT_EQ (counted (
                   [&]
                   {
                       canary = std::malloc (16);
                       std::free (canary);
                       const juce::ScopedLock lock (probe->getCallbackLock());
                   }),
               std::pair (2, 1))
        << "the counter is blind";

    auto& effect = instantiate();
    StereoPorts effectPorts (engine);
    constexpr std::pair onlyTheCallbackLock { 0, 1 };

    for (int round = 0; round < 50; ++round)
    {
        for (const int size : { 0, 1, 32, 512 })
            ASSERT_EQ (counted ([&] { effectPorts.render (size); }), onlyTheCallbackLock)
                << round << " " << size;

        effect.UpdateControlValue (round % 19 + 1, round * 40000000);
        effect.getFilter().suspendProcessing (round % 7 == 6);
    }

    probe->midBlock = [this] { process->getPosition(); };
    probe->sizes.reserve (64);
    EXPECT_EQ (counted ([&] { ports->render (512); }), onlyTheCallbackLock) << "with a look at the transport";
}
