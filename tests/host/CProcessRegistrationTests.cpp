// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// What a process registers with the token service and takes back, also where a call fails halfway.

#include "host/TokenFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <host/CDAEError.h>
#include <host/FourCC.h>
#include <host/HostGlobals.h>
#include <host/UDigiLibAccess.h>

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
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

    auto unfreed = std::make_unique<ControlledProcess>();
    unfreed->add (std::make_unique<PlainTestControl> ("Width"));
    unfreed->Initialize();
    EXPECT_EQ (f.host.listeners.size(), 3u);
    unfreed.reset();
    EXPECT_THAT (f.host.names, IsEmpty());
    EXPECT_THAT (f.host.listeners, IsEmpty());
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

/** A start that fails leaves nothing registered, and nothing to take back. */
void expectFailure (TokenFixture& f, std::int32_t code)
{
    try
    {
        f.process.Initialize();
        ADD_FAILURE() << "went well";
    }
    catch (const CDAEError& error)
    {
        EXPECT_EQ (error.GetErrorCode(), code);
    }

    EXPECT_THAT (f.host.names, IsEmpty());
    EXPECT_THAT (f.host.listeners, IsEmpty());
    f.host.calls.clear();
    EXPECT_EQ (f.process.Free(), 0);
    EXPECT_THAT (f.host.calls, IsEmpty());
}

TEST (CProcessRegistration, LeavesNothingWhereverItFails)
{
    // The root, two controls and the group have names; then come six listeners.
    constexpr int numNames = 4, numRegistrations = 10;

    for (int call = 1; call <= numRegistrations; ++call)
    {
        SCOPED_TRACE (call);
        TokenFixture f;
        f.host.failingRegistration = call;
        expectFailure (f, call <= numNames ? FakeTokenHost::failure : -7053);
    }
}

TEST (CProcessRegistration, FailsWithTheCodeOfAMissingFunction)
{
    for (const auto& [function, code] : { std::pair ("FicSDSReserveName", -2802),
                                          { "FicSDSGetNameId", -2802 },
                                          { "FicGetServices", -7053 } })
    {
        TokenFixture f;
        f.host.missingFunction = function;
        UDigiLibAccess::Initialize();
        expectFailure (f, code);
    }
}
} // namespace
