// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Presets and session blocks as the shell sees them: what a rendering starts from, what is kept of it, and
// the commands on preset files.

#include "support/ScratchFolder.h"
#include "support/TestAudioFiles.h"

#include <engine/WideLoomAudioProcessor.h>
#include <gmock/gmock.h>
#include <presets/UserPresetFile.h>

#include <filesystem>

namespace
{
using testing::HasSubstr;
using testing::Not;

constexpr auto presetsFolder = "home/.config/QUORVEXDSP/WideLoom Presets/";

std::string bytesOf (const juce::MemoryBlock& block)
{
    return { static_cast<const char*> (block.getData()), block.getSize() };
}

/** A preset that differs from "Init" in one parameter. */
juce::ValueTree presetWith (ParameterId id, float value)
{
    WideLoomAudioProcessor processor;
    processor.setParameter (indexOf (id), value);
    return processor.createValueTreeForAllParameters()->createCopy();
}

std::string presetFile (const juce::ValueTree& tree, bool compressed = false)
{
    return bytesOf (UserPresetFile::write (tree, compressed));
}

/** A home with user presets "Mine" (Pan L40), "Init" (Pan R20) and "Broken"; the file session.state
    (OutputGain 6.0dB); and some files that are none of what their names say. */
class PresetCommands : public testing::Test
{
protected:
    PresetCommands()
    {
        std::filesystem::create_directories (folder / presetsFolder);
        writeWholeFile (userPreset ("Mine"), presetFile (presetWith (ParameterId::pan, panL40), true));
        writeWholeFile (userPreset ("Init"), presetFile (presetWith (ParameterId::pan, panR20)));
        auto damaged = presetFile (presetWith (ParameterId::pan, panL40), true);
        damaged.back() = static_cast<char> (damaged.back() ^ 1);
        writeWholeFile (userPreset ("Broken"), damaged);
        writeWholeFile (folder / "broken.q7p", damaged);
        writeWholeFile (folder / "mine.q7p", readWholeFile (userPreset ("Mine")));
        writeWholeFile (folder / "foreign.q7p", presetFile (juce::ValueTree ("Other")));

        WideLoomAudioProcessor processor;
        processor.setParameter (indexOf (ParameterId::outputGain), gain6Db);
        juce::MemoryBlock block;
        processor.getStateInformation (block);
        writeWholeFile (folder / "session.state", bytesOf (block));
        writeWholeFile (folder / "cut.state", bytesOf (block).substr (0, block.getSize() / 2));
        writeAudio (folder / "in.wav", noise (3000), { 32, true });
    }

    std::string userPreset (const std::string& name) const
    {
        return folder / (presetsFolder + name + ".q7p");
    }

    ProgramResult run (const std::string& arguments) const
    {
        auto result = folder.shell ("HOME=\"$PWD/home\" wideloom " + arguments);
        EXPECT_THAT (result.errors, Not (HasSubstr ("JUCE Assertion failure")));
        return result;
    }

    ProgramResult succeed (const std::string& arguments) const
    {
        auto result = run (arguments);
        EXPECT_EQ (result.status, 0) << arguments << "\n" << result.errors;
        return result;
    }

    /** The file that rendering with these options gives. */
    std::string rendered (const std::string& options) const
    {
        return succeed ("render in.wav - --quiet " + options).output;
    }

    static constexpr float panL40 = 0.3f, panR20 = 0.6f, gain6Db = 0.75f;
    ScratchFolder folder;
};

struct StartRow
{
    const char* name;
    const char* options;
    const char* sameAs; ///< options that set nothing but parameters
};

class PresetStart : public PresetCommands, public testing::WithParamInterface<StartRow>
{
};

TEST_P (PresetStart, SoundsLikeItsParameters)
{
    const auto audio = rendered (GetParam().options);
    EXPECT_GT (audio.size(), 24000u);
    EXPECT_TRUE (audio == rendered (GetParam().sameAs));
}

constexpr StartRow startRows[] = {
    { "factory", "--preset 'TRACK Stereo 150%'", "--set StereoWidth='150 %'" },
    { "factoryWithBass",
      "--preset 'GROUP Stereo 150% + SafeBass'",
      "--norm StereoWidth=0.75 --norm SafeBass=1 --norm SafeBassFreq=0.4898" },
    { "user", "--preset Mine", "--norm Pan=0.3" },
    { "factoryBeforeUser", "--preset Init", "--norm Pan=0.5" },
    { "file", "--preset-file mine.q7p", "--norm Pan=0.3" },
    { "fileNamedLikeFactory", "--preset-file home/.config/*/*/Init.q7p", "--norm Pan=0.6" },
    { "state", "--state session.state", "--norm OutputGain=0.75" },
    { "setAfterPreset",
      "--set StereoWidth='50 %' --norm Pan=0.1 --preset 'TRACK Stereo 150%'",
      "--set StereoWidth='50 %' --norm Pan=0.1" },
    { "setAfterFile", "--norm Pan=0.1 --preset-file mine.q7p", "--norm Pan=0.1" },
    { "normAfterState",
      "--norm OutputGain=0.25 --set MuteSide=on --state session.state",
      "--norm OutputGain=0.25 --set MuteSide=on" },
};

INSTANTIATE_TEST_SUITE_P (Rows,
                          PresetStart,
                          testing::ValuesIn (startRows),
                          [] (const auto& row) { return std::string (row.param.name); });

struct RefusalRow
{
    const char* name;
    const char* arguments;
    int status;
    const char* hint;
};

class PresetRefusal : public PresetCommands, public testing::WithParamInterface<RefusalRow>
{
};

TEST_P (PresetRefusal, NamesWhatIsWrongAndChangesNothing)
{
    const auto names = folder.names();
    const auto mine = readWholeFile (userPreset ("Mine")), session = readWholeFile (folder / "session.state");
    const auto result = run (GetParam().arguments);
    EXPECT_EQ (result.status, GetParam().status) << result.errors;
    EXPECT_THAT (result.errors, HasSubstr (GetParam().hint));
    EXPECT_EQ (folder.names(), names);
    EXPECT_EQ (readWholeFile (userPreset ("Mine")), mine);
    EXPECT_EQ (readWholeFile (folder / "session.state"), session);
}

constexpr RefusalRow refusalRows[] = {
    { "unknownPreset", "render in.wav o.wav --preset mime", 1, "did you mean 'Mine'? 'wideloom presets'" },
    { "unknownInBatch", "render in.wav mine.q7p --out-dir out --preset mime", 1, "did you mean 'Mine'" },
    { "pathAsPreset", "render in.wav o.wav --preset ../x", 1, "there is no preset '../x'" },
    { "damagedPreset", "render in.wav o.wav --preset Broken", 1, "'Broken' cannot be loaded" },
    { "damagedFile", "render in.wav o.wav --preset-file broken.q7p", 1, "damaged" },
    { "noSuchFile", "render in.wav o.wav --preset-file none.q7p", 1, "'none.q7p'" },
    { "folderAsFile", "render in.wav o.wav --preset-file home", 1, "no plain file" },
    { "noPreset", "render in.wav o.wav --preset-file in.wav", 1, "it is no preset file" },
    { "nothingInIt", "render in.wav o.wav --preset-file foreign.q7p", 1, "none of the effect's parameters" },
    { "noSession", "render in.wav o.wav --state in.wav", 1, "it is no session block" },
    { "cutSession", "render in.wav o.wav --state cut.state", 1, "'cut.state'" },
    { "emptySession", "render in.wav o.wav --state /dev/null", 1, "'/dev/null'" },
    { "savedBefore", "render in.wav o.wav --save-preset Mine", 1, "'Mine' already; --force" },
    { "savedBeforeModified", "render in.wav o.wav --save-preset 'Mine*'", 1, "'Mine' already; --force" },
    { "stateWritten", "render in.wav o.wav --save-state session.state", 1, "--force" },
    { "badName", "render in.wav o.wav --save-preset ../x --force", 2, "'../x'" },
    { "onlyAStar", "render in.wav o.wav --save-preset '*'", 2, "'*'" },
    { "stateIsOutput", "render in.wav o.wav --save-state o.wav", 2, "'o.wav'" },
    { "emptyPreset", "render in.wav o.wav --preset ''", 2, "--preset" },
    { "twoStarts", "render in.wav o.wav --preset Init --state session.state", 2, "--state" },
    { "severalPresets",
      "render in.wav b.wav --out-dir out --save-preset X",
      2,
      "--save-preset goes with one" },
    { "severalStates", "render in.wav b.wav --out-dir out --save-state x", 2, "--save-state goes with one" },
    { "showDamaged", "preset show broken.q7p", 1, "'broken.q7p'" },
    { "convertDamaged", "preset convert broken.q7p o.q7p", 1, "'broken.q7p'" },
    { "convertOntoFile", "preset convert mine.q7p session.state", 1, "--force" },
    { "bothForms", "preset convert mine.q7p o.q7p --plain --compressed", 2, "--plain" },
    { "checkNothing", "preset check", 2, "FILE" },
    { "noPresetCommand", "preset", 2, "--help" },
};

INSTANTIATE_TEST_SUITE_P (Rows,
                          PresetRefusal,
                          testing::ValuesIn (refusalRows),
                          [] (const auto& row) { return std::string (row.param.name); });

TEST_F (PresetCommands, KeepsSettingsThatSoundTheSameAgain)
{
    writeWholeFile (folder / "moves.csv", "1000,StereoWidth,0.1\n2000,SafeBassFreq,0.9\n");
    const std::string automation = " --automation moves.csv";
    const auto first = rendered ("--preset 'GROUP Stereo 150% + SafeBass' --norm Pan=0.123456789"
                                 " --set PanLaw=-3dB --save-state a.state --save-preset Again"
                                 + automation);

    // Automation is no part of what is kept, so it has to be there again.
    EXPECT_TRUE (rendered ("--state a.state --save-state b.state" + automation) == first);
    EXPECT_TRUE (rendered ("--preset Again" + automation) == first);
    EXPECT_EQ (readWholeFile (folder / "a.state"), readWholeFile (folder / "b.state"));
    EXPECT_THAT (succeed ("preset show '" + userPreset ("Again") + "'").output, HasSubstr ("44100 Hz"));
}

TEST_F (PresetCommands, SavesWhatItLoadedAndReplacesWhenForced)
{
    succeed ("render in.wav a.wav --state session.state --norm Pan=0.2 --save-preset Mine --force");
    EXPECT_TRUE (rendered ("--preset Mine") == rendered ("--norm OutputGain=0.75 --norm Pan=0.2"));
    EXPECT_THAT (succeed ("render in.wav b.wav --preset Mine --save-preset Init --force").errors,
                 HasSubstr ("a factory preset has the name 'Init' too"));
}

TEST_F (PresetCommands, AUserPresetHasTheNameOfItsFile)
{
    ASSERT_EQ (UserPresetFile::read (readWholeFile (userPreset ("Mine"))).tree["PresetName"].toString(),
               "Init");
    succeed ("render in.wav a.wav --preset Mine --save-state a.state");
    const auto state = readWholeFile (folder / "a.state");
    EXPECT_THAT (state, HasSubstr (" programName=\"Mine\" "));
    EXPECT_THAT (state, HasSubstr (" stepFactoryPresets=\"0\" "));
}

TEST_F (PresetCommands, SavesNothingWhenTheRenderingFails)
{
    EXPECT_EQ (run ("render in.wav - --save-preset New --save-state new.state > /dev/full").status, 1);
    EXPECT_FALSE (std::filesystem::exists (userPreset ("New")));
    EXPECT_FALSE (std::filesystem::exists (folder / "new.state"));
}

TEST_F (PresetCommands, GivesTheStartToEveryFileOfABatch)
{
    writeAudio (folder / "b.wav", noise (3000), { 32, true });

    for (const std::string options : { "--preset Mine", "--preset-file mine.q7p", "--state session.state" })
    {
        succeed ("render in.wav b.wav --out-dir out --quiet --force " + options);
        const auto expected = rendered (options);
        EXPECT_TRUE (readWholeFile (folder / "out/in.wav") == expected) << options;
        EXPECT_TRUE (readWholeFile (folder / "out/b.wav") == expected) << options;
    }
}

TEST_F (PresetCommands, ListsTheRingWithDifferencesFromInit)
{
    const auto list = juce::JSON::parse (juce::String (succeed ("presets --json").output));
    ASSERT_EQ (list.size(), 16); // 14 factory presets and the two good files
    EXPECT_EQ (list[0]["name"].toString(), "Init");
    EXPECT_EQ (list[0]["differences"].size(), 0);
    EXPECT_EQ (list[2]["differences"].size(), 1);
    EXPECT_EQ (list[2]["differences"][0]["text"].toString(), "150 %");
    EXPECT_EQ (list[12]["name"].toString(), "MASTER SafeBass 150 Hz");
    EXPECT_EQ (list[12]["differences"].size(), 1);
    EXPECT_EQ (list[13]["list"].toString(), "factory");

    for (int i = 14; i < 16; ++i)
    {
        EXPECT_EQ (list[i]["list"].toString(), "user");
        EXPECT_EQ (static_cast<int> (list[i]["position"]), i - 14);
        const bool isMine = list[i]["name"] == "Mine";
        EXPECT_EQ (static_cast<float> (list[i]["differences"][0]["value"]), isMine ? panL40 : panR20);
    }

    const auto text = succeed ("presets").output;
    EXPECT_THAT (text, HasSubstr ("TRACK Stereo 150%              StereoWidth=150 %\n"));
    EXPECT_THAT (text, HasSubstr ("Pan=L40\n"));
    EXPECT_THAT (text, Not (HasSubstr ("Broken")));
}

TEST_F (PresetCommands, ConvertsBothWaysWithoutLoss)
{
    succeed ("preset convert mine.q7p plain.q7p");
    succeed ("preset convert plain.q7p small.q7p --compressed");
    succeed ("preset convert small.q7p small.q7p --plain --force");
    const auto original = UserPresetFile::read (readWholeFile (folder / "mine.q7p"));
    const auto plain = UserPresetFile::read (readWholeFile (folder / "plain.q7p"));
    EXPECT_TRUE (original.compressed);
    EXPECT_FALSE (plain.compressed);
    EXPECT_TRUE (plain.tree.isEquivalentTo (original.tree));
    EXPECT_EQ (readWholeFile (folder / "small.q7p"), readWholeFile (folder / "plain.q7p"));
}

TEST_F (PresetCommands, ChecksEveryFileAndSaysWhatIsWrong)
{
    auto tree = presetWith (ParameterId::pan, panL40);
    tree.getChildWithProperty ("ParameterName", "InputGain").setProperty ("Value", 7.0, nullptr);
    tree.getChildWithProperty ("ParameterName", "Mono").setProperty ("Value", "nan", nullptr);
    writeWholeFile (folder / "values.q7p", presetFile (tree));
    const auto result = run ("preset check broken.q7p foreign.q7p values.q7p none.q7p mine.q7p");
    EXPECT_EQ (result.status, 1);
    EXPECT_EQ (result.output, "'mine.q7p': it is good\n");

    for (const auto* hint : { "'broken.q7p': the compressed part is damaged",
                              "'foreign.q7p': it sets none of the effect's parameters",
                              "InputGain, Mono",
                              "'none.q7p': it cannot be opened" })
        EXPECT_THAT (result.errors, HasSubstr (hint));

    EXPECT_THAT (succeed ("preset check mine.q7p").errors, testing::Not (HasSubstr ("mine.q7p")));
}

TEST_F (PresetCommands, ShowsWhatIsInAFileButNoTerminalCommands)
{
    auto tree = presetWith (ParameterId::pan, panL40);
    tree.setProperty ("PresetName", "a\tb", nullptr);
    writeWholeFile (folder / "odd.q7p", presetFile (tree));
    const auto text = succeed ("preset show odd.q7p").output;
    EXPECT_THAT (text, HasSubstr ("a?b\n"));
    EXPECT_THAT (text, testing::ContainsRegex ("Pan +L40\n"));
}
} // namespace
