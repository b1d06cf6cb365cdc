// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "MeasureCommand.h"

#include "AudioInput.h"
#include "FiguresTable.h"
#include "Goniometer.h"
#include "Interruption.h"
#include "StereoMeasurement.h"

#include <CLI/CLI.hpp>
#include <juce_graphics/juce_graphics.h>

#include <algorithm>
#include <memory>

namespace
{
juce::File fileOf (const std::string& path)
{
    return juce::File::getCurrentWorkingDirectory().getChildFile (juce::String::fromUTF8 (path.c_str()));
}

juce::Result writePicture (const juce::Image& image, const juce::File& target)
{
    juce::TemporaryFile temporary (target);

    {
        juce::FileOutputStream stream (temporary.getFile());

        if (! stream.openedOk())
            return stream.getStatus();

        if (! juce::PNGImageFormat().writeImageToStream (image, stream))
            return juce::Result::fail ("the picture cannot be written");

        stream.flush();

        if (stream.getStatus().failed())
            return stream.getStatus();
    }

    return temporary.overwriteTargetFileWithTemporary()
               ? juce::Result::ok()
               : juce::Result::fail ("the picture cannot be put in place");
}
/** Opens the file, calls `prepare (sampleRate)` and then `consume (left, right, numSamples)` block by block.
 */
template <typename Prepare, typename Consume>
juce::Result readStereo (const std::string& path, Prepare&& prepare, Consume&& consume)
{
    juce::String problem;
    const auto input = AudioInput::open (juce::String::fromUTF8 (path.c_str()), problem);

    if (input == nullptr)
        return juce::Result::fail (problem);

    prepare (input->getSampleRate());
    constexpr int blockSize = 8192;
    juce::AudioBuffer<float> block (2, blockSize);

    for (juce::int64 position = 0; position < input->getNumFrames(); position += blockSize)
    {
        if (wasInterrupted())
            return juce::Result::fail (input->getName() + ": interrupted");

        const auto count =
            static_cast<int> (std::min<juce::int64> (blockSize, input->getNumFrames() - position));

        if (! input->read (block, position, count))
            return juce::Result::fail (input->getName() + ": cannot be read to its end");

        consume (block.getReadPointer (0), block.getReadPointer (1), count);
    }

    return juce::Result::ok();
}

struct MeasuredFile
{
    juce::String name; ///< as given
    double sampleRate = 0.0;
    StereoFigures figures;
};

juce::Result measureFile (const std::string& path, MeasuredFile& measured)
{
    measured.name = juce::String::fromUTF8 (path.c_str());
    StereoMeasurement measurement;
    auto result = readStereo (
        path,
        [&] (double sampleRate)
        {
            measured.sampleRate = sampleRate;
            measurement.prepare (sampleRate);
        },
        [&] (const float* left, const float* right, int count) { measurement.add (left, right, count); });
    measured.figures = measurement.result();
    return result;
}

/** Reads the file a second time, because the peak of the whole decides on the scale. */
juce::Result drawPicture (const std::string& path, const MeasuredFile& measured, const juce::File& picture)
{
    Goniometer goniometer (std::max (measured.figures.leftPeakDb, measured.figures.rightPeakDb));
    auto result = readStereo (
        path,
        [] (double) {},
        [&] (const float* left, const float* right, int count) { goniometer.add (left, right, count); });

    return result.failed()
               ? result
               : writePicture (goniometer.draw (fileOf (path).getFileName(), measured.figures), picture);
}

std::string jsonText (const std::vector<MeasuredFile>& files)
{
    juce::Array<juce::var> rows;

    for (const auto& file : files)
    {
        auto* const object = new juce::DynamicObject();
        rows.add (object);
        object->setProperty ("file", file.name);
        object->setProperty ("sampleRate", file.sampleRate);
        object->setProperty ("figures", toJson (file.figures));
    }

    return juce::JSON::toString (rows).toStdString() + "\n";
}

std::string tableText (const std::vector<MeasuredFile>& files)
{
    std::vector<FiguresRow> rows;
    rows.reserve (files.size());

    for (const auto& file : files)
        rows.push_back ({ file.name, file.figures });

    return rows.empty() ? std::string() : figuresTable (rows).toStdString();
}
} // namespace

std::vector<juce::File> pictureFiles (const MeasureOptions& options, juce::String& error)
{
    std::vector<juce::File> pictures;

    if (! options.picture)
        return pictures;

    const auto pattern = fileOf (*options.picture);

    if (! pattern.hasFileExtension ("png"))
    {
        error = "--picture takes a name that ends in .png, not \""
                + juce::String::fromUTF8 (options.picture->c_str()) + "\"";
        return {};
    }

    for (const auto& path : options.files)
    {
        const auto name = options.files.size() == 1 ? pattern.getFileName()
                                                    : pattern.getFileNameWithoutExtension() + "-"
                                                          + fileOf (path).getFileNameWithoutExtension()
                                                          + pattern.getFileExtension();
        const auto picture = pattern.getSiblingFile (name);

        if (std::find (pictures.begin(), pictures.end(), picture) != pictures.end())
        {
            error = "two files would share the picture " + picture.getFullPathName()
                    + "; measure them one at a time";
            return {};
        }

        for (const auto& other : options.files)
            if (fileOf (other) == picture)
            {
                error =
                    "the picture would replace " + picture.getFullPathName() + ", which is to be measured";
                return {};
            }

        pictures.push_back (picture);
    }

    return pictures;
}

MeasureOutcome runMeasure (const MeasureOptions& options)
{
    MeasureOutcome outcome;
    const auto fail = [&outcome] (ExitStatus status, const juce::String& message)
    {
        outcome.status = status;
        outcome.errors.push_back (message.toStdString());
    };

    juce::String error;
    const auto pictures = pictureFiles (options, error);

    if (error.isNotEmpty())
        fail (ExitStatus::wrongUsage, error);

    for (const auto& picture : pictures)
        if (picture.exists() && ! options.force)
            fail (ExitStatus::failure, picture.getFullPathName() + ": exists already; --force replaces it");

    if (outcome.status != ExitStatus::success)
        return outcome;

    std::vector<MeasuredFile> measured;

    for (std::size_t i = 0; i < options.files.size(); ++i)
    {
        const auto& path = options.files[i];
        MeasuredFile row;

        if (const auto result = measureFile (path, row); result.failed())
        {
            fail (ExitStatus::failure, result.getErrorMessage());
            continue;
        }

        measured.push_back (row);

        if (pictures.empty())
            continue;

        if (const auto result = drawPicture (path, row, pictures[i]); result.failed())
            fail (ExitStatus::failure, pictures[i].getFullPathName() + ": " + result.getErrorMessage());
    }

    outcome.text = options.json ? jsonText (measured) : tableText (measured);
    return outcome;
}

void addMeasureCommand (CLI::App& program, ExitStatus& status)
{
    auto* const command = program.add_subcommand (
        "measure", "Print the stereo figures of audio files, and draw goniometer pictures");
    const auto options = std::make_shared<MeasureOptions>();

    command->add_option ("FILE", options->files, "WAV, AIFF or FLAC files, mono or stereo")->required();
    command->add_flag ("--json", options->json, "Print JSON in place of the table");
    command
        ->add_option (
            "--picture",
            options->picture,
            "Draw a goniometer into this PNG file; with several FILEs, OUT.png stands for one picture each, "
            "OUT-<name of FILE>.png")
        ->type_name ("OUT.png");
    command->add_flag ("--force", options->force, "Replace pictures that exist");

    command->callback (
        [options, &status]
        {
            const auto outcome = runMeasure (*options);
            status = outcome.status;

            if (const auto problem = printResult (outcome.text))
            {
                printError (*problem);
                status = ExitStatus::failure;
            }

            for (const auto& error : outcome.errors)
                printError (error);
        });
}
