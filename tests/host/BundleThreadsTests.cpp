// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The worker on the host's real-time threads while its main thread does everything else.

#include "BundleFixture.h"
#include "refhost/EngineThread.h"

namespace
{
using refhost::EngineThread;

class BundleThreads : public BundleFixture
{
protected:
    void SetUp() override { start(); }
};

TEST_F (BundleThreads, RenderWhileTheMainThreadMovesControlsAndChunks)
{
    const auto instance = insert();
    const auto state = stateOf (*instance);
    BlockOfAudio audio (64);
    const EngineThread engine ([&] { audio.render (*instance, 64); });
    TestRandom random (testSeed());
    constexpr int numRounds = 300;

    for (int round = 0; round < numRounds; ++round)
    {
        pi.SetControlValue (typeCode,
                            instance->getIndex(),
                            random.between (1, numControls),
                            random.between (lowest, highest));
        instance->idle();
        services.transport.position.playingSample += 64;
        const SFicTimeCodeInfo timeCode { static_cast<signed char> (round % 9), round };
        EXPECT_EQ (pi.SetTimeCodeInfo (&timeCode), ficSuccess);

        if (round % 10 == 0)
        {
            const auto now = stateOf (*instance);
            EXPECT_EQ (instance->setChunk (FIC_CHUNK_JUCE, state), ficSuccess);
            EXPECT_EQ (instance->setChunk (FIC_CHUNK_JUCE, now), ficSuccess);
        }

        if (round % 50 == 0)
            engine.waitForBlocks (2);
    }

    EXPECT_EQ (pi.ReleaseMIDI (typeCode, instance->getIndex()), ficSuccess);
    engine.waitForBlocks (2);
}

TEST_F (BundleThreads, RenderWhileOtherInstancesComeAndGo)
{
    const auto first = insert();
    const auto second = insert();
    BlockOfAudio audioOfFirst (32), audioOfSecond (32);
    const EngineThread one ([&] { audioOfFirst.render (*first, 32); });
    const EngineThread other ([&] { audioOfSecond.render (*second, 32); });
    constexpr int numRounds = 20;

    for (int round = 0; round < numRounds; ++round)
    {
        const auto passing = insert();
        ASSERT_NE (passing, nullptr);
        BlockOfAudio audio (32);
        EXPECT_TRUE (audio.render (*passing, 32));
    }

    one.waitForBlocks (1);
    other.waitForBlocks (1);
}

TEST_F (BundleThreads, EndWithTheInstanceThatTheyRender)
{
    auto instance = insert();
    const auto plugIn = instance->getPlugIn();
    std::atomic<bool> hasEnded { false };
    BlockOfAudio audio (32);
    std::array<float*, 2> in { audio.input[0].data(), audio.input[1].data() };
    std::array<float*, 2> out { audio.output[0].data(), audio.output[1].data() };
    const EngineThread engine (
        [&]
        {
            if (! services.engine.render (*plugIn, in.data(), out.data(), 32))
                hasEnded = true;
        });
    engine.waitForBlocks (3);
    instance.reset();
    engine.waitForBlocks (2);
    EXPECT_TRUE (hasEnded);
}
} // namespace
