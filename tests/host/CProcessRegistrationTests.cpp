// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// What a process registers with the token service and takes back, also where a call fails halfway.

#include "host/TokenFixture.h"
#include "support/NamedRows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <host/CDAEError.h>
#include <host/FourCC.h>
#include <host/HostGlobals.h>
#include <host/UDigiLibAccess.h>

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace
{
using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::int32_t value = 0x12345678;

TEST (CProcessRegistration, GivesEachControlANameAndThreeListeners)
{
    TokenFixture f;
    f.process.Initialize();

    EXPECT_THAT (f.host.calls,
                 ElementsAre ("reserve 0:/Inst3",
                              "reserve 1:Width",
                              "reserve 1:Pan",
                              "find 0:",
                              "listen 2 CURV",
                              "listen 2 GETV",
                              "listen 2 SETV",
                              "listen 3 CURV",
                              "listen 3 GETV",
                              "listen 3 SETV"));

    std::int32_t id = 0;
    EXPECT_EQ (f.process.GetProcessNameID (&id), 0);
    EXPECT_EQ (id, TokenFixture::rootID);
    EXPECT_EQ (f.process.GetControlNameID (1, &id), 0);
    EXPECT_EQ (id, TokenFixture::widthID);

    for (const auto& [object, listener] : f.host.listeners)
    {
        EXPECT_EQ (listener.goal, 0);
        EXPECT_EQ (listener.isCritical, 0);
        EXPECT_EQ (listener.latestOnly, 1);
        EXPECT_EQ (listener.task, gOurTokenTask);
        EXPECT_EQ (listener.protocol, fourCC ("Ctrl"));
        EXPECT_EQ (listener.manufacturer, fourCC ("DGDN"));
        EXPECT_EQ (listener.tokenSubType,
                   listener.tokenType == fourCC ("SETV") ? fourCC ("CHIL") : fourCC ("CAVL"));
        EXPECT_NE (listener.taskValue, 0u);
    }

    EXPECT_NE (f.host.taskValue ("Width", FIC_TOKEN_GET), f.host.taskValue ("Pan", FIC_TOKEN_GET));
}

TEST (CProcessRegistration, IsTakenBackListenersFirst)
{
    TokenFixture f;
    f.initialize();
    EXPECT_EQ (f.process.Free(), 0);

    std::vector<std::string> expected (6, "release");
    expected.insert (expected.end(), { "release name Width", "release name Pan", "release name /Inst3" });
    EXPECT_EQ (f.host.calls, expected);

    f.host.calls.clear();
    EXPECT_EQ (f.process.Free(), 0);
    EXPECT_THAT (f.host.calls, IsEmpty());
}

TEST (CProcessRegistration, DoesNotHappenWithoutATokenTask)
{
    TokenFixture f;
    gOurTokenTask = nullptr;
    f.initialize();
    EXPECT_EQ (f.process.SetControlValue (1, value), 0);
    EXPECT_EQ (f.process.valueOf (1), value);
    EXPECT_THAT (f.process.calls, ElementsAre ("update 11=" + std::to_string (value)));
    EXPECT_EQ (f.process.TouchControl (1), 0);
    EXPECT_EQ (f.process.DoIdle(), 0);
    EXPECT_EQ (f.process.Free(), 0);
    EXPECT_THAT (f.host.calls, ElementsAre ("idle"));
    EXPECT_THAT (f.host.dispatched, IsEmpty());
}

TEST (CProcessRegistration, OfANewRootTakesTheOldOneBackFirst)
{
    TokenFixture f;
    f.initialize();
    EXPECT_EQ (f.process.SetRootName (9), 0);
    EXPECT_THAT (
        f.host.calls,
        ElementsAre ("release name Width", "release name Pan", "release name /Inst3", "reserve 9:/Inst3"));
    f.process.Free();
    EXPECT_THAT (f.host.names, IsEmpty());
}

/** Where registering can go wrong: root, two controls, group, six listeners. */
using CProcessFailure = testing::TestWithParam<int>;

constexpr int numRegistrations = 10;
constexpr int firstListener = 5;

TEST_P (CProcessFailure, LeavesNothingRegistered)
{
    TokenFixture f;
    f.host.failingRegistration = GetParam();

    try
    {
        f.process.Initialize();
        ADD_FAILURE() << "went well";
    }
    catch (const CDAEError& error)
    {
        EXPECT_EQ (error.GetErrorCode(), GetParam() < firstListener ? FakeTokenHost::failure : -7053);
    }

    EXPECT_THAT (f.host.names, IsEmpty());
    EXPECT_THAT (f.host.listeners, IsEmpty());

    f.host.calls.clear();
    EXPECT_EQ (f.process.Free(), 0);
    EXPECT_THAT (f.host.calls, IsEmpty());
}

INSTANTIATE_TEST_SUITE_P (AtEachCall, CProcessFailure, testing::Range (1, numRegistrations + 1));

struct MissingRow
{
    const char* name;
    const char* function;
    std::int32_t code;
};

using CProcessMissingFunction = testing::TestWithParam<MissingRow>;

TEST_P (CProcessMissingFunction, FailsWithItsCode)
{
    TokenFixture f;
    f.host.missingFunction = GetParam().function;
    UDigiLibAccess::Initialize();

    try
    {
        f.process.Initialize();
        ADD_FAILURE() << "went well";
    }
    catch (const CDAEError& error)
    {
        EXPECT_EQ (error.GetErrorCode(), GetParam().code);
    }

    EXPECT_THAT (f.host.names, IsEmpty());
    EXPECT_THAT (f.host.listeners, IsEmpty());
}

constexpr auto missingRows = std::to_array<MissingRow> ({
    { "Reserve", "FicSDSReserveName", -2802 },
    { "GetId", "FicSDSGetNameId", -2802 },
    { "Services", "FicGetServices", -7053 },
});

INSTANTIATE_ROWS (CProcessMissingFunction, missingRows);

TEST (CProcessRegistration, EndsWithTheProcess)
{
    FakeTokenHost host;

    {
        ControlledProcess process;
        process.add (std::make_unique<PlainTestControl> ("Width"));
        process.Initialize();
        EXPECT_EQ (host.listeners.size(), 3u);
    }

    EXPECT_THAT (host.names, IsEmpty());
    EXPECT_THAT (host.listeners, IsEmpty());
}
} // namespace
