// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the real-time engine is told of an instance, and what its worker does.

#include "BundleFixture.h"

#include <algorithm>

namespace
{
using testing::ElementsAre;

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

TEST_F (BundleRender, DescribesPortsAndWorker)
{
    start();
    const auto first = insert();
    const auto second = insert();
    const auto& described = *second->getPlugIn();
    EXPECT_EQ (described.id.manufacturerID, manufacturerCode);
    EXPECT_EQ (described.id.productID, productCode);
    EXPECT_EQ (described.id.typeID, typeCode);
    EXPECT_EQ (described.id.processIndex, 2);
    EXPECT_NE (described.id.plugInObject, 0u);
    EXPECT_THAT (described.inputPorts, ElementsAre (1, 2));
    EXPECT_THAT (described.outputPorts, ElementsAre (1, 2));
    EXPECT_THAT (described.workerNames, ElementsAre ("WideLoom"));
    EXPECT_EQ (services.engine.getNumPlugIns(), 2);
}

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
