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
        : BundleFixture (
            []
            {
                refhost::HostOffer offer;
                offer.variableQuanta = false;
                return offer;
            }())
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

TEST_F (BundleRender, FollowsTheQuantumOfEachBlock)
{
    start();
    const auto instance = insert();
    BlockOfAudio audio (2048);

    for (const int quantum : { 1, 7, 31, 32, 33, 1024, 0, 64 })
    {
        audio.fill (3);
        ASSERT_TRUE (audio.render (*instance, quantum));
        EXPECT_EQ (numWritten (audio.output[0]), quantum);
        EXPECT_EQ (numWritten (audio.output[1]), quantum);
    }
}

TEST_F (BundleRenderFixed, HasThirtyTwoSamplesInEachBlockWhateverTheGlobalsHold)
{
    start();
    const auto instance = insert();
    BlockOfAudio audio (2048);

    for (const int quantum : { 0, 1, 31, 33, 1024, -5, highest, lowest })
    {
        audio.fill (3);
        ASSERT_TRUE (audio.render (*instance, quantum));
        EXPECT_EQ (numWritten (audio.output[0]), ficFixedQuantum) << quantum;
        EXPECT_EQ (numWritten (audio.output[1]), ficFixedQuantum) << quantum;
    }
}

TEST_F (BundleRender, DoesNotDependOnTheQuantum)
{
    start();
    std::vector<float> expected;

    for (const int quantum : { 640, 64, 1, 5 })
    {
        const auto instance = insert();
        instance->setValue (safeBass, highest);
        instance->setValue (stereoWidth, 1 << 30);
        BlockOfAudio audio (640);

        for (int done = 0; done < 640; done += quantum)
        {
            std::array<float*, 2> in { audio.input[0].data() + done, audio.input[1].data() + done };
            std::array<float*, 2> out { audio.output[0].data() + done, audio.output[1].data() + done };
            ASSERT_TRUE (instance->render (in.data(), out.data(), quantum));
        }

        if (expected.empty())
            expected = audio.output[0];

        EXPECT_EQ (audio.output[0], expected) << quantum;
    }
}

TEST_F (BundleRender, PassesItsInputOnUnderTheMasterBypass)
{
    start();
    const auto instance = insert();
    const auto index = instance->getIndex();
    instance->setValue (swapLR, highest);
    BlockOfAudio audio (64);

    struct Row
    {
        std::int32_t value;
        bool bypasses, tellsBypass;
    };

    for (const auto& row :
         { Row { highest, true, true }, { 1, true, true }, { 0, false, true }, { -1, false, false } })
    {
        audio.fill (4);
        instance->setValue (masterBypass, row.value);
        ASSERT_TRUE (audio.render (*instance, 64));
        EXPECT_EQ (audio.output[0] == audio.input[0], row.bypasses) << row.value;
        EXPECT_EQ (audio.output[1] == audio.input[1], row.bypasses) << row.value;
        unsigned char on = 9;
        EXPECT_EQ (pi.GetBypass (typeCode, index, 1, &on), ficSuccess);
        EXPECT_EQ (on != 0, row.tellsBypass) << row.value;
    }

    EXPECT_EQ (pi.SetBypass (typeCode, index, 1, 1), ficSuccess);
    EXPECT_EQ (instance->getValue (masterBypass), highest);
    EXPECT_EQ (pi.SetBypass (typeCode, index, 1, 0), ficSuccess);
    EXPECT_EQ (instance->getValue (masterBypass), lowest);
}

TEST_F (BundleRender, WorksInPlace)
{
    start();
    const auto instance = insert();
    instance->setValue (swapLR, highest);
    BlockOfAudio apart (64), inPlace (64);
    std::array<float*, 2> channels { inPlace.input[0].data(), inPlace.input[1].data() };
    ASSERT_TRUE (apart.render (*instance, 64));
    ASSERT_TRUE (instance->render (channels.data(), channels.data(), 64));
    EXPECT_EQ (inPlace.input, apart.output);
}

TEST_F (BundleRender, ConnectsEachPortOnce)
{
    start();
    const auto instance = insert();
    const auto index = instance->getIndex();
    auto* const connection = reinterpret_cast<DAEConnection*> (&services);
    constexpr std::int32_t lastPort = 48;

    struct Side
    {
        PI_ConnectInputProc connect;
        PI_DisconnectInputProc disconnect;
        PI_IsInputPortConnectedProc isConnected;
        std::int32_t connectedAlready;
    };

    for (const auto& side :
         { Side { pi.ConnectInput, pi.DisconnectInput, pi.IsInputPortConnected, ficInputAlreadyConnected },
           Side {
               pi.ConnectOutput, pi.DisconnectOutput, pi.IsOutputPortConnected, ficOutputAlreadyConnected } })
    {
        for (const auto port : { lowest, -1, 0, lastPort + 1, highest })
        {
            unsigned char is = 0;
            EXPECT_EQ (side.connect (typeCode, index, port, connection), ficPortOutOfRange) << port;
            EXPECT_EQ (side.disconnect (typeCode, index, port), ficPortOutOfRange) << port;
            EXPECT_EQ (side.isConnected (typeCode, index, port, &is), ficPortOutOfRange) << port;
        }

        for (const auto port : { 1, lastPort })
        {
            unsigned char is = 0;
            EXPECT_EQ (side.disconnect (typeCode, index, port), ficPortNotConnected);
            EXPECT_EQ (side.connect (typeCode, index, port, connection), ficSuccess);
            EXPECT_EQ (side.isConnected (typeCode, index, port, &is), ficSuccess);
            EXPECT_EQ (is, 1);
            EXPECT_EQ (side.connect (typeCode, index, port, connection), side.connectedAlready);
            EXPECT_EQ (side.connect (typeCode, index, port, nullptr), ficSuccess);
            EXPECT_EQ (side.disconnect (typeCode, index, port), ficPortNotConnected);
        }
    }
}

TEST_F (BundleRender, AcceptsTheFormatThatItGives)
{
    start();
    const auto instance = insert();
    const auto index = instance->getIndex();
    SFicConnectionFormat format {};
    EXPECT_EQ (pi.GetConnectionFormat (typeCode, index, 1, 1, &format), ficSuccess);
    EXPECT_EQ (format.first, 1);
    EXPECT_EQ (format.second, 2);
    EXPECT_EQ (format.third, 1);
    EXPECT_EQ (format.sampleRate, 44100.0f);
    EXPECT_EQ (pi.SetConnectionFormat (typeCode, index, 1, 1, &format), ficSuccess);

    for (int wrong = 0; wrong < 4; ++wrong)
    {
        auto other = format;
        other.first = wrong == 0 ? 0 : 1;
        other.second = wrong == 1 ? 1 : 2;
        other.third = wrong == 2 ? 2 : 1;
        other.sampleRate = wrong == 3 ? 0.0f : 48000.0f;
        EXPECT_EQ (pi.SetConnectionFormat (typeCode, index, 1, 1, &other), ficConnectionFormatRefused);
    }
}
} // namespace
