// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Ports, connection formats and block lengths of a native process.

#include "host/CEffectTypeRTAS.h"
#include "host/FakeFramework.h"
#include "host/FourCC.h"
#include "host/Gestalts.h"
#include "host/RenderingProcess.h"
#include "host/UDigiLibAccess.h"
#include "support/NamedRows.h"

#include <gtest/gtest.h>

#include <cstring>
#include <limits>

namespace
{
constexpr std::int32_t lastPort = 48;

DAEConnection* const connection = reinterpret_cast<DAEConnection*> (0x100);
DAEConnection* const otherConnection = reinterpret_cast<DAEConnection*> (0x200);

class CEffectProcessRTASTest : public testing::Test
{
protected:
    CEffectProcessRTASTest()
        : type (fourCC ("type"), fourCC ("prod"), 0)
    {
        UDigiLibAccess::Initialize();
        type.DefineStemFormats (1, 1, 0);
        process.SetProcessType (&type);
    }

    ~CEffectProcessRTASTest() override { process.Free(); }

    FakeFramework framework;
    CEffectTypeRTAS type;
    RenderingProcess process;
};

/** The four operations of one direction. */
struct Direction
{
    const char* name;
    std::int32_t (CProcessOperations::*connect) (std::int32_t, DAEConnection*);
    std::int32_t (CProcessOperations::*disconnect) (std::int32_t);
    std::int32_t (CProcessOperations::*isConnected) (std::int32_t, unsigned char*);
    std::int32_t alreadyConnected;
};

class Ports : public CEffectProcessRTASTest, public testing::WithParamInterface<Direction>
{
protected:
    std::int32_t connect (std::int32_t port, DAEConnection* to)
    {
        return (process.*GetParam().connect) (port, to);
    }
    std::int32_t disconnect (std::int32_t port) { return (process.*GetParam().disconnect) (port); }

    /** The result, negative, or whether it is connected. */
    std::int32_t isConnected (std::int32_t port)
    {
        unsigned char answer = 77;
        const auto result = (process.*GetParam().isConnected) (port, &answer);
        return result != ficSuccess ? result : answer;
    }
};

using Operations = CProcessOperations;

constexpr Direction directions[] = {
    { "Inputs",
      &Operations::ConnectInput,
      &Operations::DisconnectInput,
      &Operations::IsInputPortConnected,
      -7100 },
    { "Outputs",
      &Operations::ConnectOutput,
      &Operations::DisconnectOutput,
      &Operations::IsOutputPortConnected,
      -7101 },
};

INSTANTIATE_ROWS (Ports, directions);
} // namespace

TEST_P (Ports, ConnectAndDisconnectWithTheirCodes)
{
    process.Initialize();

    EXPECT_EQ (isConnected (1), 0);
    EXPECT_EQ (disconnect (1), -7107);
    EXPECT_EQ (connect (1, connection), 0);
    EXPECT_EQ (isConnected (1), 1);
    EXPECT_EQ (isConnected (2), 0);
    EXPECT_EQ (connect (1, otherConnection), GetParam().alreadyConnected);
    EXPECT_EQ (connect (1, connection), GetParam().alreadyConnected);
    EXPECT_EQ (connect (1, nullptr), 0);
    EXPECT_EQ (isConnected (1), 0);
    EXPECT_EQ (disconnect (1), -7107);
    EXPECT_EQ (connect (lastPort, connection), 0);
    EXPECT_EQ (disconnect (lastPort), 0);
    EXPECT_EQ (isConnected (lastPort), 0);
    EXPECT_EQ ((process.*GetParam().isConnected) (1, nullptr), 0);
}

TEST_P (Ports, OutOfRangeIsRefused)
{
    constexpr auto lowest = std::numeric_limits<std::int32_t>::min();
    constexpr auto highest = std::numeric_limits<std::int32_t>::max();
    EXPECT_EQ (connect (1, connection), -7106) << "before the ports are made";
    process.Initialize();

    for (const auto port : { lowest, -1, 0, lastPort + 1, highest })
    {
        EXPECT_EQ (connect (port, connection), -7106) << port;
        EXPECT_EQ (connect (port, nullptr), -7106) << port;
        EXPECT_EQ (disconnect (port), -7106) << port;
        EXPECT_EQ (isConnected (port), -7106) << port;
    }

    process.Free();
    EXPECT_EQ (connect (1, connection), -7106) << "after the ports are gone";
}

TEST_P (Ports, AuxiliaryOnesTakeAnyConnection)
{
    process.numAuxStems = 2;
    process.Initialize();

    for (const std::int32_t port : { 3, 6 })
    {
        EXPECT_EQ (connect (port, connection), 0);
        EXPECT_EQ (connect (port, otherConnection), 0) << port;
    }

    for (const std::int32_t port : { 2, 7 })
    {
        EXPECT_EQ (connect (port, connection), 0);
        EXPECT_EQ (connect (port, otherConnection), GetParam().alreadyConnected) << port;
    }
}

TEST_P (Ports, TheSideChainIsToldFirst)
{
    type.AddGestalt (Gestalts::sideChainPort);
    process.Initialize();

    EXPECT_EQ (connect (2, connection), 0);
    EXPECT_EQ (process.numSidechainConnections, 0);
    EXPECT_EQ (connect (3, connection), 0);
    EXPECT_EQ (process.numSidechainConnections, 1);
    EXPECT_EQ (disconnect (3), 0);
    EXPECT_EQ (process.numSidechainConnections, 0);
    EXPECT_EQ (disconnect (2), 0);
    EXPECT_EQ (process.numSidechainConnections, 0);
}

TEST_F (CEffectProcessRTASTest, OutputsCanConnectWhileTheyAreFree)
{
    process.numAuxStems = 1;
    process.Initialize();
    process.ConnectOutput (2, connection);
    process.ConnectOutput (3, connection);

    for (const auto& [port, expected] :
         { std::pair { 1, 1 }, { 2, 0 }, { 3, 1 }, { 0, 0 }, { lastPort, 1 }, { lastPort + 1, 0 } })
    {
        unsigned char answer = 77;
        EXPECT_EQ (process.CanOutputPortConnect (port, &answer), 0);
        EXPECT_EQ (answer, expected) << port;
    }
}

TEST_F (CEffectProcessRTASTest, TheNumberOfPortsIsFixedOnceTheyAreMade)
{
    process.SetMaxRTASConnections (2);
    process.Initialize();
    process.SetMaxRTASConnections (4);
    EXPECT_EQ (process.ConnectInput (2, connection), 0);
    EXPECT_EQ (process.ConnectInput (3, connection), -7106);

    RenderingProcess withoutPorts;
    withoutPorts.SetProcessType (&type);
    withoutPorts.SetMaxRTASConnections (-5);
    withoutPorts.Initialize();
    EXPECT_EQ (withoutPorts.ConnectInput (1, connection), -7106);
    withoutPorts.Free();
}

TEST_F (CEffectProcessRTASTest, ConnectionFormats)
{
    SFicConnectionFormat format { 99, 0, 0, 0, 0.0f };
    EXPECT_EQ (process.GetConnectionFormat (1, 1, &format), 0);
    EXPECT_EQ (format.unused, 99);
    EXPECT_EQ (format.first, 1);
    EXPECT_EQ (format.second, 2);
    EXPECT_EQ (format.third, 1);
    EXPECT_EQ (format.sampleRate, 44100.0f);
    EXPECT_EQ (process.SetConnectionFormat (1, 1, &format), 0);

    auto changed = format;
    changed.sampleRate = 96000.0f;
    EXPECT_EQ (process.SetConnectionFormat (1, 1, &changed), 0);
    changed.sampleRate = 0.0f;
    EXPECT_EQ (process.SetConnectionFormat (1, 1, &changed), -7104);

    for (const auto field :
         { &SFicConnectionFormat::first, &SFicConnectionFormat::second, &SFicConnectionFormat::third })
    {
        changed = format;
        changed.*field = 3;
        EXPECT_EQ (process.SetConnectionFormat (1, 1, &changed), -7104);
    }

    EXPECT_EQ (process.GetConnectionFormat (1, 1, nullptr), 0);
    EXPECT_EQ (process.SetConnectionFormat (1, 1, nullptr), -7104);
}

TEST_F (CEffectProcessRTASTest, LongestBlock)
{
    struct Case
    {
        std::int32_t answer, result, quantum, expected;
    };

    constexpr Case rows[] = { { 1, 0, 512, 512 }, { 1, 0, 1, 1 },    { 1, 0, 0, 32 },
                              { 1, 0, -7, 32 },   { 0, 0, 512, 32 }, { 1, -1, 512, 32 } };

    for (const auto& [answer, result, quantum, expected] : rows)
    {
        framework.gestaltAnswer = answer;
        framework.gestaltResult = result;
        framework.maximumQuantum = quantum;
        EXPECT_EQ (CEffectProcessRTAS::GetMaximumRTASQuantum(), expected)
            << answer << " " << result << " " << quantum;
    }

    UDigiLibAccess::Terminate();
    EXPECT_EQ (CEffectProcessRTAS::GetMaximumRTASQuantum(), 32) << "without a framework";
}

TEST_F (CEffectProcessRTASTest, LeavesTheNameOfARegionAsItIs)
{
    unsigned char name[] { 3, 'a', 'b', 'c' };
    EXPECT_EQ (process.GetPlugInString (5, name), 0);
    EXPECT_EQ (std::string (name, name + 4), "\3abc");
}

TEST_F (CEffectProcessRTASTest, WithoutAMasterBypassNothingBypasses)
{
    process.Initialize();

    for (const std::int32_t control : { 0, 1, -1 })
    {
        EXPECT_EQ (process.UpdateControlValue (control, std::numeric_limits<std::int32_t>::max()), 0);
        EXPECT_FALSE (process.IsBypassed()) << control;
    }
}
