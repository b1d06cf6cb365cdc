// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// "wideloom picture": what it paints, and what it refuses.

#include <engine/WideLoomAudioProcessor.h>
#include <wideloom/EditorPicture.h>
#include <wideloom/PictureCommand.h>

#include <CLI/CLI.hpp>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace
{
/** A file that is not there yet, and will not be there afterwards. */
struct PictureFile
{
    ~PictureFile() { file.deleteFile(); }

    std::string path() const { return file.getFullPathName().toStdString(); }
    juce::Image load() const { return juce::ImageFileFormat::loadFrom (file); }

    juce::File file = juce::File::createTempFile (".png");
};

ExitStatus run (std::vector<std::string> arguments)
{
    auto status = ExitStatus::success;
    CLI::App program;
    addPictureCommand (program, status);
    arguments.insert (arguments.begin(), "picture");
    std::reverse (arguments.begin(), arguments.end()); // CLI11 takes them from the back

    try
    {
        program.parse (arguments);
    }
    catch (const CLI::ParseError&)
    {
        return ExitStatus::wrongUsage;
    }

    return status;
}

int countDifferences (const juce::Image& a, const juce::Image& b)
{
    int count = 0;

    for (int y = 0; y < juce::jmin (a.getHeight(), b.getHeight()); ++y)
        for (int x = 0; x < juce::jmin (a.getWidth(), b.getWidth()); ++x)
            count += a.getPixelAt (x, y) != b.getPixelAt (x, y);

    return count;
}

TEST (PictureCommand, WritesAPictureOfTheHeightAskedFor)
{
    const PictureFile picture;
    ASSERT_EQ (run ({ picture.path(), "--height", "250" }), ExitStatus::success);
    EXPECT_EQ (picture.load().getBounds(), juce::Rectangle<int> (375, 250));

    // The same once more gives the same, in place of the old picture.
    const auto first = picture.load();
    ASSERT_EQ (run ({ picture.path(), "--height", "250", "--force" }), ExitStatus::success);
    EXPECT_EQ (countDifferences (first, picture.load()), 0);
}

TEST (PictureCommand, ReplacesAFileOnlyWhenForced)
{
    const PictureFile picture;
    ASSERT_TRUE (picture.file.replaceWithText ("mine"));
    EXPECT_EQ (run ({ picture.path() }), ExitStatus::failure);
    EXPECT_EQ (picture.file.loadFileAsString(), "mine");

    ASSERT_EQ (run ({ picture.path(), "--height", "250", "--force" }), ExitStatus::success);
    EXPECT_EQ (picture.load().getHeight(), 250);
}

struct ChangeCase
{
    const char* name;
    std::vector<std::string> arguments;
};

class PictureCommandOption : public testing::TestWithParam<ChangeCase>
{
};

TEST_P (PictureCommandOption, ChangesThePicture)
{
    const PictureFile plain, changed;
    ASSERT_EQ (run ({ plain.path(), "--height", "250" }), ExitStatus::success);

    auto arguments = GetParam().arguments;
    arguments.insert (arguments.begin(), { changed.path(), "--height", "250" });
    ASSERT_EQ (run (arguments), ExitStatus::success);
    EXPECT_GT (countDifferences (plain.load(), changed.load()), 20);
}

INSTANTIATE_TEST_SUITE_P (Options,
                          PictureCommandOption,
                          testing::Values (ChangeCase { "Dark", { "--scheme", "dark" } },
                                           ChangeCase { "Expert", { "--expert" } },
                                           ChangeCase { "Save", { "--panel", "save" } },
                                           ChangeCase { "Info", { "--panel", "info" } },
                                           ChangeCase { "Resizing", { "--panel", "resizing" } },
                                           ChangeCase { "Warning", { "--panel", "warning" } },
                                           ChangeCase { "Menu", { "--panel", "menu" } },
                                           ChangeCase { "Meters", { "--meters", "-6,-12.5" } },
                                           ChangeCase { "Preset", { "--preset", "MASTER SafeBass 250 Hz" } },
                                           ChangeCase { "Setting", { "--set", "Pan=L50" } }),
                          [] (const auto& row) { return std::string (row.param.name); });

struct RefusalCase
{
    const char* name;
    std::string fileEnding;
    std::vector<std::string> arguments;
    ExitStatus status;
};

class PictureCommandRefusal : public testing::TestWithParam<RefusalCase>
{
};

TEST_P (PictureCommandRefusal, LeavesNoFile)
{
    const auto& row = GetParam();
    const auto file = juce::File::createTempFile (row.fileEnding);
    auto arguments = row.arguments;
    arguments.insert (arguments.begin(), file.getFullPathName().toStdString());
    EXPECT_EQ (run (arguments), row.status);
    EXPECT_FALSE (file.existsAsFile());
}

INSTANTIATE_TEST_SUITE_P (
    Mistakes,
    PictureCommandRefusal,
    testing::Values (RefusalCase { "NoPng", ".wav", {}, ExitStatus::wrongUsage },
                     RefusalCase { "NoPngForced", ".wav", { "--force" }, ExitStatus::wrongUsage },
                     RefusalCase { "NoSuchPreset", ".png", { "--preset", "init" }, ExitStatus::failure },
                     RefusalCase { "EmptyPreset", ".png", { "--preset", "" }, ExitStatus::wrongUsage },
                     RefusalCase { "NoSuchParameter", ".png", { "--set", "Pam=C" }, ExitStatus::wrongUsage },
                     RefusalCase { "NoSuchValue", ".png", { "--set", "Pan=far" }, ExitStatus::wrongUsage },
                     RefusalCase { "NoMeters", ".png", { "--meters", "" }, ExitStatus::wrongUsage },
                     RefusalCase { "OneMeter", ".png", { "--meters", "-6" }, ExitStatus::wrongUsage },
                     RefusalCase { "MeterOfWords", ".png", { "--meters", "a,b" }, ExitStatus::wrongUsage },
                     RefusalCase { "LoudMeter", ".png", { "--meters", "0,25" }, ExitStatus::wrongUsage },
                     RefusalCase { "NoHeight", ".png", { "--height", "0" }, ExitStatus::wrongUsage },
                     RefusalCase { "HugeHeight", ".png", { "--height", "100000" }, ExitStatus::wrongUsage },
                     RefusalCase { "NoSuchPanel", ".png", { "--panel", "all" }, ExitStatus::wrongUsage },
                     RefusalCase { "PanelByNumber", ".png", { "--panel", "2" }, ExitStatus::wrongUsage },
                     RefusalCase { "NoSuchScheme", ".png", { "--scheme", "red" }, ExitStatus::wrongUsage },
                     RefusalCase { "SchemeByNumber", ".png", { "--scheme", "0" }, ExitStatus::wrongUsage }),
    [] (const auto& row) { return std::string (row.param.name); });

TEST (EditorPicture, LeavesNoEditorOpen)
{
    WideLoomAudioProcessor processor;
    const auto image = paintEditorPicture (processor, { 300, true, true, EditorPanel::menu, {} });
    EXPECT_GE (image.getWidth(), 450);
    EXPECT_EQ (processor.getActiveEditor(), nullptr);
    EXPECT_EQ (processor.getEditorHeight(), 300);

    // The info screen names the rate at which it plays.
    EXPECT_EQ (processor.getLastSampleRateString(), "48000 Hz");
}
} // namespace
