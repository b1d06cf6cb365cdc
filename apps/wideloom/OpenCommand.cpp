// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The options of `wideloom open`, and the putting together of music, effect, window and sound.

#include "OpenCommand.h"

#include "AudioInput.h"
#include "CommandOptions.h"
#include "EffectSetup.h"
#include "Interruption.h"
#include "LiveEffect.h"
#include "LoopedProgram.h"
#include "RealTimeOutput.h"

#include <CLI/CLI.hpp>
#include <juce_gui_basics/juce_gui_basics.h>

#include <memory>

namespace
{
constexpr double silenceRate = 48000.0; // Hz
constexpr int interruptionCheckMs = 200;

/** What is held in memory at once; some three hours at 48 kHz. */
constexpr juce::int64 longestLoop = 500'000'000; // frames

struct OpenOptions
{
    std::string path; ///< empty for silence
    EffectSetup setup;
    std::string effectPath = "host"; ///< --path
};

struct Music
{
    juce::AudioBuffer<float> samples { 2, 0 };
    double rate = silenceRate; ///< Hz
};

Problem readMusic (const std::string& path, Music& music)
{
    Problem problem;
    const auto input = AudioInput::open (path, problem);

    if (input == nullptr)
        return problem;

    if (input->getNumFrames() > longestLoop)
        return input->getName() + " is too long to be held in memory";

    const auto numFrames = static_cast<int> (input->getNumFrames());
    music.rate = input->getSampleRate();
    music.samples.setSize (2, numFrames);

    if (numFrames > 0 && ! input->read (music.samples, 0, numFrames))
        return input->getName() + " cannot be read to its end";

    return {};
}

/** Ends the message loop when the program is told to stop. */
class InterruptionWatch : private juce::Timer
{
public:
    InterruptionWatch() { startTimer (interruptionCheckMs); }

private:
    void timerCallback() override
    {
        if (wasInterrupted())
            juce::MessageManager::getInstance()->stopDispatchLoop();
    }
};

juce::String windowTitle (const std::string& path, bool isRunning)
{
    if (path.empty())
        return "WideLoom";

    const auto name = juce::String::fromUTF8 (path.c_str()).fromLastOccurrenceOf ("/", false, false);
    return "WideLoom: " + name + (isRunning ? "" : " (stopped)");
}

Problem prepareEffect (EffectPath& effect, double rate, const EffectStart& start)
{
    if (auto problem = effect.prepare (rate, LoopedProgram::maxBlockFrames))
        return problem;

    if (! start.state.isEmpty())
        if (auto problem = effect.setState (start.state))
            return problem;

    for (const auto& setting : start.settings)
        effect.setParameter (setting.index, setting.value);

    return {};
}

Problem openEditor (const OpenOptions& options, EffectStart& start)
{
    if (juce::Desktop::getInstance().isHeadless())
        return "the editor needs a display to open on; 'wideloom picture' paints it without one";

    Music music;

    if (auto problem = loadEffectPreset (options.setup, start))
        return problem;

    if (! options.path.empty())
        if (auto problem = readMusic (options.path, music))
            return problem;

    const auto effect = options.effectPath == "host" ? LiveEffect::makeHosted() : LiveEffect::makeDirect();

    if (auto problem = prepareEffect (effect->getPath(), music.rate, start))
        return problem;

    LoopedProgram program (effect->getPath(), std::move (music.samples), music.rate);
    const auto startOrStop = [&]
    {
        program.setRunning (! program.isRunning());
        effect->setTitle (windowTitle (options.path, program.isRunning()));
    };

    if (auto problem = effect->showEditor (windowTitle (options.path, true), startOrStop))
        return problem;

    const RealTimeOutput output (program);

    if (output.getDeviceName().isEmpty())
        printNotice ("there is no audio device, so nothing will be heard");

    const InterruptionWatch watch;
    juce::MessageManager::getInstance()->runDispatchLoop();
    return {};
}
} // namespace

void addOpenCommand (CLI::App& program, ExitStatus& status)
{
    const auto options = std::make_shared<OpenOptions>();
    auto* command = program.add_subcommand (
        "open",
        "Open the editor in a window, with a file playing through it in a loop; Space starts and stops");

    command->add_option ("file", options->path, "WAV, AIFF or FLAC file to loop; silence without one")
        ->type_name ("FILE");
    addEffectSetupOptions (*command, options->setup);
    addChoiceOption (*command,
                     "--path",
                     options->effectPath,
                     { "host", "direct" },
                     "Show the editor of the plug-in, as its host does, or that of the effect itself");

    command->callback (
        [options, &status]
        {
            EffectStart start;

            if (const auto problem = readEffectSettings (options->setup, start))
                refuseUsage (*problem);

            if (const auto problem = openEditor (*options, start))
            {
                printError (*problem);
                status = ExitStatus::failure;
            }
        });
}
