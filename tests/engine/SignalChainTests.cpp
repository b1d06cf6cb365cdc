// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The running chain against the plain one, bit for bit, and some samples worked out by hand.

#include "support/PlainChain.h"
#include "support/TestSignals.h"

#include <engine/CrzParameterManager.h>
#include <engine/SignalChain.h>

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <memory>
#include <sstream>

namespace
{
using enum ParameterId;

constexpr double sampleRate = 48000.0;
constexpr std::array blockSizes { 0, 1, 2, 3, 4, 5, 31, 32, 33, 63, 64, 127, 512, 1000, 4096 };
constexpr float notANumber = std::numeric_limits<float>::quiet_NaN();

/** StereoWidth and Pan as written down beforehand, sample by sample. */
struct ScriptedControls
{
    float stereoWidth (int sample) const noexcept { return widths[sample]; }
    float pan (int sample) const noexcept { return pans[sample]; }
    float inputGain() const noexcept { return gainIn; }
    float outputGain() const noexcept { return gainOut; }

    const float* widths;
    const float* pans;
    float gainIn, gainOut;
};

/** The running chain and the plain one side by side, with one table. */
class Twins
{
public:
    Twins()
    {
        for (const auto& row : parameterTable)
        {
            manager.addParameter (std::make_unique<CrzParameter> (&manager, row.mapping).release());
            set (row.id, row.defaultValue);
        }

        plain.setSampleRate (sampleRate);
        set (safeBassFreq, rowOf (safeBassFreq).defaultValue);
    }

    void set (ParameterId id, float value)
    {
        manager.setParameterValue (indexOf (id), value);
        plain.setParameter (id, value);

        if (id == safeBassFreq)
            filter.adopt (SafeBassCoefficients::make (sampleRate, static_cast<double> (value))->coefficients);
    }

    /** Processes the input twice. @returns the first difference in samples or peaks, or nothing */
    std::string compare (const StereoSignal& input, const StereoSignal& image)
    {
        auto actual = input;
        auto expected = input;
        plain.process (expected.left.data(),
                       expected.right.data(),
                       expected.size(),
                       [&image] (int sample)
                       {
                           const auto i = static_cast<std::size_t> (sample);
                           return PlainChain::Image { image.left[i], image.right[i] };
                       });

        const ScriptedControls controls { image.left.data(),
                                          image.right.data(),
                                          linearGain (plain.valueOf (inputGain)),
                                          linearGain (plain.valueOf (outputGain)) };
        const auto peaks = chain.process (readChainSettings (manager, true),
                                          controls,
                                          filter,
                                          actual.left.data(),
                                          actual.right.data(),
                                          actual.size());
        const auto expectedIn = plain.takeInputPeaks();
        const auto expectedOut = plain.takeOutputPeaks();

        const auto difference = firstDifference (actual, expected);
        const auto peakDifference = firstDifference (
            std::array { peaks.input.left, peaks.input.right, peaks.output.left, peaks.output.right },
            std::array { expectedIn.left, expectedIn.right, expectedOut.left, expectedOut.right });

        if (difference.empty() && peakDifference.empty())
            return {};

        return describe (input.size()) + difference + (peakDifference.empty() ? "" : "; peaks, ")
               + peakDifference;
    }

private:
    std::string describe (int numSamples) const
    {
        std::ostringstream text;
        text << "block of " << numSamples << " with";

        for (const auto& row : parameterTable)
            if (const float value = plain.valueOf (row.id); value != row.defaultValue)
                text << " " << row.name << "=" << value;

        text << ": ";
        return text.str();
    }

    CrzParameterManager manager { nullptr };
    PlainChain plain;
    SafeBassFilter filter;
    SignalChain chain;
};

float anyPosition (TestRandom& random)
{
    constexpr std::array telling { 0.0f, 1.0f, 0.5f, 0.50000006f, 0.49999997f, 0.25f, 0.75f };
    return random.chance (0.5) ? random.oneOf (telling) : random.between (0.0f, 1.0f);
}

/** A position that nobody should send, but somebody may. */
float anyValue (TestRandom& random)
{
    constexpr std::array odd { -0.0f,     -0.5f,    1.5f,
                               1.0e-45f,  -1.0e30f, std::numeric_limits<float>::infinity(),
                               notANumber };
    return random.chance (0.2) ? random.oneOf (odd) : anyPosition (random);
}

/** StereoWidth (left) and Pan (right) that now and then change. */
StereoSignal anyImage (TestRandom& random, int length, float (*position) (TestRandom&))
{
    StereoSignal image;
    constexpr std::array changesPerSample { 0.0, 0.02, 0.3, 1.0 };
    const double changes = random.oneOf (changesPerSample);
    float width = position (random);
    float pan = position (random);

    for (int i = 0; i < length; ++i)
    {
        if (random.chance (changes))
            (random.chance (0.5) ? width : pan) = position (random);

        image.left.push_back (width);
        image.right.push_back (pan);
    }

    return image;
}

// A tenth and two tenths in double end up on the exact floats or beside them, depending on the way taken.
const std::array choiceValues { 0.0f,
                                0.1f,
                                0.2f,
                                0.3f,
                                0.05f,
                                0.15f,
                                std::nextafter (0.1f, 1.0f),
                                std::nextafter (0.1f, 0.0f),
                                std::nextafter (0.2f, 1.0f),
                                1.0f,
                                -0.0f };
constexpr std::array switches { bypass,   muteAll, muteMid,   muteSide, phaseAlignSide,
                                safeBass, swapLR,  phaseFlip, mono };
} // namespace

TEST (SignalChain, GivesThePlainChainsBitsForAllSwitchesAndChoices)
{
    TestRandom random (testSeed());
    TestSignals signals (random);
    Twins twins;
    constexpr std::array shortBlocks { 1, 2, 3, 4, 5, 31, 32, 33, 63, 64, 127 };

    for (unsigned setting = 0; setting < 1u << switches.size(); ++setting)
    {
        for (std::size_t bit = 0; bit < switches.size(); ++bit)
            twins.set (switches[bit], (setting >> bit & 1u) != 0 ? 1.0f : 0.0f);

        for (const float curve : { 0.0f, 0.1f, 0.2f })
            for (const float law : { 0.0f, 0.1f, 0.2f })
                for (const float levels : { 0.0f, 0.1f })
                    for (const float mode : { 0.0f, 0.1f })
                    {
                        twins.set (panCurve, curve);
                        twins.set (panLaw, law);
                        twins.set (msMode, levels);
                        twins.set (panMode, mode);
                        twins.set (inputGain, anyPosition (random));
                        twins.set (outputGain, anyPosition (random));

                        // Several blocks in a row, so that the filter's history matters.
                        for (int block = 0; block < 4; ++block)
                        {
                            const int length = random.oneOf (shortBlocks);
                            const auto image = anyImage (random, length, anyPosition);
                            ASSERT_EQ (twins.compare (signals.piece (length), image), "");
                        }
                    }
    }
}

TEST (SignalChain, GivesThePlainChainsBitsForOddValues)
{
    TestRandom random (testSeed());
    TestSignals signals (random);
    Twins twins;
    constexpr std::array switchValues { 0.0f, 1.0f, 0.5f, 0.50000006f, -1.0f, 7.0f, notANumber };
    constexpr std::array frequencies { 0.0f, -0.0f, -0.01f, 1.0e-6f, 0.286f, 1.0f, 1.3f };

    for (int round = 0; round < 15000; ++round)
    {
        for (const auto id : switches)
            if (random.chance (0.2))
                twins.set (id, random.oneOf (switchValues));

        // Otherwise most blocks would pass by nearly everything.
        twins.set (bypass, random.chance (0.05) ? 1.0f : 0.5f);
        twins.set (muteAll, random.chance (0.1) ? 1.0f : 0.0f);

        for (const auto id : { panCurve, panLaw, msMode, panMode })
            if (random.chance (0.3))
                twins.set (id, random.oneOf (choiceValues));

        for (const auto id : { inputGain, outputGain })
            if (random.chance (0.1))
                twins.set (id, anyValue (random));

        if (random.chance (0.1))
            twins.set (safeBassFreq, random.oneOf (frequencies));

        const int length = random.oneOf (blockSizes);
        ASSERT_EQ (twins.compare (signals.piece (length), anyImage (random, length, anyValue)), "")
            << "round " << round;
    }
}

//==============================================================================================================

namespace
{
struct Setting
{
    ParameterId id;
    float value;
};

/** One sample through the chain. Expected values are worked out by hand; all of them are exact. */
struct SampleCase
{
    const char* name;
    std::vector<Setting> settings;
    float left, right;
    float expectedLeft, expectedRight;
};

void PrintTo (const SampleCase& row, std::ostream* stream)
{
    *stream << row.name;
}

class SignalChainSample : public testing::TestWithParam<SampleCase>
{
};

// With one half, one quarter and the like nothing is rounded.
const SampleCase sampleCases[] = {
    { "Defaults", {}, 0.5f, 0.25f, 0.5f, 0.25f },
    { "WidthZeroIsMid", { { stereoWidth, 0.0f } }, 1.0f, 0.5f, 0.75f, 0.75f },
    { "WidthZeroBound", { { stereoWidth, 0.0f }, { msMode, 0.1f } }, 1.0f, 0.5f, 1.125f, 1.125f },
    { "WidthHalfBound", { { stereoWidth, 0.25f }, { msMode, 0.1f } }, 1.0f, 0.0f, 0.875f, 0.375f },
    { "WidthTwice", { { stereoWidth, 1.0f } }, 1.0f, 0.5f, 1.25f, 0.25f },
    { "WidthTwiceBound", { { stereoWidth, 1.0f }, { msMode, 0.1f } }, 1.0f, 0.5f, 0.875f, -0.125f },
    { "MsModeInBetweenFixesMid", { { stereoWidth, 1.0f }, { msMode, 0.2f } }, 1.0f, 0.5f, 1.25f, 0.25f },
    { "LeftLinear", { { pan, 0.0f }, { panCurve, 0.0f } }, 1.0f, 0.5f, 1.0f, 0.0f },
    { "RightLinear", { { pan, 1.0f }, { panCurve, 0.0f } }, 1.0f, 0.5f, 0.0f, 0.5f },
    { "HalfLeftLinear", { { pan, 0.25f }, { panCurve, 0.0f } }, 1.0f, 0.5f, 1.0f, 0.25f },
    { "RightLogarithmic", { { pan, 0.875f }, { panCurve, 0.1f } }, 1.0f, 0.5f, 0.5f, 0.5f },
    { "LeftSinCos", { { pan, 0.0f }, { panCurve, 0.2f } }, 1.0f, 0.5f, 1.0f, 0.0f },
    { "CurveInBetweenIsSinCos", { { pan, 1.0f }, { panCurve, 0.15f } }, 1.0f, 0.5f, 0.0f, 0.5f },
    { "CentreSinCosHasNoStep", { { panCurve, 0.2f } }, 1.0f, 0.5f, 1.0f, 0.5f },
    { "Law3Left", { { pan, 0.0f }, { panLaw, 0.1f } }, 0.5f, 0.5f, 0.75f, 0.0f },
    { "Law6Left", { { pan, 0.0f }, { panLaw, 0.2f } }, 0.5f, 0.5f, 1.0f, 0.0f },
    { "Law6HalfRight", { { pan, 0.75f }, { panLaw, 0.2f }, { panCurve, 0.0f } }, 1.0f, 0.5f, 0.5f, 0.75f },
    { "LawInBetweenIsNone", { { pan, 0.0f }, { panLaw, 0.3f } }, 0.5f, 0.5f, 0.5f, 0.0f },
    { "DualPanLeftIsMid", { { pan, 0.0f }, { panMode, 0.0f } }, 1.0f, 0.5f, 0.75f, 0.0f },
    { "DualPanHalfRightNarrows",
      { { pan, 0.75f }, { panMode, 0.0f }, { panCurve, 0.0f } },
      1.0f,
      0.5f,
      0.4375f,
      0.625f },
    { "DualPanBoundHalfLeft",
      { { pan, 0.25f }, { panMode, 0.0f }, { panCurve, 0.0f }, { msMode, 0.1f } },
      1.0f,
      0.0f,
      0.875f,
      0.1875f },
    { "ModeInBetweenIsBalance", { { pan, 0.0f }, { panMode, 0.05f } }, 1.0f, 0.5f, 1.0f, 0.0f },
    { "Swap", { { swapLR, 1.0f } }, 1.0f, 0.5f, 0.5f, 1.0f },
    { "FlipNegatesBoth", { { phaseFlip, 1.0f } }, 1.0f, 0.5f, -1.0f, -0.5f },
    { "Mono", { { mono, 1.0f } }, 1.0f, 0.5f, 0.75f, 0.75f },
    { "SwapThenMono", { { swapLR, 1.0f }, { mono, 1.0f } }, 1.0f, 0.5f, 0.75f, 0.75f },
    { "SwapComesBeforePan", { { swapLR, 1.0f }, { pan, 0.0f } }, 1.0f, 0.5f, 0.5f, 0.0f },
    { "MuteMid", { { muteMid, 1.0f } }, 1.0f, 0.5f, 0.25f, -0.25f },
    { "MuteMidAligned", { { muteMid, 1.0f }, { phaseAlignSide, 1.0f } }, 1.0f, 0.5f, -0.25f, -0.25f },
    { "AlignAloneDoesNothing", { { phaseAlignSide, 1.0f } }, 1.0f, 0.5f, 1.0f, 0.5f },
    { "AlignWithMuteSide", { { muteSide, 1.0f }, { phaseAlignSide, 1.0f } }, 1.0f, 0.5f, 0.75f, 0.75f },
    { "MuteSide", { { muteSide, 1.0f } }, 1.0f, 0.5f, 0.75f, 0.75f },
    { "MuteMidAndSide", { { muteMid, 1.0f }, { muteSide, 1.0f } }, 1.0f, 0.5f, 0.0f, 0.0f },
    { "MuteComesAfterPan", { { muteSide, 1.0f }, { pan, 0.0f } }, 1.0f, 0.5f, 0.5f, 0.5f },
    { "MuteAll", { { muteAll, 1.0f }, { inputGain, 1.0f } }, 1.0f, 0.5f, 0.0f, 0.0f },
    { "BypassGoesBeforeMuteAll",
      { { bypass, 1.0f }, { muteAll, 1.0f }, { inputGain, 1.0f }, { pan, 0.0f } },
      1.0f,
      0.5f,
      1.0f,
      0.5f },
    { "SwitchAtOneHalfIsOff", { { muteAll, 0.5f }, { swapLR, 0.5f } }, 1.0f, 0.5f, 1.0f, 0.5f },
    { "SwitchJustAboveOneHalfIsOn", { { swapLR, 0.50000006f } }, 1.0f, 0.5f, 0.5f, 1.0f },
    { "NegativeZeroIsSilence", { { phaseFlip, 1.0f }, { stereoWidth, 1.0f } }, -0.0f, 0.0f, -0.0f, 0.0f },
    { "OneSilentChannelIsNoSilence", { { stereoWidth, 0.0f } }, 0.0f, 1.0f, 0.5f, 0.5f },
};
} // namespace

TEST_P (SignalChainSample, ComesOutAsWorkedOutByHand)
{
    const auto& row = GetParam();
    PlainChain plain;
    CrzParameterManager manager (nullptr);

    for (const auto& parameter : parameterTable)
    {
        manager.addParameter (std::make_unique<CrzParameter> (&manager, parameter.mapping).release());
        manager.setParameterValue (indexOf (parameter.id), parameter.defaultValue);
    }

    for (const auto& setting : row.settings)
    {
        manager.setParameterValue (indexOf (setting.id), setting.value);
        plain.setParameter (setting.id, setting.value);
    }

    const float width = manager.getParameterValue (indexOf (stereoWidth));
    const float position = manager.getParameterValue (indexOf (pan));
    const StereoSignal expected { { row.expectedLeft }, { row.expectedRight } };
    StereoSignal running { { row.left }, { row.right } };
    auto reference = running;

    SafeBassFilter filter;
    SignalChain().process (readChainSettings (manager, false),
                           ScriptedControls { &width,
                                              &position,
                                              linearGain (plain.valueOf (inputGain)),
                                              linearGain (plain.valueOf (outputGain)) },
                           filter,
                           running.left.data(),
                           running.right.data(),
                           1);
    plain.process (reference.left.data(), reference.right.data(), 1);

    EXPECT_EQ (firstDifference (running, expected), "");
    EXPECT_EQ (firstDifference (reference, expected), "");
}

INSTANTIATE_TEST_SUITE_P (Settings,
                          SignalChainSample,
                          testing::ValuesIn (sampleCases),
                          [] (const auto& row) { return row.param.name; });

TEST (SignalChain, SinCosStepsThreeDecibelsBesideTheCentre)
{
    // sin (pi / 4) = 0.70710678; the distance of 0.51 from the centre takes c to 0.98: sin (0.245 pi).
    const auto nearGainOf = [] (float position)
    {
        ImageChoices choices;
        choices.panCurve = PanCurve::sinCos;
        return imageFactorsFor (0.5f, position, choices);
    };
    EXPECT_EQ (nearGainOf (0.5f).left, 1.0f);
    EXPECT_NEAR (nearGainOf (0.50000006f).left, 0.70710678, 1.0e-6);
    EXPECT_NEAR (nearGainOf (0.51f).left, 0.69591280, 1.0e-6);
    EXPECT_NEAR (nearGainOf (0.25f).right, 0.38268343, 1.0e-6);
    EXPECT_EQ (nearGainOf (0.25f).left, 1.0f);
}

TEST (SignalChain, GainsRunFromMinusTwelveToTwelveDecibels)
{
    for (const auto& [normalised, linear] : { std::pair { 0.0f, 0.251188643150958 },
                                              std::pair { 0.25f, 0.501187233627272 },
                                              std::pair { 0.75f, 1.99526231496888 },
                                              std::pair { 1.0f, 3.98107170553497 } })
        EXPECT_FLOAT_EQ (linearGain (normalised), static_cast<float> (linear)) << normalised;

    EXPECT_EQ (linearGain (0.5f), 1.0f);
}
