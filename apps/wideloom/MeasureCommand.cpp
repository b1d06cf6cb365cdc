// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Reads each file once for its figures and, for a picture, once more.

#include "MeasureCommand.h"

#include "AudioInput.h"
#include "FiguresTable.h"
#include "FileDescriptors.h"
#include "Goniometer.h"
#include "Interruption.h"
#include "ReadableText.h"
#include "StereoMeasurement.h"
#include "TargetFile.h"

#include <CLI/CLI.hpp>
#include <juce_graphics/juce_graphics.h>

#include <algorithm>
#include <filesystem>
#include <memory>

namespace
{
Problem writePicture (const juce::Image& image, TargetFile& target)
{
    juce::MemoryOutputStream png;

    if (! juce::PNGImageFormat().writeImageToStream (image, png)
        || ! writeFully (target.getDescriptor(), png.getData(), png.getDataSize()))
        return target.getName() + " cannot be written: " + systemError();

    return target.commit();
}

/** Calls `consume (left, right, numSamples)` block by block. */
template <typename Consume>
Problem readStereo (AudioInput& input, Consume&& consume)
{
    constexpr int blockSize = 8192;
    juce::AudioBuffer<float> block (2, blockSize);

    for (juce::int64 position = 0; position < input.getNumFrames(); position += blockSize)
    {
        if (wasInterrupted())
            return input.getName() + ": interrupted";

        const auto count =
            static_cast<int> (std::min<juce::int64> (blockSize, input.getNumFrames() - position));

        if (! input.read (block, position, count))
            return input.getName() + ": it cannot be read to its end; the disk or the network failed";

        consume (block.getReadPointer (0), block.getReadPointer (1), count);
    }

    return {};
}

struct MeasuredFile
{
    juce::String name; ///< as given
    double sampleRate = 0.0;
    StereoFigures figures;
};

Problem measureFile (const std::string& path, AudioInput& input, MeasuredFile& measured)
{
    measured.name = readableText (path);
    measured.sampleRate = input.getSampleRate();
    StereoMeasurement measurement;
    measurement.prepare (measured.sampleRate);
    auto problem = readStereo (input,
                               [&] (const float* left, const float* right, int count)
                               { measurement.add (left, right, count); });
    measured.figures = measurement.result();
    return problem;
}

/** Reads the input a second time, because the peak of the whole decides on the scale. */
Problem drawPicture (const std::string& path,
                     AudioInput& input,
                     const MeasuredFile& measured,
                     const std::filesystem::path& picture,
                     bool replace)
{
    Problem problem;
    const auto target = TargetFile::create (picture.string(), replace, problem);

    if (problem)
        return problem;

    Goniometer goniometer (std::max (measured.figures.leftPeakDb, measured.figures.rightPeakDb));
    problem = input.restart();

    if (! problem)
        problem = readStereo (input,
                              [&] (const float* left, const float* right, int count)
                              { goniometer.add (left, right, count); });

    if (problem)
        return problem;

    const auto title = readableText (std::filesystem::path (path).filename().string());
    return writePicture (goniometer.draw (title, measured.figures), *target);
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
std::filesystem::path wholePath (const std::filesystem::path& path)
{
    std::error_code ignored;
    return std::filesystem::absolute (path, ignored).lexically_normal();
}

/** Where the picture of each file goes: the name asked for when there is one file, else that name with "-"
   and the name of the file before its extension. A problem when a name does not end in ".png", when two files
    would share a picture, or when a picture would replace one of the files. */
Problem findPictures (const MeasureOptions& options, std::vector<std::filesystem::path>& pictures)
{
    if (! options.picture)
        return {};

    const std::filesystem::path pattern (*options.picture);
    const auto extension = pattern.extension().string();

    if (! readableText (extension).equalsIgnoreCase (".png"))
        return "--picture takes a name that ends in .png, not '" + *options.picture + "'";

    for (const auto& path : options.files)
    {
        auto picture = pattern;

        if (options.files.size() > 1)
            picture.replace_filename (pattern.stem().string() + "-"
                                      + std::filesystem::path (path).stem().string() + extension);

        if (std::find (pictures.begin(), pictures.end(), picture) != pictures.end())
            return "two files would share the picture '" + picture.string() + "'; measure them one at a time";

        for (const auto& other : options.files)
            if (wholePath (other) == wholePath (picture))
                return "the picture would replace '" + picture.string() + "', which is to be measured";

        pictures.push_back (picture);
    }

    return {};
}
} // namespace

MeasureOutcome runMeasure (const MeasureOptions& options)
{
    MeasureOutcome outcome;
    const auto fail = [&outcome] (ExitStatus status, const std::string& message)
    {
        outcome.status = status;
        outcome.errors.push_back (message);
    };

    std::vector<std::filesystem::path> pictures;

    if (const auto problem = findPictures (options, pictures))
        fail (ExitStatus::wrongUsage, *problem);

    // Before any work is done; a picture that comes to be meanwhile is noticed, too.
    std::error_code ignored;

    for (const auto& picture : pictures)
        if (! options.force && std::filesystem::exists (picture, ignored))
            fail (ExitStatus::failure, "'" + picture.string() + "' exists already; --force replaces it");

    if (outcome.status != ExitStatus::success)
        return outcome;

    std::vector<MeasuredFile> measured;

    for (std::size_t i = 0; i < options.files.size(); ++i)
    {
        const auto& path = options.files[i];
        MeasuredFile row;
        Problem problem;
        const auto input = AudioInput::open (path, problem);

        if (! problem)
            problem = measureFile (path, *input, row);

        if (problem)
        {
            fail (ExitStatus::failure, *problem);
            continue;
        }

        measured.push_back (row);

        if (pictures.empty())
            continue;

        problem = drawPicture (path, *input, row, pictures[i], options.force);

        if (problem)
            fail (ExitStatus::failure, *problem);
    }

    outcome.text = options.json ? jsonText (measured) : tableText (measured);
    return outcome;
}

void addMeasureCommand (CLI::App& program, ExitStatus& status)
{
    auto* const command = program.add_subcommand (
        "measure", "Print the stereo figures of audio files, and draw goniometer pictures");
    const auto options = std::make_shared<MeasureOptions>();

    command
        ->add_option ("FILE", options->files, "WAV, AIFF or FLAC files, mono or stereo; - is standard input")
        ->required();
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
