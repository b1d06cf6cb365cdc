// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Opens input, output and side files, renders, and lets them stand only when all went well.

#include "RenderTask.h"

#include "FileDescriptors.h"
#include "HostPath.h"
#include "ProgressBar.h"
#include "RenderReport.h"
#include "StereoMeasurement.h"

#include <algorithm>

namespace
{
std::string counted (std::int64_t count, const std::string& noun)
{
    return std::to_string (count) + " " + noun + (count == 1 ? "" : "s");
}

std::vector<std::string> noticesAfter (const RenderSettings& settings,
                                       const AudioInput& input,
                                       const AudioOutput& output)
{
    std::vector<std::string> notices;
    const auto numLate =
        std::count_if (settings.automation.begin(),
                       settings.automation.end(),
                       [&input] (const auto& event) { return event.position >= input.getNumFrames(); });

    if (numLate > 0)
        notices.push_back (counted (numLate, "automation event") + " at or behind the end, frame "
                           + std::to_string (input.getNumFrames()) + ", had no effect");

    if (const auto numClipped = output.getNumClipped(); numClipped > 0)
        notices.push_back (counted (numClipped, "sample")
                           + " clipped; lower OutputGain, or use --bits 32f with a .wav");

    return notices;
}

Problem writeState (TargetFile& file, const juce::MemoryBlock& state)
{
    if (! writeFully (file.getDescriptor(), state.getData(), state.getSize()))
        return file.getName() + " cannot be written: " + systemError();

    return file.commit();
}

/** What the options ask to keep of the settings. Comes last, so that a rendering that failed keeps nothing.
 */
Problem keepSettings (const RenderOptions& options,
                      PresetDesk* desk,
                      double sampleRate,
                      TargetFile* stateFile,
                      const juce::MemoryBlock& state,
                      std::vector<std::string>& notices)
{
    if (stateFile != nullptr)
        if (auto problem = writeState (*stateFile, state))
            return problem;

    if (desk == nullptr || options.savedPresetName.empty())
        return {};

    if (desk->isFactoryPreset (options.savedPresetName))
        notices.push_back ("a factory preset has the name '" + options.savedPresetName
                           + "' too and comes first; --preset-file loads the saved one");

    return desk->savePreset (options.savedPresetName, options.force, sampleRate);
}

std::unique_ptr<EffectPath> makePath (const RenderOptions& options)
{
    if (options.path == "direct")
        return std::make_unique<DirectPath>();

    return std::make_unique<HostPath> (! options.reportFile.empty());
}

/** Everything but the messages. Appends to `notices`. */
Problem renderFile (const RenderOptions& options,
                    const RenderSettings& settings,
                    PresetDesk* desk,
                    const RenderOptions::Task& task,
                    std::vector<std::string>& notices)
{
    AudioContainer container {};
    std::optional<SampleFormat> samples;
    auto problem = readOutputForm (options, task.output, container, samples);

    if (problem)
        return problem;

    const auto input = AudioInput::open (task.input, problem);

    if (problem)
        return problem;

    if (! samples)
    {
        samples = nearestSampleFormat (container, input->getSampleFormat());

        if (*samples != input->getSampleFormat())
            notices.push_back (describe (input->getSampleFormat()).toStdString() + " becomes "
                               + describe (*samples).toStdString() + ", which this kind of file can hold");
    }

    std::unique_ptr<TargetFile> reportFile, stateFile;

    if (! options.savedStateFile.empty())
    {
        stateFile = TargetFile::create (options.savedStateFile, options.force, problem);

        if (problem)
            return problem;
    }

    if (! options.reportFile.empty())
    {
        reportFile = TargetFile::create (options.reportFile, options.force, problem);

        if (problem)
            return problem;
    }

    const auto output = AudioOutput::create (task.output,
                                             { container, input->getSampleRate(), *samples },
                                             { options.force, ! options.noDither },
                                             problem);

    if (problem)
        return problem;

    const auto path = makePath (options);
    auto& effect = *path;
    ProgressBar bar (! options.quiet && ! options.noProgress);
    StereoMeasurement before, after;
    RenderObservers observers;
    observers.progress = [&bar] (std::int64_t done, std::int64_t total) { bar.show (done, total); };

    if (reportFile != nullptr)
    {
        before.prepare (input->getSampleRate());
        after.prepare (input->getSampleRate());
        observers.input = [&before] (const float* l, const float* r, int n) { before.add (l, r, n); };
        observers.output = [&after] (const float* l, const float* r, int n) { after.add (l, r, n); };
    }

    problem = startEffect (effect, input->getSampleRate(), settings);

    if (problem)
        return problem;

    // Automation moves parameters, but belongs to the audio and not to what it starts from.
    const auto state = effect.getState();

    if (stateFile != nullptr && state.isEmpty())
        return "the effect does not tell its state";

    problem = render (*input, effect, *output, settings, observers);

    if (! problem)
        problem = output->finish();

    if (! problem && reportFile != nullptr)
        problem = writeReport (*reportFile,
                               { task.input,
                                 task.output,
                                 input->getSampleRate(),
                                 effect.takeMeterPeaks(),
                                 before.result(),
                                 after.result(),
                                 output->getNumClipped() });

    if (! problem)
        problem = keepSettings (options, desk, input->getSampleRate(), stateFile.get(), state, notices);

    if (! problem)
        for (auto& notice : noticesAfter (settings, *input, *output))
            notices.push_back (std::move (notice));

    return problem;
}
} // namespace

Problem readRenderSettings (const RenderOptions& options, RenderSettings& settings)
{
    settings.blockFrames = options.blockFrames;

    for (const auto& assignment : options.assignments)
    {
        ParameterSetting setting;
        const auto problem = assignment.normalised ? readNormalisedSetting (assignment.text, setting)
                                                   : readTextSetting (assignment.text, setting);

        if (problem)
            return (assignment.normalised ? "--norm: " : "--set: ") + *problem;

        settings.parameters.push_back (setting);
    }

    return {};
}

Problem readOutputForm (const RenderOptions& options,
                        const std::string& output,
                        AudioContainer& container,
                        std::optional<SampleFormat>& samples)
{
    const auto named =
        output == standardStreamName ? std::optional (AudioContainer::wav) : containerForFileName (output);

    if (! named)
        return "'" + output + "' says nothing of its format; its name should end in one of "
               + knownAudioExtensions().toStdString();

    container = *named;

    if (options.bits.empty())
        return {};

    samples =
        options.bits == "32f" ? SampleFormat { 32, true } : SampleFormat { std::stoi (options.bits), false };

    if (*samples != nearestSampleFormat (container, *samples))
        return "'" + output + "' cannot hold 32-bit float; use --bits 24, or a .wav";

    return {};
}

ExitStatus runRenderTask (const RenderOptions& options,
                          const RenderSettings& settings,
                          PresetDesk* desk,
                          const RenderOptions::Task& task)
{
    std::vector<std::string> notices;
    const auto problem = renderFile (options, settings, desk, task, notices);

    if (problem)
        printError (*problem);

    if (! options.quiet)
        for (const auto& notice : notices)
            printNotice (inputName (task.input) + ": " + notice);

    return problem ? ExitStatus::failure : ExitStatus::success;
}
