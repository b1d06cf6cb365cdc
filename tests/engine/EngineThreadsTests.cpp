// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Rendering while other threads write and read all that they may.

#include "support/Rendering.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <functional>
#include <limits>
#include <thread>

namespace
{
using enum ParameterId;

constexpr double sampleRate = 48000.0;

/** Runs each job again and again on a thread of its own, until the work of the calling thread is done. All
    start together. */
void runBeside (const std::vector<std::function<void()>>& jobs, const std::function<void()>& work)
{
    std::atomic<std::size_t> ready { 0 };
    std::atomic<bool> done { false };
    std::vector<std::jthread> threads;

    for (const auto& job : jobs)
        threads.emplace_back (
            [&]
            {
                ++ready;

                while (! done.load())
                    job();
            });

    while (ready.load() < jobs.size())
        std::this_thread::yield();

    work();
    done.store (true);
}
} // namespace

TEST (EngineThreads, RenderWhileOthersWriteAndRead)
{
    WideLoomAudioProcessor processor;
    const auto seed = testSeed();
    constexpr int blocks = 1500;
    std::array<TestRandom, 2> writerRandom { TestRandom (seed + 1), TestRandom (seed + 2) };

    const auto writeAll = [&processor] (TestRandom& random)
    {
        for (int index = 0; index < numParameterSlots; ++index)
            processor.setParameter (index, random.between (0.0f, 1.0f));
    };
    const auto lookLikeAnEditor = [&processor]
    {
        auto& manager = *processor.getParameterManager();

        if (manager.getParameterNeedsToBeUpdatedInEditor())
            for (int index = 0; index < numParameterSlots; ++index)
                processor.getParameterText (index);

        manager.getSampleRateNeedsToBeUpdatedInEditor();
        manager.getPresetNameNeedsToBeUpdatedInEditor();
        manager.getUndoButtonsNeedToBeUpdatedInEditor();
        processor.getLastSampleRateString();

        for (const auto& peaks : { processor.getInputVuMeterVisuals(), processor.getOutputVuMeterVisuals() })
            ASSERT_TRUE (peaks.left >= 0.0f && peaks.left < 100.0f && peaks.right >= 0.0f);
    };

    runBeside ({ [&] { writeAll (writerRandom[0]); }, [&] { writeAll (writerRandom[1]); }, lookLikeAnEditor },
               [&]
               {
                   TestRandom random (seed);
                   constexpr std::array blockSizes { 0, 1, 5, 32, 64, 127, 512 };
                   constexpr std::array sampleRates { 44100.0, 48000.0, 96000.0 };

                   for (int block = 0; block < blocks; ++block)
                   {
                       // Hosts set the rate on the thread that renders, or while nothing renders.
                       if (block % 50 == 0)
                           prepare (processor, random.oneOf (sampleRates));

                       if (block % 7 == 0)
                           writeAll (random);

                       auto signal = constantSignal (random.between (-1.0f, 1.0f),
                                                     random.between (-1.0f, 1.0f),
                                                     random.oneOf (blockSizes));
                       render (processor, signal);

                       for (const auto& channel : { signal.left, signal.right })
                           for (const float sample : channel)
                               ASSERT_TRUE (std::isfinite (sample)) << "block " << block;
                   }
               });
}

TEST (EngineThreads, SafeBassFrequencyStoredLastEndsInForce)
{
    constexpr int rounds = 300;
    constexpr int writesPerRound = 50;
    TestRandom random (testSeed());

    WideLoomAudioProcessor processor;
    prepare (processor, sampleRate);
    set (processor, safeBass, 1.0f);

    for (int round = 0; round < rounds; ++round)
    {
        const auto writeMany = [&processor] (TestRandom own)
        {
            for (int i = 0; i < writesPerRound; ++i)
                set (processor, safeBassFreq, own.between (0.1f, 1.0f));
        };

        {
            std::jthread first (writeMany,
                                TestRandom (static_cast<std::uint32_t> (random.between (0, 1 << 20))));
            std::jthread second (writeMany,
                                 TestRandom (static_cast<std::uint32_t> (random.between (0, 1 << 20))));
            auto block = constantSignal (0.5f, -0.5f, 33);
            render (processor, block);
            set (processor, safeBassFreq, random.between (0.1f, 1.0f));
        }

        // A NaN wipes the filter's history within a few samples. Silence on the side does not: rounding may
        // keep a filter ringing at some 1e-7 for ever.
        auto wiping = constantSignal (0.5f, 0.5f, 8);
        wiping.left.front() = std::numeric_limits<float>::quiet_NaN();
        render (processor, wiping);

        WideLoomAudioProcessor expected;
        prepare (expected, sampleRate);
        set (expected, safeBass, 1.0f);
        set (expected, safeBassFreq, processor.getParameter (indexOf (safeBassFreq)));

        auto actualBlock = constantSignal (0.5f, -0.5f, 100);
        auto expectedBlock = actualBlock;
        render (processor, actualBlock);
        render (expected, expectedBlock);
        ASSERT_EQ (firstDifference (actualBlock, expectedBlock), "") << "round " << round;
    }
}

TEST (EngineThreads, LatestValueArrivesWholeAndInOrder)
{
    struct Group
    {
        std::array<std::int64_t, 6> numbers {};
    };

    constexpr std::int64_t published = 100000;
    LatestValueExchange<Group> exchange;
    std::int64_t latest = 0;

    std::jthread writer (
        [&exchange]
        {
            for (std::int64_t number = 1; number <= published; ++number)
            {
                Group group;
                group.numbers.fill (number);
                exchange.publish (group);
            }
        });

    while (latest < published)
    {
        Group group;

        if (! exchange.fetch (group))
            continue;

        ASSERT_GT (group.numbers.front(), latest);
        latest = group.numbers.front();

        for (const auto number : group.numbers)
            ASSERT_EQ (number, latest);
    }

    Group unchanged;
    EXPECT_FALSE (exchange.fetch (unchanged));
}

TEST (EngineThreads, CoalescedJobRunsOnceAtATimeAndAfterTheLastRequest)
{
    constexpr int requests = 20000;
    CoalescingJob job;
    std::atomic<int> wanted { 0 };
    std::atomic<int> running { 0 };
    int seen = 0; // written by whoever runs the job
    bool overlapped = false;

    const auto requestMany = [&]
    {
        for (int i = 0; i < requests; ++i)
        {
            wanted.fetch_add (1, std::memory_order_relaxed);
            job.request (
                [&]
                {
                    overlapped |= running.fetch_add (1) != 0;
                    seen = wanted.load (std::memory_order_relaxed);
                    running.fetch_sub (1);
                });
        }
    };

    {
        std::jthread first (requestMany), second (requestMany);
        requestMany();
    }

    EXPECT_FALSE (overlapped);
    EXPECT_EQ (seen, 3 * requests);
}
