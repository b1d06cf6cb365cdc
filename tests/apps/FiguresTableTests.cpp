// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The table of figures: columns that line up, and what is said of samples that are not finite.

#include <wideloom/FiguresTable.h>

#include <gmock/gmock.h>

#include <limits>

namespace
{
constexpr double infinity = std::numeric_limits<double>::infinity();

StereoFigures someFigures()
{
    StereoFigures figures;
    figures.numFrames = 48000;
    figures.leftPeakDb = -0.04;
    figures.rightPeakDb = -123.44;
    figures.midRmsDb = -18.26;
    figures.sideRmsDb = -infinity;
    figures.sideBassRmsDb = -30.0;
    figures.correlation = -0.0004;
    figures.monoSumLossDb = -3.0103;
    return figures;
}

TEST (FiguresTable, LinesUpWhateverTheLabelsAndFigures)
{
    StereoFigures silence;
    silence.leftPeakDb = silence.rightPeakDb = silence.midRmsDb = silence.sideRmsDb = -infinity;

    EXPECT_EQ (figuresTable ({ { "a.wav", someFigures() }, { "a long name.wav", silence } }).toStdString(),
               "signal           peak L  peak R  mid RMS  side RMS  side <150 Hz  correlation  mono sum\n"
               "                   dBFS    dBFS     dBFS      dBFS          dBFS        -1..1        dB\n"
               "a.wav               0.0  -123.4    -18.3      -inf         -30.0        0.000      -3.0\n"
               "a long name.wav    -inf    -inf     -inf      -inf           n/a          n/a       n/a\n");
}

TEST (FiguresTable, NamesTheSignalsWithSamplesThatAreNotFinite)
{
    auto damaged = someFigures();
    damaged.numNonFiniteSamples = 3;
    const auto text = figuresTable ({ { "good.wav", someFigures() }, { "bad.wav", damaged } }).toStdString();

    EXPECT_THAT (text, testing::HasSubstr ("bad.wav: 3 samples are not a finite number"));
    EXPECT_THAT (text, testing::Not (testing::HasSubstr ("good.wav:")));
}

TEST (StereoFiguresJson, HoldsEveryFigureAndIsValid)
{
    auto figures = someFigures();
    figures.correlation = {};
    const auto text = juce::JSON::toString (toJson (figures));
    juce::var parsed;

    ASSERT_TRUE (juce::JSON::parse (text, parsed).wasOk()) << text;
    EXPECT_EQ (static_cast<int> (parsed["frames"]), 48000);
    EXPECT_EQ (static_cast<double> (parsed["midRmsDb"]), -18.26);
    EXPECT_EQ (static_cast<double> (parsed["monoSumLossDb"]), -3.0103);
    EXPECT_EQ (parsed["sideRmsDb"].toString(), "-inf");
    EXPECT_TRUE (parsed.hasProperty ("correlation") && parsed["correlation"].isVoid());
}
} // namespace
