// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Rendering must not touch the heap or a lock; what counts that must itself catch both.

#include "support/AllocationCounter.h"
#include "support/Rendering.h"

#include <gtest/gtest.h>

#include <condition_variable>
#include <cstdlib>
#include <mutex>
#include <shared_mutex>

namespace
{
using enum ParameterId;

#define SKIP_WITHOUT_COUNTER()                                                                               \
    if (! AllocationCounter::isAvailable())                                                                  \
    GTEST_SKIP() << "a sanitizer stands in for the functions that would be counted"

/** Keeps the compiler from leaving out what has no effect. */
void* volatile canary = nullptr;

/** What `work` did to heap and locks. */
template <typename Work>
std::pair<int, int> counted (Work&& work)
{
    const AllocationCounter counter;
    work();
    return { counter.heapCalls(), counter.locks() };
}
} // namespace

TEST (RealTime, CanariesAreCaught)
{
    SKIP_WITHOUT_COUNTER();
    using Counts = std::pair<int, int>;
    std::mutex mutex;
    std::shared_mutex sharedMutex;
    std::condition_variable condition;
    juce::CriticalSection criticalSection;

    EXPECT_EQ (counted ([] {}), (Counts { 0, 0 }));
    EXPECT_EQ (counted (
                   []
                   {
                       canary = ::operator new (16);
                       ::operator delete (canary);
                   }),
               (Counts { 2, 0 }));
    EXPECT_EQ (counted (
                   []
                   {
                       canary = std::malloc (16);
                       canary = std::realloc (canary, 4096);
                       std::free (canary);
                       canary = std::calloc (2, 16);
                       std::free (canary);
                       canary = std::aligned_alloc (64, 64);
                       std::free (canary);
                   }),
               (Counts { 7, 0 }));
    EXPECT_GT (counted ([] { const juce::String text (0.25f, 2); }).first, 0);
    EXPECT_EQ (counted ([&] { const std::scoped_lock lock (mutex); }), (Counts { 0, 1 }));
    EXPECT_EQ (counted ([&] { const std::shared_lock lock (sharedMutex); }), (Counts { 0, 1 }));
    EXPECT_EQ (counted ([&] { const std::unique_lock lock (sharedMutex); }), (Counts { 0, 1 }));
    EXPECT_EQ (counted ([&] { const juce::ScopedLock lock (criticalSection); }), (Counts { 0, 1 }));
    EXPECT_EQ (counted ([&] { condition.notify_all(); }), (Counts { 0, 1 }));
}

TEST (RealTime, RenderingNeitherAllocatesNorLocks)
{
    SKIP_WITHOUT_COUNTER();
    TestRandom random (testSeed());
    TestSignals signals (random);
    constexpr std::array blockSizes { 0, 1, 31, 64, 512, 4096 };
    constexpr std::array sampleRates { 44100.0, 96000.0 };
    constexpr std::array values { 0.0f, 0.1f, 0.2f, 1.0f, 0.3f };

    for (int round = 0; round < 20; ++round)
    {
        WideLoomAudioProcessor processor;

        for (int block = 0; block < 50; ++block)
        {
            if (block % 10 == 0)
                prepare (processor, sampleRates[static_cast<std::size_t> (block / 10 % 2)], 2);

            auto signal = signals.piece (random.oneOf (blockSizes));
            const bool changes = block % 2 == 1;

            const auto [heapCalls, locks] = counted (
                [&]
                {
                    for (int index = 0; changes && index < numParameterSlots; ++index)
                        processor.setParameter (index, random.oneOf (values));

                    if (changes && block % 4 == 1)
                    {
                        set (processor, bypass, 0.0f);
                        set (processor, muteAll, 0.0f);
                        set (processor, muteSide, 0.0f);
                    }

                    render (processor, signal);
                });

            ASSERT_EQ (heapCalls, 0) << "round " << round << " block " << block;
            ASSERT_EQ (locks, 0) << "round " << round << " block " << block;
        }
    }
}

TEST (RealTime, ClearingFurtherOutputsNeitherAllocatesNorLocks)
{
    SKIP_WITHOUT_COUNTER();
    WideLoomAudioProcessor processor;
    prepare (processor, 48000.0, 8);
    juce::AudioBuffer<float> buffer (8, 512);
    buffer.clear();
    buffer.setSample (0, 0, 1.0f);
    juce::MidiBuffer midi;
    EXPECT_EQ (counted ([&] { processor.processBlock (buffer, midi); }), (std::pair { 0, 0 }));
}
