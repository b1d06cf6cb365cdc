// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// How many samples the worker takes and gives in each block, whatever quantum the host asks for.

#include "BundleFixture.h"

#include <algorithm>

namespace
{
/** How many samples of an output a block has written. They come first. */
int numWritten (const std::vector<float>& output)
{
    const auto end = std::find (output.begin(), output.end(), BlockOfAudio::mark);
    EXPECT_EQ (std::count (end, output.end(), BlockOfAudio::mark), output.end() - end);
    return static_cast<int> (end - output.begin());
}

class BundleRender : public BundleFixture
{
};

class BundleRenderFixed : public BundleFixture
{
protected:
    BundleRenderFixed()
        : BundleFixture ({ .variableQuanta = false })
    {
    }
};

/** Renders blocks of any quantum, and expects each to have the samples that it should. */
void expectSamples (const refhost::HostInstance& instance, std::initializer_list<int> quanta, bool areFixed)
{
    BlockOfAudio audio (2048);

    for (const int quantum : quanta)
    {
        audio.fill (3);
        ASSERT_TRUE (audio.render (instance, quantum));

        for (const auto& output : audio.output)
            EXPECT_EQ (numWritten (output), areFixed ? int { ficFixedQuantum } : quantum) << quantum;
    }
}

TEST_F (BundleRender, FollowsTheQuantumOfEachBlock)
{
    start();
    expectSamples (*insert(), { 1, 7, 31, 32, 33, 1024, 0, 64 }, false);
}

TEST_F (BundleRenderFixed, HasThirtyTwoSamplesInEachBlockWhateverTheGlobalsHold)
{
    start();
    expectSamples (*insert(), { 0, 1, 31, 33, 1024, -5, highest, lowest }, true);
}
} // namespace
