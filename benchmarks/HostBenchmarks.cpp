// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// What a block costs from the worker that the native host calls, beside the signal chain alone.

#include "MarkdownReporter.h"
#include "ShortRuns.h"

#include <engine/WideLoomAudioProcessor.h>
#include <host/CEffectTypeRTAS.h>
#include <host/FourCC.h>
#include <host/JucePlugInProcess.h>
#include <host/S_RTASP_CustomDataAdmin.h>

#include <array>
#include <cstring>
#include <string>
#include <vector>

namespace
{
constexpr std::array blockSizes { 1, 32, 64, 512 };
constexpr std::int32_t stereoFormat = 1;
constexpr double sampleRate = 44100.0;

const std::string copyRow = "memcpy of two channels";
const std::string chainRow = "the same and the chain";
const std::string workerRow = "worker";

/** Two channels of input and output. */
struct Ports
{
    explicit Ports (const benchmark::State& state)
        : size (static_cast<std::size_t> (state.range (0)))
    {
        for (auto& channel : channels)
            channel.assign (size, 0.25f);
    }

    void copyInput()
    {
        std::memcpy (channels[2].data(), channels[0].data(), size * sizeof (float));
        std::memcpy (channels[3].data(), channels[1].data(), size * sizeof (float));
        benchmark::ClobberMemory();
    }

    std::size_t size;
    std::array<std::vector<float>, 4> channels;
};

void copyBlock (benchmark::State& state)
{
    Ports ports (state);

    for ([[maybe_unused]] auto _ : state)
        ports.copyInput();
}

void chain (benchmark::State& state)
{
    Ports ports (state);
    WideLoomAudioProcessor processor;
    const int size = static_cast<int> (ports.size);
    processor.setPlayConfigDetails (2, 2, sampleRate, size);
    std::array channels { ports.channels[2].data(), ports.channels[3].data() };
    juce::AudioBuffer<float> buffer (channels.data(), static_cast<int> (channels.size()), size);
    juce::MidiBuffer midi;

    for ([[maybe_unused]] auto _ : state)
    {
        ports.copyInput();
        processor.processBlock (buffer, midi);
        benchmark::ClobberMemory();
    }
}

/** An instance without a host, called as a host calls it. */
void worker (benchmark::State& state)
{
    CEffectTypeRTAS type (fourCC ("type"), fourCC ("prod"), 0);
    type.DefineStemFormats (stereoFormat, stereoFormat, 0);
    JucePlugInProcess process;
    process.SetProcessType (&type);
    process.Initialize();

    Ports ports (state);
    SRTASPCustomData data { &process, nullptr, nullptr, 2, 2, 0, 1 };
    SPlugInRTGlobals globals {};
    globals.quantum = static_cast<std::int32_t> (ports.size);

    std::array<float*, 4> words {};

    struct
    {
        std::uint32_t unused0, unused4;
        void* customData;
        float** ports[4];
    } instance { 0, 0, &data, {} };

    for (std::size_t port = 0; port < words.size(); ++port)
    {
        words[port] = ports.channels[port].data();
        instance.ports[port] = &words[port];
    }

    auto* const record = reinterpret_cast<SPlugInRTInstance*> (&instance);

    for ([[maybe_unused]] auto _ : state)
    {
        JucePlugInProcess::RenderAudioWorker (record, &globals);
        benchmark::ClobberMemory();
    }

    process.Free();
}

void printAim (const MarkdownReporter& reporter)
{
    constexpr double mostNanoseconds = 60.0;

    for (const int size : blockSizes)
        std::printf ("At %d frames the worker costs %.0f ns a block more than the copy and the chain (aim: "
                     "at most %.0f).\n",
                     size,
                     (reporter.fastest (workerRow, size) - reporter.fastest (chainRow, size)) * size,
                     mostNanoseconds);
}
} // namespace

int main (int argc, char** argv)
{
    if (! initialiseShortRuns (argc, argv, 25, 0.01))
        return 2;

    // An instance of its own stands all the while: the last one to go would end JUCE.
    const juce::ScopedJuceInitialiser_GUI juce;
    const JucePlugInProcess standing;
    MarkdownReporter reporter ({ copyRow, chainRow, workerRow }, copyRow, chainRow);

    for (const int size : blockSizes)
    {
        benchmark::RegisterBenchmark (copyRow.c_str(), copyBlock)->Arg (size);
        benchmark::RegisterBenchmark (chainRow.c_str(), chain)->Arg (size);
        benchmark::RegisterBenchmark (workerRow.c_str(), worker)->Arg (size);
    }

    benchmark::RunSpecifiedBenchmarks (&reporter);
    printAim (reporter);
    return 0;
}
