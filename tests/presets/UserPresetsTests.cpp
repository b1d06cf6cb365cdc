// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Saving, loading and listing user presets, with every step made to fail.

#include "PresetFixture.h"

#include <gtest/gtest.h>
#include <presets/UserPresetFile.h>

#include <clocale>
#include <cstdlib>
#include <functional>
#include <sys/stat.h>
#include <unistd.h>

namespace
{
class UserPresets : public testing::Test
{
protected:
    juce::StringArray sortedNames()
    {
        auto names = processor.getAllUserPresetNames();
        names.sort (false);
        return names;
    }

    /** Temporary files that a save left behind. */
    int strayFiles() const
    {
        return home.presetsFolder().getNumberOfChildFiles (juce::File::findFilesAndDirectories, "*_temp*");
    }

    PresetHome home;
    WideLoomAudioProcessor processor;
};

struct BadName
{
    const char* name;
    const char* presetName;
};

class UserPresetsBadName : public UserPresets, public testing::WithParamInterface<BadName>
{
};
} // namespace

TEST_F (UserPresets, SavingMakesTheSavedPresetCurrent)
{
    processor.setParamAndNotifyHost ("StereoWidth", 0.75f, true);
    HostLog log (processor);

    ASSERT_TRUE (processor.saveCurrentPresetFromValueTreeToDisk ("My* Preset*", false).wasOk());

    EXPECT_EQ (sortedNames(), (juce::StringArray { "My Preset" }));
    EXPECT_EQ (processor.getCurrentPresetName(), "My Preset");
    EXPECT_EQ (processor.getCurrentPresetID(), 0);
    EXPECT_FALSE (processor.currentPresetIsFactory());
    EXPECT_FALSE (processor.currentPresetWasModified());
    EXPECT_EQ (log.lines.size(), 2 + numParameters) << "the new name, then the recall";
    EXPECT_EQ (log.lines[1], "display");

    const auto bytes = readFile (home.presetFile ("My Preset"));
    EXPECT_EQ (bytes.substr (0, 28), std::string ("QUORVEXDSP Preset File:::::\0", 28));
    const auto tree = UserPresetFile::read (bytes).tree;
    EXPECT_EQ (tree["PresetName"].toString(), "My Preset");
    EXPECT_EQ (tree["PresetType"].toString(), "User");
    EXPECT_EQ (tree.getNumProperties(), 13) << "two from the start, eleven stamps";

    processor.undoLastParameterChange();
    EXPECT_EQ (processor.getCurrentPresetName(), "Init") << "the name is the only thing to undo";
    EXPECT_EQ (liveValue (processor, "StereoWidth"), 0.75f);
    EXPECT_TRUE (processor.getCurrentPresetValueTree().hasProperty ("LastSaved"));
}

TEST_F (UserPresets, SavingStaysInTheFolderAndKeepsTheLocale)
{
    ::setenv ("LC_ALL", "C.UTF-8", 1); // What a save must not make the process's own.
    const juce::String localeBefore = std::setlocale (LC_ALL, nullptr);
    const auto elsewhere = home.folder.getChildFile ("elsewhere");
    const auto workingFolder = juce::File::getCurrentWorkingDirectory();
    ASSERT_TRUE (elsewhere.createDirectory());
    ASSERT_TRUE (elsewhere.setAsCurrentWorkingDirectory());

    // The temporary file beside a name that starts with "~" once stood in the working directory; a folder
    // that is gone takes none.
    ASSERT_TRUE (elsewhere.deleteFile());
    const auto saved = processor.saveCurrentPresetFromValueTreeToDisk ("~tilde", true);
    workingFolder.setAsCurrentWorkingDirectory();
    ::unsetenv ("LC_ALL");

    EXPECT_TRUE (saved.wasOk()) << saved.getErrorMessage();
    EXPECT_EQ (sortedNames(), (juce::StringArray { "~tilde" }));
    EXPECT_EQ (juce::String (std::setlocale (LC_ALL, nullptr)), localeBefore);
}

TEST_F (UserPresets, SavingUnderAnExistingNameReplacesTheFile)
{
    savePreset (processor, "Mine", 0.75f);
    savePreset (processor, "Mine*", 0.25f);

    EXPECT_EQ (sortedNames(), (juce::StringArray { "Mine" }));
    processor.loadFactoryPresetUndoableWithID (0);
    EXPECT_TRUE (processor.loadUserPresetUndoableWithName ("Mine"));
    EXPECT_EQ (liveValue (processor, "StereoWidth"), 0.25f);
    EXPECT_EQ (strayFiles(), 0);
}

TEST_F (UserPresets, LoadingByPositionIsOneStepAndTheFilesNameWins)
{
    savePreset (processor, "Mine", 0.75f);
    home.presetFile ("Mine").moveFileTo (home.presetFile ("Renamed"));
    processor.loadFactoryPresetUndoableWithID (0);
    processor.clearUndoHistory();
    processor.setParamAndNotifyHost ("Pan", 0.25f, false);
    HostLog log (processor);

    EXPECT_TRUE (processor.loadUserPresetUndoableWithID (0));

    EXPECT_EQ (log.lines.size(), 1 + numParameters);
    EXPECT_EQ (processor.getCurrentPresetName(), "Renamed");
    const auto& tree = processor.getCurrentPresetValueTree();
    EXPECT_EQ (static_cast<int> (tree["PresetID"]), 0);
    EXPECT_EQ (tree["PresetType"].toString(), "User");

    processor.setParamAndNotifyHost ("Mono", 1.0f, true);
    processor.undoLastParameterChange();
    EXPECT_EQ (processor.getCurrentPresetName(), "Renamed*");
    processor.undoLastParameterChange();
    EXPECT_EQ (processor.getCurrentPresetName(), "Init*");
    EXPECT_EQ (liveValue (processor, "Pan"), 0.25f);
    EXPECT_FALSE (tree.hasProperty ("PresetID")) << "what the load wrote is undone with it";
}

TEST_F (UserPresets, LoadingByNameTakesTheNameInTheFile)
{
    savePreset (processor, "Inside", 0.75f);
    home.presetFile ("Inside").moveFileTo (home.presetFile ("Outside"));
    processor.loadFactoryPresetUndoableWithID (0);

    EXPECT_TRUE (processor.loadUserPresetUndoableWithName ("Outside"));
    EXPECT_EQ (processor.getCurrentPresetName(), "Inside");
    EXPECT_EQ (processor.getCurrentPresetID(), 0);
}

TEST_F (UserPresets, APresetThatLacksAParameterLeavesItAlone)
{
    writeFile (home.presetFile ("Short"),
               std::string ("QUORVEXDSP Preset File:::::\0", 28)
                   + "<Q7AudioPreset PresetName='Short'><Parameter ParameterName='Pan' Value='0.25'/>"
                     "<Parameter ParameterName='Mono' Value='nan'/></Q7AudioPreset>");
    processor.setParamAndNotifyHost ("Mono", 1.0f, true);
    processor.setParamAndNotifyHost ("StereoWidth", 0.75f, true);

    EXPECT_TRUE (processor.loadUserPresetUndoableWithID (0));

    EXPECT_EQ (liveValue (processor, "Pan"), 0.25f);
    EXPECT_EQ (liveValue (processor, "StereoWidth"), 0.75f);
    EXPECT_EQ (liveValue (processor, "Mono"), 1.0f);
}

TEST_F (UserPresets, TheListHoldsWhatIsAPresetUnderItsExactName)
{
    savePreset (processor, "Good", 0.75f);
    const auto good = readFile (home.presetFile ("Good"));
    const auto folder = home.presetsFolder();

    for (const char* ignored : { ".q7p", "Upper.Q7P", "Other.q7", "a\\b.q7p", "line\n.q7p" })
        writeFile (folder.getChildFile (ignored), good);

    writeFile (folder.getChildFile (".hidden.q7p"), good);
    writeFile (folder.getChildFile ("Two.parts.q7p"), good);
    writeFile (folder.getChildFile ("Empty.q7p"), "");
    folder.getChildFile ("Folder.q7p").createDirectory();
    ASSERT_EQ (::mkfifo (folder.getChildFile ("Pipe.q7p").getFullPathName().toRawUTF8(), 0600), 0);
    ASSERT_TRUE (juce::File ("/dev/zero").createSymbolicLink (folder.getChildFile ("Endless.q7p"), false));
    ASSERT_TRUE (juce::File ("/nowhere").createSymbolicLink (folder.getChildFile ("Dangling.q7p"), false));
    writeFile (folder.getChildFile ("Latin.tmp"), good);
    ASSERT_EQ (std::rename ((folder.getFullPathName() + "/Latin.tmp").toRawUTF8(),
                            ((folder.getFullPathName() + "/").toStdString() + "\xe9.q7p").c_str()),
               0);

    EXPECT_EQ (sortedNames(), (juce::StringArray { ".hidden", "Good", "Two.parts" }));

    for (const char* name : { "Pipe", "Endless", "Dangling", "Folder", "Empty", "Upper" })
        EXPECT_FALSE (processor.loadUserPresetUndoableWithName (name)) << name;
}

TEST_F (UserPresets, AFileDamagedInPlaceLeavesTheListAndComesBackWhenMended)
{
    savePreset (processor, "Mine", 0.75f);
    const auto file = home.presetFile ("Mine");
    const auto good = readFile (file);
    const auto date = file.getLastModificationTime();
    EXPECT_EQ (sortedNames().size(), 1);

    auto damaged = good;
    damaged[damaged.size() / 2] = static_cast<char> (damaged[damaged.size() / 2] ^ 1);
    writeFile (file, damaged);
    ASSERT_TRUE (file.setLastModificationTime (date));
    EXPECT_EQ (sortedNames().size(), 0);

    writeFile (file, good);
    ASSERT_TRUE (file.setLastModificationTime (date));
    EXPECT_EQ (sortedNames().size(), 1);
}

TEST_F (UserPresets, ALoadThatFailsChangesNothingAndClosesNoStep)
{
    savePreset (processor, "Good", 0.75f);
    writeFile (home.presetFile ("Bad"), "QUORVEXDSP Preset File:::::");
    processor.loadFactoryPresetUndoableWithID (2);
    processor.clearUndoHistory();
    processor.setParamAndNotifyHost ("Pan", 0.75f, false);
    const auto before = stateOf (processor);
    const HostLog log (processor);

    for (const int id : { -1, 1, 0x7fffffff })
        EXPECT_FALSE (processor.loadUserPresetUndoableWithID (id)) << id;

    for (const char* name : { "Bad", "Missing", "good", "" })
        EXPECT_FALSE (processor.loadUserPresetUndoableWithName (name)) << name;

    EXPECT_EQ (stateOf (processor), before);
    EXPECT_TRUE (log.lines.isEmpty());

    processor.setParamAndNotifyHost ("Mono", 1.0f, true);
    processor.undoLastParameterChange();
    EXPECT_FALSE (processor.canUndo());
}

TEST_P (UserPresetsBadName, IsAFailedSaveAndNoPreset)
{
    const juce::String name (GetParam().presetName);
    writeFile (home.presetsFolder().getSiblingFile ("outside.q7p"), "theirs");
    const auto before = stateOf (processor);

    EXPECT_TRUE (processor.saveCurrentPresetFromValueTreeToDisk (name, true).failed());
    EXPECT_FALSE (processor.loadUserPresetUndoableWithName (name));

    EXPECT_EQ (stateOf (processor), before);
    EXPECT_EQ (readFile (home.presetsFolder().getSiblingFile ("outside.q7p")), "theirs");
    EXPECT_EQ (home.presetsFolder().getNumberOfChildFiles (juce::File::findFilesAndDirectories), 0);
}

INSTANTIATE_TEST_SUITE_P (Names,
                          UserPresetsBadName,
                          testing::Values (BadName { "Empty", "" },
                                           BadName { "OnlyMarks", "***" },
                                           BadName { "Parent", ".." },
                                           BadName { "MarkedParent", "*../*outside" },
                                           BadName { "Absolute", "/tmp/outside" },
                                           BadName { "Backslash", "..\\outside" },
                                           BadName { "ControlCharacter", "a\tb" }),
                          [] (const auto& row) { return std::string (row.param.name); });

namespace
{
struct FailingSave
{
    const char* name;
    std::function<void (const PresetHome&)> breakIt;
    rlim_t fileSizeLimit; ///< bytes; 0 for none
};

void PrintTo (const FailingSave& row, std::ostream* stream)
{
    *stream << row.name;
}

class UserPresetsFailingSave : public UserPresets, public testing::WithParamInterface<FailingSave>
{
};

const FailingSave failingSaves[] {
    { "TheFolderIsGone", [] (const PresetHome& home) { home.presetsFolder().deleteRecursively(); }, 0 },
    { "AFileIsInPlaceOfTheFolder",
      [] (const PresetHome& home)
      {
          home.presetsFolder().deleteRecursively();
          writeFile (home.presetsFolder(), "no folder");
      },
      0 },
    { "AFolderIsInPlaceOfTheFile",
      [] (const PresetHome& home)
      {
          home.presetFile ("Mine").deleteFile();
          home.presetFile ("Mine").createDirectory();
      },
      0 },
    { "TheDiskIsFullAtOnce", [] (const PresetHome&) {}, 1 },
    { "TheDiskIsFullBeforeTheLastBytes", [] (const PresetHome&) {}, 300 },
};
} // namespace

TEST_P (UserPresetsFailingSave, LeavesFileAndPresetAsTheyWere)
{
    savePreset (processor, "Mine", 0.75f);
    const auto old = readFile (home.presetFile ("Mine"));
    processor.clearUndoHistory();
    processor.setParamAndNotifyHost ("StereoWidth", 0.25f, true);
    GetParam().breakIt (home);
    const bool fileStood = home.presetFile ("Mine").existsAsFile();
    const auto before = stateOf (processor);
    const HostLog log (processor);

    for (const bool compressed : { true, false })
    {
        const ScopedFileSizeLimit limit (GetParam().fileSizeLimit > 0 ? GetParam().fileSizeLimit
                                                                      : RLIM_INFINITY);
        const auto saved = processor.saveCurrentPresetFromValueTreeToDisk ("Mine", compressed);
        EXPECT_TRUE (saved.failed());
        EXPECT_TRUE (saved.getErrorMessage().isNotEmpty());
    }

    EXPECT_EQ (stateOf (processor), before);
    EXPECT_TRUE (log.lines.isEmpty());
    EXPECT_EQ (home.presetFile ("Mine").existsAsFile(), fileStood);
    EXPECT_EQ (readFile (home.presetFile ("Mine")), fileStood ? old : "");
    EXPECT_EQ (strayFiles(), 0);
}

INSTANTIATE_TEST_SUITE_P (Steps,
                          UserPresetsFailingSave,
                          testing::ValuesIn (failingSaves),
                          [] (const auto& row) { return std::string (row.param.name); });

TEST_F (UserPresets, APresetThatNoReaderWouldTakeIsNotSaved)
{
    savePreset (processor, "Mine", 0.75f);
    const auto old = readFile (home.presetFile ("Mine"));
    auto tree = processor.getCurrentPresetValueTree();
    tree.setProperty ("Comment", juce::String::repeatedString ("x", 300000), nullptr);

    EXPECT_TRUE (processor.saveCurrentPresetFromValueTreeToDisk ("Mine", true).failed());
    EXPECT_EQ (readFile (home.presetFile ("Mine")), old);
}
