// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The program as a person on a desktop starts it, with the editor in the plug-in's host window or in one of
// its own.

#include "Person.h"
#include "support/ScratchFolder.h"
#include "support/TestAudioFiles.h"
#include "support/XHost.h"

#include <gmock/gmock.h>

namespace
{
using testing::HasSubstr;
using testing::Not;

constexpr unsigned long spaceKeysym = 0x20;
constexpr juce::uint32 betweenTriesMs = 2000;
const juce::Point<int> bareGround { 450, 60 };

class DrivenProgram : public testing::TestWithParam<const char*>
{
protected:
    void SetUp() override
    {
        if (! TestDevices().areThere())
            GTEST_SKIP() << "there is no X display with XTest; scripts/with-display starts one";

        screen = &XHost::get();
        screen->begin();
        writeAudio (folder / "music.wav", noise (4800), { 16, false });
    }

    /** Starts the program, and returns its window once that is there. */
    GrafPtr open (const juce::StringArray& arguments)
    {
        juce::StringArray words { WIDELOOM_PROGRAM, "open", "--path", GetParam() };
        words.addArray (arguments);
        EXPECT_TRUE (program.start (words));
        GrafPtr window = 0;
        EXPECT_TRUE (waitUntil (
            [&]
            {
                window = screen->findWindow ("WideLoom: music.wav");
                return window != 0 && screen->isShown (window);
            }))
            << (program.isRunning() ? "it runs" : program.readAllProcessOutput());
        return window;
    }

    XHost* screen = nullptr;
    ScratchFolder folder;
    juce::ChildProcess program;
};

TEST_P (DrivenProgram, StopsAndStartsWithSpaceAndEndsWithItsWindow)
{
    const auto window = open ({ folder / "music.wav", "--set", "Pan=L30", "--preset", "TRACK Stereo 150%" });
    ASSERT_NE (window, 0u);
    screen->moveMouse (window, bareGround);
    screen->pressMouse (true);
    screen->pressMouse (false);

    const auto isStopped = [&] { return screen->getTitle (window).endsWith ("(stopped)"); };

    // The keyboard comes some time after the click.
    juce::uint32 lastTry = 0;
    EXPECT_TRUE (waitUntil (
        [&]
        {
            if (isStopped())
                return true;

            if (const auto now = juce::Time::getMillisecondCounter(); now > lastTry + betweenTriesMs)
            {
                screen->typeKey (spaceKeysym);
                lastTry = now;
            }

            return false;
        }));
    screen->typeKey (spaceKeysym);
    EXPECT_TRUE (waitUntil ([&] { return ! isStopped(); }));

    screen->askToClose (window);
    EXPECT_TRUE (waitUntil ([&] { return ! program.isRunning(); }));
    const auto said = program.readAllProcessOutput().toStdString();
    EXPECT_EQ (program.getExitCode(), 0u) << said;
    EXPECT_THAT (said, Not (HasSubstr ("JUCE Assertion failure")));
    EXPECT_THAT (said, Not (HasSubstr ("Leaked objects")));
}

INSTANTIATE_TEST_SUITE_P (Paths,
                          DrivenProgram,
                          testing::Values ("host", "direct"),
                          [] (const auto& row) { return std::string (row.param); });
} // namespace
