// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The command line through the plug-in, as its host runs it, against the effect called directly.

#include "support/ScratchFolder.h"
#include "support/TestAudioFiles.h"

#include <gmock/gmock.h>
#include <juce_core/juce_core.h>

namespace
{
using testing::HasSubstr;

constexpr SampleFormat asFloat { 32, true };

class HostPath : public testing::Test
{
protected:
    ProgramResult succeed (const std::string& arguments) const
    {
        auto result = folder.shell ("wideloom " + arguments);
        EXPECT_EQ (result.status, 0) << arguments << "\n" << result.errors;
        EXPECT_THAT (result.errors, testing::Not (HasSubstr ("JUCE Assertion failure")));
        EXPECT_THAT (result.errors, testing::Not (HasSubstr ("Leaked objects")));
        return result;
    }

    ScratchFolder folder;
};

struct PathRow
{
    const char* name;
    const char* arguments;
    double sampleRate; ///< Hz
};

class HostPathAndDirectPath : public HostPath, public testing::WithParamInterface<PathRow>
{
};

TEST_P (HostPathAndDirectPath, GiveTheSameBits)
{
    const auto& row = GetParam();
    writeAudio (folder / "in.wav", noise (5000), asFloat, row.sampleRate);
    writeWholeFile (folder / "moves.csv",
                    "0,StereoWidth,0.9\n1,Pan,0.0003\n31,InputGain,0.7\n33,PanCurve,0.2\n63,SafeBass,1\n"
                    "64,SafeBassFreq,0.00012345\n512,Pan,0.77\n513,PanMode,0.1\n4097,SafeBassFreq,0.9\n");
    const auto arguments = std::string ("render in.wav - --bits 32f --no-progress ") + row.arguments;
    const auto expected = succeed (arguments + " --path direct").output;
    EXPECT_GT (expected.size(), 40000u);

    for (const auto* block : { "1", "7", "32", "500", "512", "65536" })
        EXPECT_TRUE (succeed (arguments + " --path host --block " + block).output == expected) << block;

    EXPECT_TRUE (succeed (arguments).output == expected) << "by default";
}

constexpr PathRow pathRows[] = {
    { "asItIs", "", 44100.0 },
    { "settings", "--norm StereoWidth=0.0001 --norm Pan=0.123456 --set SafeBass=on", 48000.0 },
    { "automation", "--automation moves.csv", 96000.0 },
    { "preset", "--preset 'TRACK Stereo 150%' --automation moves.csv", 44100.0 },
    { "ends", "--norm StereoWidth=1 --norm Pan=0 --norm InputGain=1 --norm OutputGain=0.00000001", 192000.0 },
    { "everythingOff", "--set Bypass=on", 8000.0 },
};

INSTANTIATE_TEST_SUITE_P (Rows,
                          HostPathAndDirectPath,
                          testing::ValuesIn (pathRows),
                          [] (const auto& row) { return std::string (row.param.name); });

TEST_F (HostPath, KeepsTheSessionBlockAsItIs)
{
    writeAudio (folder / "in.wav", noise (100), asFloat);
    const std::string settings = "--norm StereoWidth=0.75 --set SwapLR=on ";

    for (const auto* path : { "host", "direct" })
        succeed ("render in.wav out.wav --force " + settings + "--path " + path + " --save-state " + path);

    EXPECT_EQ (readWholeFile (folder / "host"), readWholeFile (folder / "direct"));

    // From one path into the other, and with the same sound.
    succeed ("render in.wav a.wav --path direct --state host --save-state again");
    succeed ("render in.wav b.wav --path host --state direct");
    EXPECT_EQ (readWholeFile (folder / "again"), readWholeFile (folder / "host"));
    EXPECT_EQ (readWholeFile (folder / "a.wav"), readWholeFile (folder / "out.wav"));
    EXPECT_EQ (readWholeFile (folder / "b.wav"), readWholeFile (folder / "out.wav"));
}

TEST_F (HostPath, ReportsTheMetersOfTheDirectPath)
{
    writeAudio (folder / "in.wav", noise (3000), asFloat);
    const std::string arguments = "render in.wav out.wav --force --set InputGain=3dB --set StereoWidth=150 ";

    for (const auto* path : { "host", "direct" })
        succeed (arguments + "--path " + path + " --report " + path);

    EXPECT_EQ (readWholeFile (folder / "host"), readWholeFile (folder / "direct"));
}

TEST_F (HostPath, SaysWhatToDoWithoutAPlugIn)
{
    writeAudio (folder / "in.wav", noise (100), asFloat);
    const auto result = folder.shell ("cp \"$(command -v wideloom)\" alone && ./alone render in.wav out.wav");
    EXPECT_EQ (result.status, 1);
    EXPECT_THAT (result.errors, HasSubstr ("there is no plug-in bundle"));
    EXPECT_THAT (result.errors, HasSubstr ("--path direct"));
    EXPECT_THAT (folder.names(), testing::ElementsAre ("alone", "in.wav"));
    EXPECT_EQ (folder.shell ("./alone render in.wav out.wav --path direct").status, 0);
    EXPECT_EQ (folder.shell ("./alone host-info").status, 1);
}

TEST_F (HostPath, ShowsWhatAHostSees)
{
    const auto text = succeed ("host-info").output;

    for (const auto* part :
         { "'Q7Qv'", "'Q7Wl'", "'jcaa'", "Master Bypass | MastrByp | MByp | Byp", "'elck'" })
        EXPECT_THAT (text, HasSubstr (part));

    const auto info = juce::JSON::parse (juce::String (succeed ("host-info --json").output));
    EXPECT_EQ (info["group"]["manufacturer"][0].toString(), "QUORVEXDSP");
    EXPECT_EQ (info["type"]["name"][0].toString(), "WideLoom");
    EXPECT_EQ (static_cast<int> (info["type"]["gestalts"]["21"]), 512);
    EXPECT_EQ (static_cast<int> (info["type"]["stemFormats"]["input"]), 1);
    const auto& instance = info["instance"];
    EXPECT_EQ (instance["ports"]["inputs"].size(), 2);
    EXPECT_EQ (instance["chunks"].size(), 3);
    EXPECT_EQ (instance["chunks"][2]["id"].toString(), "juce");
    ASSERT_EQ (instance["controls"].size(), 51);
    EXPECT_EQ (instance["controls"][0]["names"].size(), 6);
    EXPECT_EQ (instance["controls"][2]["names"][0].toString(), "StereoWidth");
    EXPECT_EQ (static_cast<int> (instance["controls"][0]["steps"]), 2);
}
} // namespace
