// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Runs the tests that need an X server, on one of their own: with a window manager, or without with --bare.

#include "host/platform/WindowSystem.h"
#include "support/XServer.h"

#include <gtest/gtest.h>
#include <juce_events/juce_events.h>

#include <iostream>
#include <string_view>

namespace
{
/** What CTest takes for "skipped". */
constexpr int skipped = 77;
} // namespace

int main (int argc, char** argv)
{
    testing::InitGoogleTest (&argc, argv);
    const bool isBare = argc > 1 && std::string_view (argv[1]) == "--bare";

    if (GTEST_FLAG_GET (list_tests))
        return RUN_ALL_TESTS();

    // Static, so that it outlives the connections that the program closes at its very end.
    static XServer server;

    if (! server.getFault().empty())
    {
        std::cout << "SKIPPED: " << server.getFault() << '\n';
        return skipped;
    }

    if (! isBare && ! server.startWindowManager())
    {
        std::cout << "SKIPPED: openbox is not installed or does not start\n";
        return skipped;
    }

    platform::initialiseMacRTAS();
    const juce::ScopedJuceInitialiser_GUI juce;
    return RUN_ALL_TESTS();
}
