// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// What a stereo frame costs in the signal chain, beside the least that it could cost.

#include "MarkdownReporter.h"
#include "ShortRuns.h"

#include <engine/WideLoomAudioProcessor.h>

#include <juce_events/juce_events.h>

#include <array>
#include <cmath>
#include <cstring>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace
{
using enum ParameterId;
using Settings = std::vector<std::pair<ParameterId, float>>;

constexpr double sampleRate = 48000.0;
constexpr std::array blockSizes { 32, 64, 512, 4096 };

const std::string copyRow = "memcpy of two channels";
const std::string highPassRow = "serial side high-pass alone";
const std::string plainSettingsRow = "width, pan, law, curve and gains set, Safe Bass off";
const std::string safeBassRow = "the same, Safe Bass on";

/** An input block and the block that is worked on, which gets the input anew for each pass. */
class Blocks
{
public:
    Blocks (const benchmark::State& state, float level)
        : size (static_cast<std::size_t> (state.range (0)))
    {
        constexpr unsigned seed = 1;
        std::mt19937 engine (seed);
        std::uniform_real_distribution<float> noise (-level, level);

        for (auto* channel : { &left, &right })
        {
            input[channel == &left ? 0 : 1].resize (size);
            channel->resize (size);

            for (auto& sample : input[channel == &left ? 0 : 1])
                sample = level > 0.0f ? noise (engine) : 0.0f;
        }
    }

    void refill()
    {
        std::memcpy (left.data(), input[0].data(), size * sizeof (float));
        std::memcpy (right.data(), input[1].data(), size * sizeof (float));
        benchmark::ClobberMemory();
    }

    std::size_t size;
    std::array<std::vector<float>, 2> input;
    std::vector<float> left, right;
};

constexpr float noiseLevel = 0.5f;

void copyBlock (benchmark::State& state)
{
    Blocks blocks (state, noiseLevel);

    for ([[maybe_unused]] auto _ : state)
        blocks.refill();
}

void scaleSide (float* left, float* right, std::size_t size, float width)
{
    for (std::size_t i = 0; i < size; ++i)
    {
        const float mid = (right[i] + left[i]) * 0.5f;
        const float side = (right[i] - left[i]) * 0.5f * width;
        right[i] = mid + side;
        left[i] = mid - side;
    }
}

void widthLoop (benchmark::State& state)
{
    Blocks blocks (state, noiseLevel);
    float width = 1.25f;
    benchmark::DoNotOptimize (width);

    for ([[maybe_unused]] auto _ : state)
    {
        blocks.refill();
        scaleSide (blocks.left.data(), blocks.right.data(), blocks.size, width);
        benchmark::ClobberMemory();
    }
}

/** The filter's recurrence and nothing else; each output waits for the one before. Here a channel is the side
    signal. */
void highPass (benchmark::State& state)
{
    Blocks blocks (state, noiseLevel);
    constexpr double frequency = 150.0;
    const auto made = juce::IIRCoefficients::makeHighPass (sampleRate, frequency);
    const auto [b0, b1, b2, a1, a2] = made.coefficients;
    float v1 = 0.0f;
    float v2 = 0.0f;

    for ([[maybe_unused]] auto _ : state)
    {
        blocks.refill();

        for (std::size_t i = 0; i < blocks.size; ++i)
        {
            const float in = blocks.left[i];
            float out = b0 * in + v1;

            if (! (std::abs (out) > 1.0e-8f))
                out = 0.0f;

            v1 = b1 * in - a1 * out + v2;
            v2 = b2 * in - a2 * out;
            blocks.left[i] = out;
        }

        benchmark::ClobberMemory();
    }
}

void chain (benchmark::State& state, const Settings& settings, float level)
{
    Blocks blocks (state, level);
    WideLoomAudioProcessor processor;
    const int size = static_cast<int> (blocks.size);
    processor.setPlayConfigDetails (2, 2, sampleRate, size);

    for (const auto& [id, value] : settings)
        processor.setParameter (indexOf (id), value);

    std::array channels { blocks.left.data(), blocks.right.data() };
    juce::AudioBuffer<float> buffer (channels.data(), static_cast<int> (channels.size()), size);
    juce::MidiBuffer midi;

    for ([[maybe_unused]] auto _ : state)
    {
        blocks.refill();
        processor.processBlock (buffer, midi);
        benchmark::ClobberMemory();
    }
}

/** @returns the names of the rows in their order */
std::vector<std::string> addAll()
{
    std::vector<std::string> names;
    const Settings set { { stereoWidth, 0.7f }, { pan, 0.3f },        { panLaw, choice::second },
                         { inputGain, 0.6f },   { outputGain, 0.4f }, { panCurve, choice::first } };
    auto withSafeBass = set;
    withSafeBass.emplace_back (safeBass, 1.0f);
    auto dualPan = withSafeBass;
    dualPan.emplace_back (panCurve, choice::third);
    dualPan.emplace_back (panMode, choice::first);
    auto bypassed = set;
    bypassed.emplace_back (bypass, 1.0f);

    const auto add = [&names] (const std::string& name, auto function)
    {
        names.push_back (name);
        auto* const row = benchmark::RegisterBenchmark (name.c_str(), function);

        for (const int size : blockSizes)
            row->Arg (size);
    };
    const auto addChain = [&add] (const std::string& name, const Settings& settings, float level)
    { add (name, [settings, level] (benchmark::State& state) { chain (state, settings, level); }); };

    add (copyRow, copyBlock);
    add ("smallest width loop", widthLoop);
    add (highPassRow, highPass);
    addChain ("chain, default settings", {}, noiseLevel);
    addChain (plainSettingsRow, set, noiseLevel);
    addChain (safeBassRow, withSafeBass, noiseLevel);
    addChain ("the same with sin/cos and dual pan", dualPan, noiseLevel);
    addChain ("bypassed", bypassed, noiseLevel);
    addChain ("digital silence", withSafeBass, 0.0f);
    return names;
}

void printAims (const MarkdownReporter& reporter)
{
    constexpr int size = 512;
    constexpr double mostCopies = 12.0;
    constexpr double mostHighPasses = 1.5;
    std::printf ("At %d frames: Safe Bass off costs %.1f times memcpy (aim: at most %.0f), Safe Bass on %.2f "
                 "times the high-pass (aim: at most %.1f).\n",
                 size,
                 reporter.fastest (plainSettingsRow, size) / reporter.fastest (copyRow, size),
                 mostCopies,
                 reporter.fastest (safeBassRow, size) / reporter.fastest (highPassRow, size),
                 mostHighPasses);
}
} // namespace

int main (int argc, char** argv)
{
    if (! initialiseShortRuns (argc, argv, 100, 0.001))
        return 2;

    const juce::ScopedJuceInitialiser_GUI juce;
    MarkdownReporter reporter (addAll(), copyRow, highPassRow);
    benchmark::RunSpecifiedBenchmarks (&reporter);
    printAims (reporter);
    return 0;
}
