// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// `wideloom measure`: table, JSON and pictures, and files that are not there or must not be touched.

#include <wideloom/MeasureCommand.h>

#include "support/ScratchFolder.h"
#include "support/TestAudioFiles.h"

#include <juce_audio_formats/juce_audio_formats.h>
#include <juce_graphics/juce_graphics.h>

#include <gmock/gmock.h>

#include <memory>
#include <string>

namespace
{
using testing::HasSubstr;

/** A folder of its own for each test, and the two streams of a run. */
class MeasureCommand : public testing::Test
{
protected:
    MeasureCommand() { folder.createDirectory(); }
    ~MeasureCommand() override { folder.deleteRecursively(); }

    std::string path (const char* name) const
    {
        return folder.getChildFile (name).getFullPathName().toStdString();
    }

    /** Half a second of a constant left and right value in 16 bits. */
    std::string makeFile (const char* name, float left, float right) const
    {
        constexpr int numFrames = 24000;
        juce::AudioBuffer<float> audio (2, numFrames);
        juce::FloatVectorOperations::fill (audio.getWritePointer (0), left, numFrames);
        juce::FloatVectorOperations::fill (audio.getWritePointer (1), right, numFrames);
        auto stream = std::make_unique<juce::FileOutputStream> (folder.getChildFile (name));
        const std::unique_ptr<juce::AudioFormatWriter> writer (
            juce::WavAudioFormat().createWriterFor (stream.release(), 48000.0, 2, 16, {}, 0));
        writer->writeFromAudioSampleBuffer (audio, 0, numFrames);
        return path (name);
    }

    ExitStatus run (const MeasureOptions& options)
    {
        const auto outcome = runMeasure (options);
        output = outcome.text;
        errors = testing::PrintToString (outcome.errors);
        return outcome.status;
    }

    juce::File folder = juce::File::createTempFile ({});
    std::string output, errors;
};

TEST_F (MeasureCommand, PrintsARowForEachFile)
{
    EXPECT_EQ (run ({ .files = { makeFile ("a.wav", 0.5f, 0.5f), makeFile ("b.wav", 0.25f, -0.25f) },
                      .picture = {} }),
               ExitStatus::success);
    const auto lines = juce::StringArray::fromLines (juce::String (output).trimEnd());

    ASSERT_EQ (lines.size(), 4);
    EXPECT_THAT (lines[2].toStdString(),
                 HasSubstr ("a.wav    -6.0    -6.0     -6.0      -inf          -inf        1.000       0.0"));
    EXPECT_THAT (lines[3].toStdString(), HasSubstr ("b.wav   -12.0   -12.0     -inf     -12.0"));
    EXPECT_EQ (errors, "{}");
}

TEST_F (MeasureCommand, PrintsJson)
{
    EXPECT_EQ (run ({ .files = { makeFile ("quote\".wav", 0.5f, 0.5f) }, .json = true, .picture = {} }),
               ExitStatus::success);
    juce::var parsed;

    ASSERT_TRUE (juce::JSON::parse (output, parsed).wasOk()) << output;
    ASSERT_EQ (parsed.size(), 1);
    EXPECT_THAT (parsed[0]["file"].toString().toStdString(), HasSubstr ("quote\".wav"));
    EXPECT_EQ (static_cast<double> (parsed[0]["sampleRate"]), 48000.0);
    EXPECT_EQ (static_cast<int> (parsed[0]["figures"]["frames"]), 24000);
    EXPECT_EQ (static_cast<double> (parsed[0]["figures"]["correlation"]), 1.0);
    EXPECT_EQ (parsed[0]["figures"]["sideRmsDb"].toString(), "-inf");
}

TEST_F (MeasureCommand, NamesWhatCannotBeReadAndGoesOn)
{
    folder.getChildFile ("text.wav").replaceWithText ("no audio");
    const auto good = makeFile ("good.wav", 0.5f, 0.5f);

    EXPECT_EQ (run ({ .files = { path ("missing.wav"), path ("text.wav"), good }, .picture = {} }),
               ExitStatus::failure);
    EXPECT_THAT (errors, testing::AllOf (HasSubstr ("missing.wav"), HasSubstr ("text.wav")));
    EXPECT_THAT (output, testing::AllOf (HasSubstr ("good.wav"), testing::Not (HasSubstr ("text.wav"))));
}

TEST_F (MeasureCommand, DrawsAPictureForEachFile)
{
    const std::vector<std::string> files { makeFile ("a.wav", 0.5f, 0.5f),
                                           makeFile ("b.c.wav", 0.25f, -0.25f) };

    EXPECT_EQ (run ({ .files = { files[0] }, .picture = path ("one.png") }), ExitStatus::success) << errors;
    EXPECT_EQ (run ({ .files = files, .picture = path ("many.png") }), ExitStatus::success) << errors;

    for (const char* name : { "one.png", "many-a.png", "many-b.c.png" })
        EXPECT_TRUE (juce::ImageFileFormat::loadFrom (folder.getChildFile (name)).isValid()) << name;

    EXPECT_EQ (folder.getNumberOfChildFiles (juce::File::findFiles, "*.png"), 3);
}

TEST_F (MeasureCommand, ReplacesAPictureOnlyWhenToldTo)
{
    const auto file = makeFile ("a.wav", 0.5f, 0.5f);
    const auto picture = folder.getChildFile ("a.png");
    picture.replaceWithText ("mine");

    EXPECT_EQ (run ({ .files = { file }, .picture = path ("a.png") }), ExitStatus::failure);
    EXPECT_THAT (errors, HasSubstr ("--force"));
    EXPECT_EQ (picture.loadFileAsString(), "mine");

    EXPECT_EQ (run ({ .files = { file }, .picture = path ("a.png"), .force = true }), ExitStatus::success);
    EXPECT_TRUE (juce::ImageFileFormat::loadFrom (picture).isValid());
}

TEST_F (MeasureCommand, RefusesPictureNamesThatWouldDoHarm)
{
    const auto file = makeFile ("a.wav", 0.5f, 0.5f);

    EXPECT_EQ (run ({ .files = { file }, .picture = file }), ExitStatus::wrongUsage);
    EXPECT_EQ (run ({ .files = { file, path ("sub/a.flac") }, .picture = path ("x.png") }),
               ExitStatus::wrongUsage);
    EXPECT_EQ (run ({ .files = { path ("a.png") }, .picture = path ("a.png"), .force = true }),
               ExitStatus::wrongUsage);
    EXPECT_EQ (folder.getNumberOfChildFiles (juce::File::findFiles, "*.png"), 0);
}

TEST_F (MeasureCommand, SaysWhenAPictureCannotBeWritten)
{
    const auto file = makeFile ("a.wav", 0.5f, 0.5f);

    EXPECT_EQ (run ({ .files = { file }, .picture = path ("no such folder/a.png") }), ExitStatus::failure);
    EXPECT_THAT (errors, HasSubstr ("a.png' cannot be written"));
    EXPECT_THAT (output, HasSubstr ("a.wav")); // the figures are printed all the same
}

TEST (MeasureCommandStream, DrawsAPictureOfWhatCanBeReadOnlyOnce)
{
    for (const std::string name : { "in.wav", "in.flac" })
    {
        const ScratchFolder folder;
        writeAudio (folder / name, noise (20000), { 16, false });
        const auto piped = folder.shell ("cat " + name + " | wideloom measure - --picture piped.png");
        const auto plain = folder.shell ("wideloom measure - --picture plain.png < " + name);

        EXPECT_EQ (piped.status, 0) << piped.errors;
        EXPECT_EQ (plain.status, 0) << plain.errors;
        EXPECT_EQ (piped.output, plain.output);

        const auto picture = readWholeFile (folder / "piped.png");
        EXPECT_FALSE (picture.empty()) << name;
        EXPECT_TRUE (picture == readWholeFile (folder / "plain.png")) << name;
    }
}
} // namespace
