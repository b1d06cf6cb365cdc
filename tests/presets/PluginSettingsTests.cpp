// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The settings file: first run, damage, and several instances and processes that share it.

#include "PresetFixture.h"

#include <gtest/gtest.h>
#include <presets/DisplayHeight.h>

#include <csignal>
#include <cstdlib>
#include <sys/wait.h>
#include <unistd.h>

namespace
{
constexpr auto ratioKey = "DefaultEditorDesktopHeightRatio";
constexpr auto folderKey = "Presets Folder";

juce::String valueIn (const juce::File& file, const juce::String& key)
{
    const auto xml = juce::parseXML (file);
    const auto* element =
        xml != nullptr && xml->hasTagName ("PROPERTIES") ? xml->getChildByAttribute ("name", key) : nullptr;
    return element != nullptr ? element->getStringAttribute ("val") : juce::String ("(missing)");
}

std::string settingsWith (const juce::String& ratio, const juce::String& more = {})
{
    return ("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n\n<PROPERTIES>\n  <VALUE name=\""
            + juce::String (ratioKey) + "\" val=\"" + ratio + "\"/>\n" + more + "</PROPERTIES>\n")
        .toStdString();
}

class PluginSettings : public testing::Test
{
protected:
    const PresetHome home;
    const ScopedMainDisplayUserHeight display { 900 };
};

struct RatioCase
{
    const char* name;
    const char* text;
    float ratio;
    int height; ///< pixels
};

class PluginSettingsRatio : public PluginSettings, public testing::WithParamInterface<RatioCase>
{
};
} // namespace

TEST_F (PluginSettings, FirstRunMakesFileAndFolder)
{
    const WideLoomAudioProcessor processor;

    EXPECT_EQ (valueIn (home.settingsFile(), ratioKey), "0.5");
    EXPECT_EQ (valueIn (home.settingsFile(), folderKey), home.presetsFolder().getFullPathName() + "/");
    EXPECT_TRUE (home.presetsFolder().isDirectory());
    EXPECT_EQ (processor.getDefaultEditorHeight(), 450);
    EXPECT_EQ (processor.getEditorHeight(), 450);
}

TEST_P (PluginSettingsRatio, IsReadAndWrittenBack)
{
    const auto& row = GetParam();
    writeFile (home.settingsFile(), settingsWith (row.text));

    {
        const WideLoomAudioProcessor processor;
        EXPECT_EQ (processor.getDefaultEditorDesktopHeightRatio(), row.ratio);
        EXPECT_EQ (processor.getDefaultEditorHeight(), row.height);
    }

    EXPECT_EQ (valueIn (home.settingsFile(), ratioKey).getFloatValue(), row.ratio);
}

INSTANTIATE_TEST_SUITE_P (Texts,
                          PluginSettingsRatio,
                          testing::Values (RatioCase { "Half", "0.5", 0.5f, 450 },
                                           RatioCase { "Good", "0.75", 0.75f, 675 },
                                           RatioCase { "Zero", "0", 0.5f, 450 },
                                           RatioCase { "Negative", "-1", 0.5f, 450 },
                                           RatioCase { "NoNumber", "half", 0.5f, 450 },
                                           RatioCase { "NotANumber", "nan", 0.5f, 450 },
                                           RatioCase { "Infinite", "inf", 0.5f, 450 },
                                           RatioCase { "Huge", "1e30", 1e30f, 10000 },
                                           RatioCase { "Tiny", "1e-30", 1e-30f, 1 }),
                          [] (const auto& row) { return std::string (row.param.name); });

TEST_F (PluginSettings, TheHeightOfNowBecomesTheDefault)
{
    {
        WideLoomAudioProcessor processor;
        processor.setEditorHeight (612);
        processor.setCurrentAsDefaultEditorDesktopHeightRatio();
        EXPECT_EQ (processor.getDefaultEditorHeight(), 612);
    }

    WideLoomAudioProcessor next;
    EXPECT_EQ (next.getEditorHeight(), 612);
    next.resetDefaultEditorDesktopHeightRatio();
    EXPECT_EQ (next.getDefaultEditorHeight(), 450);
    EXPECT_EQ (next.getEditorHeight(), 612);
}

TEST_F (PluginSettings, ThePresetsFolderMayBeAnywhereButNotRelative)
{
    const auto elsewhere = home.folder.getChildFile ("else/where");
    const auto entry = [] (const juce::String& path)
    { return "  <VALUE name=\"" + juce::String (folderKey) + "\" val=\"" + path + "\"/>\n"; };

    writeFile (home.settingsFile(), settingsWith ("0.5", entry (elsewhere.getFullPathName())));
    EXPECT_EQ (WideLoomAudioProcessor().getUserPresetsFolder(), elsewhere);
    EXPECT_TRUE (elsewhere.isDirectory());

    writeFile (home.settingsFile(), settingsWith ("0.5", entry ("some/where")));
    EXPECT_EQ (WideLoomAudioProcessor().getUserPresetsFolder(), home.presetsFolder());
    EXPECT_EQ (valueIn (home.settingsFile(), folderKey), "some/where");
}

TEST_F (PluginSettings, AnInstanceWritesOnlyWhatItSet)
{
    {
        auto first = std::make_unique<WideLoomAudioProcessor>();
        WideLoomAudioProcessor second;
        second.setEditorHeight (810);
        second.setCurrentAsDefaultEditorDesktopHeightRatio();

        // Somebody else's keys.
        writeFile (home.settingsFile(), settingsWith ("0.25", "  <VALUE name=\"Mine\" val=\"kept\"/>\n"));
        first.reset();
        EXPECT_EQ (valueIn (home.settingsFile(), ratioKey), "0.25") << "the first has set nothing";
    }

    EXPECT_EQ (valueIn (home.settingsFile(), ratioKey).getFloatValue(), 0.9f);
    EXPECT_EQ (valueIn (home.settingsFile(), "Mine"), "kept");
}

TEST_F (PluginSettings, AKeyThatStandsTwiceTakesANewValue)
{
    writeFile (home.settingsFile(),
               settingsWith ("0.25", "  <VALUE name=\"" + juce::String (ratioKey) + "\" val=\"0.75\"/>\n"));

    {
        WideLoomAudioProcessor processor;
        EXPECT_EQ (processor.getDefaultEditorDesktopHeightRatio(), 0.75f) << "the last one counts";
        processor.resetDefaultEditorDesktopHeightRatio();
    }

    EXPECT_EQ (WideLoomAudioProcessor().getDefaultEditorDesktopHeightRatio(), 0.5f);
}

TEST_F (PluginSettings, AnUnreadableFileIsPutAside)
{
    const std::string damaged = "<PROPERTIES><VALUE name=\"Presets Folder\" val=\"/x\"></PROPERTIES";
    writeFile (home.settingsFile(), damaged);

    EXPECT_EQ (WideLoomAudioProcessor().getDefaultEditorHeight(), 450);
    EXPECT_EQ (valueIn (home.settingsFile(), ratioKey), "0.5");
    EXPECT_EQ (readFile (home.settingsFile().getSiblingFile ("WideLoom.q7properties.unreadable")), damaged);
}

TEST_F (PluginSettings, AnUnreadableFileStaysInItsPlaceWhenTheDiskIsFull)
{
    const std::string damaged = "<PROPERTIES><VALUE name=\"Presets Folder\"";
    const auto aside = home.settingsFile().getSiblingFile ("WideLoom.q7properties.unreadable");
    const auto numFiles = [this]
    { return home.settingsFile().getParentDirectory().getNumberOfChildFiles (juce::File::findFiles); };
    writeFile (home.settingsFile(), damaged);

    for (const bool hasOneAside : { false, true })
    {
        if (hasOneAside)
            writeFile (aside, "older");

        {
            const ScopedFileSizeLimit full (1);
            EXPECT_EQ (WideLoomAudioProcessor().getDefaultEditorHeight(), 450);
        }

        EXPECT_EQ (readFile (home.settingsFile()), damaged);
        EXPECT_EQ (readFile (aside), hasOneAside ? "older" : "");
        EXPECT_EQ (numFiles(), hasOneAside ? 2 : 1) << "nothing half-written stays";
    }

    // With room on the disk again, both stay apart.
    EXPECT_EQ (WideLoomAudioProcessor().getDefaultEditorHeight(), 450);
    EXPECT_EQ (valueIn (home.settingsFile(), ratioKey), "0.5");
    EXPECT_EQ (readFile (aside), "older");
    juce::StringArray contents;

    for (const auto& file :
         home.settingsFile().getParentDirectory().findChildFiles (juce::File::findFiles, false))
        contents.add (readFile (file));

    EXPECT_EQ (contents.size(), 3);
    EXPECT_TRUE (contents.contains (damaged));
}

TEST_F (PluginSettings, WorksWhereNothingCanBeWritten)
{
    writeFile (home.folder.getChildFile ("QUORVEXDSP"), "no folder");
    writeFile (home.folder.getChildFile (".config"), "no folder");

    WideLoomAudioProcessor processor;
    processor.resetDefaultEditorDesktopHeightRatio();

    EXPECT_EQ (processor.getDefaultEditorHeight(), 450);
    EXPECT_TRUE (processor.getAllUserPresetNames().isEmpty());
    EXPECT_TRUE (processor.saveCurrentPresetFromValueTreeToDisk ("Mine", true).failed());
    EXPECT_EQ (readFile (home.folder.getChildFile ("QUORVEXDSP")), "no folder");
}

TEST_F (PluginSettings, NeverReadsAnEndlessFile)
{
    home.settingsFile().getParentDirectory().createDirectory();
    ASSERT_TRUE (juce::File ("/dev/zero").createSymbolicLink (home.settingsFile(), false));
    EXPECT_EQ (WideLoomAudioProcessor().getDefaultEditorHeight(), 450);
}

//==================================================================================================

namespace
{
constexpr auto sharedHomeVariable = "WIDELOOM_TEST_SHARED_HOME";
constexpr int sharedRounds = 8;

/** What each of two processes does to the files of one home. `odd` tells the two apart. */
void workOnSharedHome (bool odd)
{
    for (int round = 0; round < sharedRounds; ++round)
    {
        WideLoomAudioProcessor processor;
        processor.setParamAndNotifyHost ("StereoWidth", odd ? 0.25f : 0.75f, true);
        EXPECT_TRUE (processor.saveCurrentPresetFromValueTreeToDisk ("Shared", odd).wasOk());
        EXPECT_TRUE (processor.saveCurrentPresetFromValueTreeToDisk (odd ? "Odd" : "Even", true).wasOk());
        EXPECT_TRUE (processor.getAllUserPresetNames().contains ("Shared"));
        processor.setEditorHeight (odd ? 300 : 600);
        processor.setCurrentAsDefaultEditorDesktopHeightRatio();
    }
}

/** Starts this executable again, for one test of its own. Gives the process, or -1. */
pid_t startSecondProcess (const juce::File& sharedHome)
{
    const auto home = sharedHome.getFullPathName().toStdString();
    const auto child = ::fork();

    if (child == 0)
    {
        ::setenv (sharedHomeVariable, home.c_str(), 1);
        ::execl ("/proc/self/exe",
                 "wideloom_tests",
                 "--gtest_also_run_disabled_tests",
                 "--gtest_filter=TwoProcesses.DISABLED_SecondProcess",
                 "--gtest_brief=1",
                 nullptr);
        ::_exit (EXIT_FAILURE);
    }

    return child;
}
} // namespace

// Not a test by itself: the other process of the one below.
TEST (TwoProcesses, DISABLED_SecondProcess)
{
    const char* home = std::getenv (sharedHomeVariable);

    if (home == nullptr)
        GTEST_SKIP();

    ::setenv ("HOME", home, 1);
    workOnSharedHome (true);
}

TEST (TwoProcesses, LeaveEachOthersFilesWhole)
{
    const PresetHome home;
    const auto child = startSecondProcess (home.folder);
    ASSERT_GT (child, 0);
    workOnSharedHome (false);

    int status = -1;
    ASSERT_EQ (::waitpid (child, &status, 0), child);
    EXPECT_EQ (status, 0) << "the other process failed";

    WideLoomAudioProcessor processor;
    auto names = processor.getAllUserPresetNames();
    names.sort (false);
    EXPECT_EQ (names, (juce::StringArray { "Even", "Odd", "Shared" }));
    EXPECT_EQ (home.presetsFolder().getNumberOfChildFiles (juce::File::findFilesAndDirectories), 3);

    EXPECT_EQ (valueIn (home.settingsFile(), folderKey), home.presetsFolder().getFullPathName() + "/");
    const auto height = processor.getDefaultEditorHeight();
    EXPECT_TRUE (height == 300 || height == 600) << height;
    EXPECT_EQ (
        home.settingsFile().getParentDirectory().getNumberOfChildFiles (juce::File::findFilesAndDirectories),
        1);
}
