// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// A process and the token service that it is registered with, for tests.

#pragma once

#include "host/ControlledProcess.h"
#include "host/FakeTokenHost.h"

#include <host/HostGlobals.h>

#include <cstdint>
#include <memory>

/** A process with two controls, "Width" and "Pan", and its host. */
class TokenFixture
{
public:
    static constexpr std::uint32_t widthViewID = 11;

    // IDs as the fake host gives them: the root's, then those of the controls.
    static constexpr std::int32_t rootID = 1, widthID = 2;

    TokenFixture()
    {
        gInstanciationNum = 3;
        process.add (std::make_unique<PlainTestControl> ("Width", widthViewID));
        process.add (std::make_unique<PlainTestControl> ("Pan", 22));
    }

    ~TokenFixture()
    {
        process.Free(); // the view notes its end in the process
        gInstanciationNum = 0;
    }

    TokenFixture (const TokenFixture&) = delete;
    TokenFixture& operator= (const TokenFixture&) = delete;

    void initialize()
    {
        process.nextView = std::make_unique<TestView> (process.calls);
        process.Initialize();
        process.calls.clear();
        host.calls.clear();
    }

    /** Has the host send a token to a listener of "Width". */
    void send (const SFicSDSToken& token, std::uint32_t listenerType = FIC_TOKEN_CURRENT)
    {
        host.waiting.emplace_back (token, host.taskValue ("Width", listenerType));
    }

    FakeTokenHost host;
    ControlledProcess process;
};
