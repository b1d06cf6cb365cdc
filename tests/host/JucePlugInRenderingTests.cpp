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

TEST_F (JucePlugInRendering, WithoutVariableQuantaABlockHas32Samples)
{
    framework.gestaltAnswer = 0;
    auto owned = std::make_unique<ProbeProcessor>();
    auto* const fixedProbe = owned.get();
    const auto fixed = instantiateWith (std::move (owned));
    EXPECT_EQ (fixedProbe->preparedSize, 32);
    StereoPorts fixedPorts (engine);

    for (const int quantum : { 512, 0, -1, 32 })
        fixedPorts.render (quantum);

    EXPECT_THAT (fixedProbe->sizes, testing::Each (32));
    EXPECT_EQ (fixedPorts.output (0, 32), StereoPorts::outputBefore);
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

TEST_F (JucePlugInRendering, TheBridgeLeavesTheEffectsSamplesAsTheyAre)
{
    constexpr int size = 700;
    auto& effect = instantiate();
    StereoPorts effectPorts (engine);
    WideLoomAudioProcessor direct;
    direct.setPlayConfigDetails (2, 2, 44100.0, size);
    juce::AudioBuffer<float> expected (2, size);
    juce::MidiBuffer midi;
    juce::Random random (1);

    for (const auto& [id, value] : { std::pair { ParameterId::stereoWidth, 0.83f },
                                     { ParameterId::pan, 0.3f },
                                     { ParameterId::safeBass, 1.0f },
                                     { ParameterId::panLaw, 0.2f } })
    {
        const auto onScale = longFromParameter (value);
        effect.UpdateControlValue (indexOf (id) + 2, onScale);
        direct.setParameter (indexOf (id), parameterFromLong (onScale));
    }

    for (std::size_t channel = 0; channel < 2; ++channel)
        for (std::size_t i = 0; i < size; ++i)
        {
            effectPorts.channels[channel][i] = random.nextFloat() - 0.5f;
            expected.setSample (
                static_cast<int> (channel), static_cast<int> (i), effectPorts.channels[channel][i]);
        }

    effectPorts.render (size);
    direct.processBlock (expected, midi);

    for (std::size_t channel = 0; channel < 2; ++channel)
        for (std::size_t i = 0; i < size; ++i)
            ASSERT_EQ (effectPorts.output (channel, i),
                       expected.getSample (static_cast<int> (channel), static_cast<int> (i)))
                << channel << " " << i;
}

using JucePlugInThreads = JucePlugInRendering;

TEST_F (JucePlugInThreads, BlocksAreRenderedWhileTheHostMovesControlsAndSaves)
{
    auto& effect = instantiate();
    StereoPorts effectPorts (engine);
    std::atomic<bool> shouldEnd { false };
    std::atomic<int> numBlocks { 0 };

    std::thread realTime (
        [&]
        {
            while (! shouldEnd)
            {
                effectPorts.render (64);
                effect.getPosition();
                ++numBlocks;
            }
        });

    constexpr int leastBlocks = 200;
    std::int32_t value = 0;

    for (int round = 0; round < 100 || numBlocks < leastBlocks; ++round)
    {
        effect.UpdateControlValue (round % 51 + 1, value += 123457);
        const SFicTimeCodeInfo timeCode { static_cast<signed char> (round % 9), round };
        effect.SetTimeCodeInfo (&timeCode);
        effect.TestAndClearMetersReady();

        if (round % 10 == 0)
        {
            std::int32_t size = 0;
            effect.GetChunkSize (FIC_CHUNK_JUCE, &size);
            std::vector<unsigned char> bytes (static_cast<std::size_t> (size));
            effect.GetChunk (FIC_CHUNK_JUCE, reinterpret_cast<SFicPlugInChunk*> (bytes.data()));
            effect.SetChunk (FIC_CHUNK_JUCE, reinterpret_cast<SFicPlugInChunk*> (bytes.data()));
        }
    }

    effect.ReleaseMIDI();
    shouldEnd = true;
    realTime.join();
    EXPECT_GE (numBlocks, leastBlocks);
}
