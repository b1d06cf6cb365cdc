// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The processor as a host sees it: blocks, meters, flags, parameter slots.

#include "support/PlainChain.h"
#include "support/Rendering.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace
{
using enum ParameterId;

constexpr double sampleRate = 48000.0;

/** A value that a host might send for a parameter, legal or not. */
float anyValueFor (const ParameterRow& row, TestRandom& random)
{
    constexpr std::array switchValues { 0.0f, 1.0f, 0.5f, 0.50000006f, -1.0f, 2.0f };
    constexpr std::array choiceValues { 0.0f, 0.1f, 0.2f, 0.05f, 0.15f, 0.3f, 1.0f };
    constexpr std::array positions { 0.0f, 0.5f, 1.0f, 0.25f, 0.75f, -0.01f, 1.25f };

    switch (row.shape)
    {
        case ParameterShape::onOff:
            return random.oneOf (switchValues);
        case ParameterShape::twoChoices:
        case ParameterShape::threeChoices:
            return random.oneOf (choiceValues);
        case ParameterShape::continuous:
            break;
    }

    return random.chance (0.4) ? random.oneOf (positions) : random.between (0.0f, 1.0f);
}

std::array<float, 4> takePeaks (WideLoomAudioProcessor& processor)
{
    const auto input = processor.getInputVuMeterVisuals();
    const auto output = processor.getOutputVuMeterVisuals();
    return { input.left, input.right, output.left, output.right };
}

std::array<float, 4> takePeaks (PlainChain& plain)
{
    const auto input = plain.takeInputPeaks();
    const auto output = plain.takeOutputPeaks();
    return { input.left, input.right, output.left, output.right };
}
} // namespace

TEST (WideLoomAudioProcessor, GivesThePlainChainsBitsThroughLongSessions)
{
    TestRandom random (testSeed());
    TestSignals signals (random);
    constexpr std::array blockSizes { 0, 1, 2, 3, 4, 5, 31, 32, 33, 63, 64, 127, 512, 1000, 4096 };
    constexpr std::array sampleRates { 8000.0, 44100.0, 48000.0, 96000.0, 192000.0 };
    constexpr int sessions = 20;
    constexpr int blocksPerSession = 300;

    for (int session = 0; session < sessions; ++session)
    {
        WideLoomAudioProcessor processor;
        PlainChain plain;

        for (int block = 0; block < blocksPerSession; ++block)
        {
            // No rate is known for the first blocks.
            if (block == 3 || random.chance (0.01))
            {
                const double rate = random.oneOf (sampleRates);
                prepare (processor, rate);
                plain.setSampleRate (rate);
            }

            for (const auto& row : parameterTable)
            {
                // Bypass and mute all hide the rest, so they are rarely touched and soon set back.
                const bool hides = row.id == bypass || row.id == muteAll;

                if (random.chance (hides ? 0.05 : 0.1) || (hides && plain.valueOf (row.id) > 0.5f))
                {
                    const float value = anyValueFor (row, random);
                    set (processor, row.id, value);
                    plain.setParameter (row.id, value);
                }
            }

            auto actual = signals.piece (random.oneOf (blockSizes));
            auto expected = actual;
            render (processor, actual);
            plain.process (expected.left.data(), expected.right.data(), expected.size());

            ASSERT_EQ (firstDifference (actual, expected), "") << "session " << session << " block " << block;

            if (random.chance (0.3))
            {
                ASSERT_EQ (firstDifference (takePeaks (processor), takePeaks (plain)), "") << "peaks";
            }
        }
    }
}

TEST (WideLoomAudioProcessor, LeavesBypassedSamplesAlone)
{
    TestRandom random (testSeed());
    TestSignals signals (random);
    WideLoomAudioProcessor processor;
    prepare (processor, sampleRate);

    // Everything else is set to change as much as it can.
    for (const auto id : { bypass, inputGain, outputGain, stereoWidth, swapLR, phaseFlip, muteAll, safeBass })
        set (processor, id, 1.0f);

    for (int round = 0; round < 50; ++round)
    {
        const auto before = signals.piece (777);
        auto after = before;
        render (processor, after);
        ASSERT_EQ (std::memcmp (after.left.data(), before.left.data(), sizeof (float) * 777), 0);
        ASSERT_EQ (std::memcmp (after.right.data(), before.right.data(), sizeof (float) * 777), 0);

        const auto peaks = takePeaks (processor);
        EXPECT_EQ (peaks[0], peaks[2]);
        EXPECT_EQ (peaks[1], peaks[3]);
    }
}

TEST (WideLoomAudioProcessor, ClearsOutputsPastTheSecond)
{
    WideLoomAudioProcessor processor;
    prepare (processor, sampleRate, 4);
    juce::MidiBuffer midi;
    constexpr int numChannels = 5;
    constexpr int numSamples = 33;
    juce::AudioBuffer<float> buffer (numChannels, numSamples);

    for (int channel = 0; channel < numChannels; ++channel)
        juce::FloatVectorOperations::fill (buffer.getWritePointer (channel), 0.5f, numSamples);

    processor.processBlock (buffer, midi);

    EXPECT_EQ (buffer.getMagnitude (0, 0, numSamples), 0.5f);
    EXPECT_EQ (buffer.getMagnitude (1, 0, numSamples), 0.5f);
    EXPECT_EQ (buffer.getMagnitude (2, 0, numSamples), 0.0f);
    EXPECT_EQ (buffer.getMagnitude (3, 0, numSamples), 0.0f);
    EXPECT_EQ (buffer.getMagnitude (4, 0, numSamples), 0.5f) << "no output of the processor's";
}

TEST (WideLoomAudioProcessor, CopesWithBuffersThatAreTooSmall)
{
    WideLoomAudioProcessor processor;
    prepare (processor, sampleRate);
    set (processor, muteAll, 1.0f);
    juce::MidiBuffer midi;
    juce::AudioBuffer<float> none (0, 64), mono (1, 64), fewerThanTheOutputs (2, 64), empty (2, 0);
    mono.setSample (0, 5, 1.0f);
    fewerThanTheOutputs.clear();
    prepare (processor, sampleRate, 6);

    for (auto* buffer : { &none, &mono, &fewerThanTheOutputs, &empty })
        processor.processBlock (*buffer, midi);

    EXPECT_EQ (mono.getSample (0, 5), 1.0f);
}

//==============================================================================================================

namespace
{
struct MeterCase
{
    const char* name;
    std::vector<std::pair<ParameterId, float>> settings;
    float left, right;
    float inputLeft, inputRight, outputLeft, outputRight;
};

void PrintTo (const MeterCase& row, std::ostream* stream)
{
    *stream << row.name;
}

class ProcessorMeters : public testing::TestWithParam<MeterCase>
{
};

constexpr float notANumber = std::numeric_limits<float>::quiet_NaN();
constexpr float plus12dB = 3.98107192f; // 10 to the power of the float 0.6

const MeterCase meterCases[] = {
    { "NegativeFullScale", {}, -1.0f, 0.25f, 1.0f, 0.25f, 1.0f, 0.25f },
    { "OverFullScaleIsNotClipped", {}, 2.0f, -4.0f, 2.0f, 4.0f, 2.0f, 4.0f },
    { "InputGainComesFirst",
      { { inputGain, 1.0f }, { muteSide, 1.0f } },
      0.5f,
      0.5f,
      0.5f * plus12dB,
      0.5f * plus12dB,
      0.5f * plus12dB,
      0.5f * plus12dB },
    { "OutputGainShowsAtTheOutput",
      { { outputGain, 1.0f } },
      0.5f,
      0.5f,
      0.5f,
      0.5f,
      0.5f * plus12dB,
      0.5f * plus12dB },
    { "MuteAllKeepsTheInputMoving",
      { { muteAll, 1.0f }, { swapLR, 1.0f } },
      0.5f,
      0.25f,
      0.5f,
      0.25f,
      0.0f,
      0.0f },
    { "SwappedChannelsShowSwapped", { { swapLR, 1.0f } }, 0.5f, 0.0f, 0.0f, 0.5f, 0.0f, 0.5f },
    { "MonoIsInTheInput", { { mono, 1.0f } }, 1.0f, 0.5f, 0.75f, 0.75f, 0.75f, 0.75f },
    { "PanIsNot", { { pan, 0.0f } }, 0.5f, 0.5f, 0.5f, 0.5f, 0.5f, 0.0f },
    { "BypassShowsTheRawInput",
      { { bypass, 1.0f }, { inputGain, 1.0f }, { swapLR, 1.0f } },
      0.5f,
      0.25f,
      0.5f,
      0.25f,
      0.5f,
      0.25f },
    { "NaNRaisesNothing", {}, notANumber, 0.5f, 0.0f, 0.5f, 0.0f, 0.0f },
    { "SilenceShowsNothing", { { inputGain, 1.0f } }, 0.0f, -0.0f, 0.0f, 0.0f, 0.0f, 0.0f },
};
} // namespace

TEST_P (ProcessorMeters, ShowPeaksOnce)
{
    const auto& row = GetParam();
    WideLoomAudioProcessor processor;
    prepare (processor, sampleRate);

    for (const auto& [id, value] : row.settings)
        set (processor, id, value);

    // The peak stands in the block's rest, behind a whole number of anything.
    auto signal = constantSignal (0.0f, 0.0f, 70);
    signal.left[69] = row.left;
    signal.right[69] = row.right;
    render (processor, signal);

    const std::array expected { row.inputLeft, row.inputRight, row.outputLeft, row.outputRight };
    EXPECT_EQ (takePeaks (processor), expected);
    EXPECT_EQ (takePeaks (processor), (std::array { 0.0f, 0.0f, 0.0f, 0.0f }));
}

INSTANTIATE_TEST_SUITE_P (Settings,
                          ProcessorMeters,
                          testing::ValuesIn (meterCases),
                          [] (const auto& row) { return row.param.name; });

TEST (WideLoomAudioProcessor, MetersKeepTheHighestUntilRead)
{
    WideLoomAudioProcessor processor;
    prepare (processor, sampleRate);

    for (const float level : { 0.25f, 0.75f, 0.5f, notANumber })
    {
        auto block = constantSignal (level, -level, 40);
        render (processor, block);
    }

    EXPECT_EQ (takePeaks (processor), (std::array { 0.75f, 0.75f, 0.75f, 0.75f }));
}

//==============================================================================================================

TEST (WideLoomAudioProcessor, RaisesEditorFlagsForWritesInsideTheTableOnly)
{
    WideLoomAudioProcessor processor;
    auto& manager = *processor.getParameterManager();
    const auto takeFlags = [&manager]
    {
        return std::array { manager.getParameterNeedsToBeUpdatedInEditor(),
                            manager.getPresetNameNeedsToBeUpdatedInEditor(),
                            manager.getUndoButtonsNeedToBeUpdatedInEditor(),
                            manager.getSampleRateNeedsToBeUpdatedInEditor() };
    };
    const std::array nothing { false, false, false, false };

    EXPECT_EQ (takeFlags(), nothing) << "a new table";

    for (int index = 0; index < manager.getNumberOfParameters(); ++index)
        EXPECT_TRUE (manager.getParameter (index)->hasFlagChanged()) << index;

    for (const int outside : { -1, 18, 20, 49, 50, 100000 })
        processor.setParameter (outside, 0.7f);

    EXPECT_EQ (takeFlags(), nothing) << "slots past the table";
    EXPECT_EQ (processor.getParameter (20), 0.0f);

    processor.setParameter (17, 7.5f);
    EXPECT_EQ (processor.getParameter (17), 7.5f) << "stored as it came";
    EXPECT_EQ (takeFlags(), (std::array { true, true, true, false }));
    EXPECT_EQ (takeFlags(), nothing) << "consumed";

    prepare (processor, sampleRate);
    auto block = constantSignal (0.0f, 0.0f, 0);
    render (processor, block);
    EXPECT_EQ (takeFlags(), (std::array { false, false, false, true }));
    render (processor, block);
    EXPECT_EQ (takeFlags(), nothing) << "the same rate";
}

TEST (WideLoomAudioProcessor, TellsTheRateOfTheLatestBlock)
{
    WideLoomAudioProcessor processor;
    auto block = constantSignal (0.0f, 0.0f, 1);
    EXPECT_EQ (processor.getLastSampleRateString(), "(unknown)");
    prepare (processor, 48000.0);
    EXPECT_EQ (processor.getLastSampleRateString(), "(unknown)");
    render (processor, block);
    EXPECT_EQ (processor.getLastSampleRateString(), "48000 Hz");
}

TEST (WideLoomAudioProcessor, SetsTheTwoMutesAsOneChoice)
{
    WideLoomAudioProcessor processor;
    const auto mutes = [&processor]
    {
        return std::pair { processor.getParameter (indexOf (muteMid)),
                           processor.getParameter (indexOf (muteSide)) };
    };

    processor.setMuteMsOption (MuteMsOption::muteSideOnly);
    EXPECT_EQ (mutes(), (std::pair { 0.0f, 1.0f }));
    processor.setMuteMsOption (MuteMsOption::muteMidOnly);
    EXPECT_EQ (mutes(), (std::pair { 1.0f, 0.0f }));
    processor.setMuteMsOption (static_cast<MuteMsOption> (3));
    EXPECT_EQ (mutes(), (std::pair { 1.0f, 0.0f }));
    processor.setMuteMsOption (MuteMsOption::muteNothing);
    EXPECT_EQ (mutes(), (std::pair { 0.0f, 0.0f }));
}

TEST (WideLoomAudioProcessor, ShowsHostsTheTableAndReservedSlots)
{
    WideLoomAudioProcessor processor;
    ASSERT_EQ (processor.getNumParameters(), 50);

    struct Row
    {
        const char* name;
        float value;
        const char* text;
    };

    const Row rows[] = { { "Bypass", 0.0f, "BYPASS OFF" },
                         { "StereoWidth", 0.5f, "100 %" },
                         { "Pan", 0.5f, "C" },
                         { "InputGain", 0.5f, "0.0dB" },
                         { "OutputGain", 0.5f, "0.0dB" },
                         { "SwapLR", 0.0f, "NO SWAP" },
                         { "PhaseFlip", 0.0f, "PHASE NORMAL" },
                         { "Mono", 0.0f, "MONO OFF" },
                         { "MuteAll", 0.0f, "NO MUTE-ALL" },
                         { "MuteMid", 0.0f, "NO MUTE-MID" },
                         { "MuteSide", 0.0f, "NO MUTE-SIDE" },
                         { "PanCurve", 0.1f, "logarithmic" },
                         { "PanLaw", 0.0f, "-0dB" },
                         { "MsMode", 0.0f, "fix mid" },
                         { "PanMode", 0.1f, "balance" },
                         { "PhaseAlignSide", 0.0f, "NO PHASE ALIGN" },
                         { "SafeBassFreq", 0.286f, "150Hz" },
                         { "SafeBass", 0.0f, "SAFE BASS OFF" } };

    for (int index = 0; index < 50; ++index)
    {
        const auto row = index < 18 ? rows[index] : Row { "reserved", 0.0f, "" };
        EXPECT_EQ (processor.getParameterName (index), row.name);
        EXPECT_EQ (processor.getParameterText (index), row.text);
        EXPECT_EQ (processor.getParameterDefaultValue (index), row.value);
        EXPECT_EQ (processor.getParameter (index), row.value);
    }
}
