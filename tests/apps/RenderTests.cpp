// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// `wideloom render` as the shell sees it: settings, automation, blocks, streams, batches, and what stays
// behind.

#include "support/ScratchFolder.h"
#include "support/TestAudioFiles.h"
#include "wideloom/CommandLine.h"
#include "wideloom/Interruption.h"

#include <gmock/gmock.h>
#include <juce_core/juce_core.h>

#include <csignal>

namespace
{
using testing::ElementsAre;
using testing::HasSubstr;

constexpr SampleFormat asFloat { 32, true }, as16Bits { 16, false };

class Render : public testing::Test
{
protected:
    /** Runs wideloom with arguments as a shell reads them, and expects it to succeed. */
    ProgramResult succeed (const std::string& arguments) const
    {
        auto result = run (arguments);
        EXPECT_EQ (result.status, 0) << arguments << "\n" << result.errors;
        return result;
    }

    ProgramResult run (const std::string& arguments) const
    {
        auto result = folder.shell ("wideloom " + arguments);
        EXPECT_THAT (result.errors, testing::Not (HasSubstr ("JUCE Assertion failure")));
        return result;
    }

    ScratchFolder folder;
};

TEST_F (Render, DoesNotDependOnTheBlockSize)
{
    writeAudio (folder / "in.wav", noise (40000), asFloat);
    writeWholeFile (folder / "moves.csv",
                    "0,StereoWidth,0.9\n1,Pan,0.3\n511,SafeBass,1\n512,InputGain,0.7\n513,PanCurve,0.2\n"
                    "16383,SafeBassFreq,0.8\n16384,Mono,1\n16390,Mono,0\n39999,Bypass,1\n");
    const std::string arguments = "render in.wav - --bits 16 --automation moves.csv --block ";
    const auto expected = succeed (arguments + "512").output;
    EXPECT_GT (expected.size(), 160000u);

    for (const auto* blockFrames : { "1", "7", "4096", "65536" })
        EXPECT_TRUE (succeed (arguments + blockFrames).output == expected) << blockFrames;
}

TEST_F (Render, AppliesAutomationAtExactlyItsSample)
{
    constexpr int position = 1000;
    writeAudio (folder / "in.wav", noise (3000), asFloat);
    writeWholeFile (folder / "moves.csv", std::to_string (position) + ",MuteAll,1\n3000,MuteAll,0\n");
    const auto result = succeed ("render in.wav out.wav --set Bypass=off --automation moves.csv");
    EXPECT_THAT (result.errors, HasSubstr ("1 automation event at or behind the end"));

    const auto out = readAudio (folder / "out.wav");
    ASSERT_EQ (out.size(), 3000);

    for (int i = 0; i < out.size(); ++i)
        ASSERT_EQ (out.left[static_cast<std::size_t> (i)] == 0.0f, i >= position) << i;
}

TEST_F (Render, LetsTheLaterOfTwoSettingsWin)
{
    writeAudio (folder / "in.wav", noise (100), asFloat);
    succeed ("render in.wav a.wav --norm StereoWidth=0 --set StereoWidth='200 %'");
    succeed ("render in.wav b.wav --set StereoWidth='200 %'");
    succeed ("render in.wav c.wav --set StereoWidth='200 %' --norm StereoWidth=0 --set Pan=C");
    EXPECT_EQ (readWholeFile (folder / "a.wav"), readWholeFile (folder / "b.wav"));
    const auto mono = readAudio (folder / "c.wav");
    EXPECT_EQ (mono.left, mono.right);
}

TEST_F (Render, ReadsAndWritesStreams)
{
    writeAudio (folder / "in.wav", noise (5000), as16Bits);
    succeed ("render in.wav expected.wav --set Pan=L20");
    const auto result = folder.shell ("cat in.wav | wideloom render - - --set Pan=L20 > out.wav");
    EXPECT_EQ (result.status, 0) << result.errors;
    EXPECT_EQ (readWholeFile (folder / "out.wav"), readWholeFile (folder / "expected.wav"));

    // A writer into a pipe cannot know the length and leaves it open.
    auto streamed = plainWav (std::string (400, 'x'));
    streamed.replace (40, 4, "\xff\xff\xff\xff");
    writeWholeFile (folder / "open.wav", streamed);
    EXPECT_EQ (folder.shell ("cat open.wav | wideloom render - long.wav").status, 0);
    EXPECT_EQ (readAudio (folder / "long.wav").size(), 100);
    EXPECT_EQ (run ("render open.wav no.wav").status, 1);
}

TEST_F (Render, TellsOfClippedSamplesAndOfWhatAFormatCannotHold)
{
    writeAudio (folder / "in.wav", { { 0.5f, 0.9f, -0.9f }, { 0.5f, 0.5f, 0.5f } }, asFloat);
    const auto result = succeed ("render in.wav out.flac --set OutputGain=3dB");
    EXPECT_THAT (result.errors, HasSubstr ("32-bit float becomes 24-bit"));
    EXPECT_THAT (result.errors, HasSubstr ("2 samples clipped"));
    EXPECT_EQ (succeed ("render in.wav b.flac --set OutputGain=3dB --quiet").errors.find ("note"),
               std::string::npos);
    EXPECT_THAT (succeed ("render in.wav c.wav --set OutputGain=3dB").errors,
                 testing::Not (HasSubstr ("note")));
}

TEST_F (Render, ReportsPeaksAndFigures)
{
    writeAudio (folder / "in.wav", { { 0.5f, 0.0f }, { 0.25f, -0.125f } }, asFloat);
    succeed ("render in.wav out.wav --set MuteSide=on --report report.json");
    const auto report = juce::JSON::parse (juce::String (readWholeFile (folder / "report.json")));
    EXPECT_EQ (static_cast<double> (report["inputMeter"]["left"]["linear"]), 0.5);
    EXPECT_NEAR (static_cast<double> (report["inputMeter"]["right"]["dbfs"]), -12.04, 0.01);
    EXPECT_EQ (static_cast<double> (report["outputMeter"]["right"]["linear"]), 0.375);
    EXPECT_LT (static_cast<double> (report["before"]["correlation"]), 1.0);
    EXPECT_EQ (static_cast<double> (report["after"]["correlation"]), 1.0);
}

TEST_F (Render, GoesOnAfterABadFileAndNamesIt)
{
    for (const auto* name : { "a.wav", "b.aiff", "c.flac" })
        writeAudio (folder / name, noise (2000), as16Bits);

    writeWholeFile (folder / "bad.wav", "RIFF");
    const auto result =
        run ("render a.wav bad.wav b.aiff c.flac --out-dir sub/out --jobs 2 --set StereoWidth=150");
    EXPECT_EQ (result.status, 1);
    EXPECT_THAT (result.errors, HasSubstr ("1 of 4 files failed:\n  bad.wav"));
    succeed ("render a.wav one.wav --set StereoWidth=150");
    EXPECT_EQ (readWholeFile (folder / "one.wav"), readWholeFile (folder / "sub/out/a.wav"));
    EXPECT_EQ (readAudio (folder / "sub/out/c.flac").size(), 2000);
    EXPECT_EQ (folder.shell ("ls -A sub/out").output, "a.wav\nb.aiff\nc.flac\n");
}

TEST_F (Render, ReplacesAFileOnlyWhenForced)
{
    writeAudio (folder / "in.wav", noise (100), as16Bits);
    writeWholeFile (folder / "out.wav", "precious");
    writeWholeFile (folder / "report.json", "precious too");
    const auto result = run ("render in.wav out.wav");
    EXPECT_EQ (result.status, 1);
    EXPECT_THAT (result.errors, HasSubstr ("--force"));
    EXPECT_EQ (run ("render in.wav new.wav --report report.json").status, 1);
    EXPECT_EQ (readWholeFile (folder / "out.wav"), "precious");
    EXPECT_EQ (readWholeFile (folder / "report.json"), "precious too");
    EXPECT_THAT (folder.names(), ElementsAre ("in.wav", "out.wav", "report.json"));

    const auto before = readAudio (folder / "in.wav");
    succeed ("render in.wav in.wav --force --set Bypass=on");
    expectSame (readAudio (folder / "in.wav"), before);
    EXPECT_THAT (folder.names(), ElementsAre ("in.wav", "out.wav", "report.json"));
}

TEST_F (Render, LeavesNothingBehindWhenTheDiskIsFull)
{
    writeAudio (folder / "in.wav", noise (100000), as16Bits);
    writeWholeFile (folder / "out.aiff", "precious");

    for (const auto* out : { "new.wav", "out.aiff", "new.flac" })
    {
        // A limit on the size of files stands for the disk.
        const auto result =
            folder.shell (std::string ("ulimit -f 64; wideloom render in.wav --force ") + out);
        EXPECT_EQ (result.status, 1) << out;
        EXPECT_THAT (result.errors, HasSubstr (std::string (out) + "' cannot be written")) << out;
    }

    EXPECT_EQ (readWholeFile (folder / "out.aiff"), "precious");
    EXPECT_THAT (folder.names(), ElementsAre ("in.wav", "out.aiff"));
    EXPECT_EQ (run ("render in.wav - > /dev/full").status, 1);
}

TEST_F (Render, LeavesNothingBehindWhenInterrupted)
{
    for (const auto* name : { "a.wav", "b.wav" })
        writeAudio (folder / name, noise (100), as16Bits);

    const auto runInterrupted = [] (std::vector<std::string> words)
    {
        std::vector<char*> arguments;

        for (auto& word : words)
            arguments.push_back (word.data());

        watchForInterruption();
        std::raise (SIGTERM);
        std::_Exit (
            static_cast<int> (runCommandLine (static_cast<int> (arguments.size()), arguments.data())));
    };

    const std::vector<std::string> one { "wideloom", "render", folder / "a.wav", folder / "out.wav" };
    const std::vector<std::string> batch { "wideloom",       "render",    folder / "a.wav",
                                           folder / "b.wav", "--out-dir", folder / "." };
    GTEST_FLAG_SET (death_test_style, "fast");
    EXPECT_EXIT (runInterrupted (one), testing::ExitedWithCode (1), "interrupted");
    EXPECT_EXIT (runInterrupted (batch), testing::ExitedWithCode (1), "2 of 2 files were not started:");
    EXPECT_THAT (folder.names(), ElementsAre ("a.wav", "b.wav"));
}

TEST_F (Render, TakesFileNamesOfAnyBytes)
{
    // Latin-1, as on a disk from long ago, and a byte that no encoding has.
    const std::string name = "caf\xe9.wav", output = "\xff.wav";
    writeAudio (folder / "in.wav", noise (100), as16Bits);
    writeAudio (folder / name, noise (100), as16Bits);
    succeed ("render in.wav expected.wav --set Pan=L20 --save-state 'state\xe9'");
    succeed ("render '" + name + "' '" + output + "' --state 'state\xe9' --report report.json");
    EXPECT_EQ (readWholeFile (folder / output), readWholeFile (folder / "expected.wav"));
    succeed ("render '" + name + "' in.wav --out-dir 'dir\xe9'");
    EXPECT_EQ (folder.shell ("ls 'dir\xe9'").output, name + "\nin.wav\n");

    const auto figures = succeed ("measure --json --picture 'p\xe9.png' '" + name + "'").output;
    const auto report = juce::JSON::parse (juce::String (readWholeFile (folder / "report.json")));

    for (const auto& shown :
         { juce::JSON::parse (juce::String::fromUTF8 (figures.c_str()))[0]["file"], report["input"] })
        EXPECT_EQ (shown.toString(), juce::String::fromUTF8 ("caf\xef\xbf\xbd.wav"));

    EXPECT_THAT (folder.names(), testing::Contains ("p\xe9.png"));
    EXPECT_THAT (run ("render 'none\xe9.wav' b.wav").errors, HasSubstr ("'none\xe9.wav'"));
}

struct UsageRow
{
    const char* name;
    const char* arguments;
    int status;
    const char* hint;
};

class RenderUsage : public Render, public testing::WithParamInterface<UsageRow>
{
};

TEST_P (RenderUsage, IsToldApartFromFailure)
{
    writeAudio (folder / "a.wav", noise (100), as16Bits);
    writeWholeFile (folder / "bad.csv", "1,2\n");
    const auto result = run (GetParam().arguments);
    EXPECT_EQ (result.status, GetParam().status) << result.errors;
    EXPECT_THAT (result.output + result.errors, HasSubstr (GetParam().hint));
    EXPECT_THAT (folder.names(), ElementsAre ("a.wav", "bad.csv"));
}

constexpr UsageRow usageRows[] = {
    { "help", "--help", 0, "render" },
    { "helpOfRender", "render --help", 0, "--automation" },
    { "version", "--version", 0, "wideloom 1.1\n" },
    { "nothing", "", 2, "--help" },
    { "unknownCommand", "play a.wav", 2, "no command 'play'" },
    { "unknownOption", "render a.wav b.wav --louder", 2, "--louder" },
    { "noOutput", "render a.wav", 2, "has no output" },
    { "threeFiles", "render a.wav a.wav b.wav", 2, "--out-dir" },
    { "noFormat", "render a.wav b.mp3", 2, ".flac" },
    { "noExtension", "render a.wav b", 2, ".wav" },
    { "badBits", "render a.wav b.wav --bits 20", 2, "32f" },
    { "floatIntoFlac", "render a.wav b.flac --bits 32f", 2, "--bits 24" },
    { "noBlock", "render a.wav b.wav --block 0", 2, "--block" },
    { "hugeBlock", "render a.wav b.wav --block 65537", 2, "65536" },
    { "badValue", "render a.wav b.wav --set Pan=L300", 2, "L100" },
    { "badName", "render a.wav b.wav --norm Foo=1", 2, "Foo" },
    { "sameOutput", "render a.wav ./a.wav --out-dir out", 2, "would both become 'a.wav'" },
    { "reportOverOutput", "render a.wav b.wav --report b.wav", 2, "both the output and its report" },
    { "stateOverReport", "render a.wav b.wav --report c --save-state c --force", 2, "name two files" },
    { "streamIntoFolder", "render - --out-dir out", 2, "no file name" },
    { "badAutomation", "render a.wav b.wav --automation bad.csv", 1, "line 1" },
    { "noSuchInput", "render none.wav b.wav", 1, "'none.wav'" },
    { "noSuchFolder", "render a.wav none/b.wav", 1, "none/b.wav" },
    { "emptyStream", "render - b.wav < /dev/null", 1, "standard input: it is empty" },
    { "endlessStream", "render - b.wav < /dev/zero", 1, "no audio" },
    { "closedOutput", "render a.wav - >&-", 1, "standard output cannot be written" },
    { "closedOutputForText", "params >&-", 1, "standard output cannot be written" },
    { "closedInput", "render - b.wav <&-", 1, "standard input: it cannot be read" },
    { "deviceAsOutput", "render a.wav - > /dev/full", 1, "standard output" },
};

INSTANTIATE_TEST_SUITE_P (Rows,
                          RenderUsage,
                          testing::ValuesIn (usageRows),
                          [] (const auto& row) { return std::string (row.param.name); });
} // namespace
