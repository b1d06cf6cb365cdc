// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Texts of values and values of texts, for every kind of mapping.

#include "support/Rendering.h"

#include <gtest/gtest.h>

#include <limits>

namespace
{
constexpr float infinity = std::numeric_limits<float>::infinity();
constexpr float notANumber = std::numeric_limits<float>::quiet_NaN();
constexpr float justAboveHalf = 0.50000006f;

juce::String textOf (int kind, float value)
{
    const CrzParameterValueMapper mapper (nullptr,
                                          static_cast<CrzParameterValueMapper::CrzMappingENUM> (kind));
    return mapper.normed2RealValueAsString (value);
}

float valueOf (int kind, const char* text)
{
    const CrzParameterValueMapper mapper (nullptr,
                                          static_cast<CrzParameterValueMapper::CrzMappingENUM> (kind));
    return mapper.string2normedValueAsFloat (text);
}

struct TextCase
{
    int kind;
    float value;
    const char* text;
};

// No value lies halfway between two texts: which way those go is up to the number printing.
constexpr TextCase textCases[] = {
    { 1, 0.0f, "0 %" },          { 1, 0.123f, "12 %" },
    { 1, 1.0f, "100 %" },        { 1, -0.25f, "-25 %" },
    { 2, 0.0f, "0 %" },          { 2, 0.5f, "100 %" },
    { 2, 0.503f, "101 %" },      { 2, 1.0f, "200 %" },
    { 3, 0.0f, "0.00" },         { 3, 0.286f, "0.29" },
    { 3, 1.0f, "1.00" },         { 14, 0.0f, "L" },
    { 14, 0.29f, "L" },          { 14, 0.3f, "L+R" },
    { 14, 0.7f, "L+R" },         { 14, 0.71f, "R" },
    { 15, 0.0f, "L99" },         { 15, 0.3f, "L40" },
    { 15, 0.5f, "C" },           { 15, justAboveHalf, "R0" },
    { 15, 0.9f, "R79" },         { 15, 1.0f, "R99" },
    { 16, 0.0f, "L100" },        { 16, 0.25f, "L50" },
    { 16, 0.49999997f, "L0" },   { 16, 0.5f, "C" },
    { 16, 0.505f, "R1" },        { 16, 1.0f, "R100" },
    { 17, 0.0f, "-INF" },        { 17, -0.0f, "-INF" },
    { 17, -0.5f, "-INF" },       { 17, 0.001f, "-48.0" },
    { 17, 0.1f, "-8.0" },        { 17, 0.25f, "0.0" },
    { 17, 0.26f, "+0.3" },       { 17, 0.5f, "+6.0" },
    { 17, 1.0f, "+12.0" },       { 18, 0.0f, "-12.0dB" },
    { 18, 0.286f, "-5.1dB" },    { 18, 0.5f, "0.0dB" },
    { 18, 0.75f, "6.0dB" },      { 18, 1.0f, "12.0dB" },
    { 19, 0.0f, "-24.0dB" },     { 19, 0.49f, "-0.5dB" },
    { 19, 0.5f, "+/-0dB" },      { 19, 0.5003f, "+0.0dB" },
    { 19, 0.51f, "+0.5dB" },     { 19, 1.0f, "+24.0dB" },
    { 20, 0.0f, "OFF" },         { 20, -0.0f, "OFF" },
    { 20, 0.0001f, "10Hz" },     { 20, 0.286f, "150Hz" },
    { 20, 1.0f, "500Hz" },       { 21, 0.0f, "0Hz" },
    { 21, 1.0f, "0Hz" }, // without a processor there is no rate
    { 22, 0.0f, "linear" },      { 22, 0.0999f, "linear" },
    { 22, 0.1f, "logarithmic" }, { 22, 0.1999f, "logarithmic" },
    { 22, 0.2f, "sin/cos" },     { 22, 1.0f, "sin/cos" },
    { 23, 0.0f, "-0dB" },        { 23, 0.0999f, "-0dB" },
    { 23, 0.1f, "-3dB" },        { 23, 0.1999f, "-3dB" },
    { 23, 0.2f, "-6dB" },        { 23, 0.9f, "-6dB" },
    { 24, 0.0999f, "fix mid" },  { 24, 0.1f, "bind levels" },
    { 24, 0.2f, "bind levels" }, { 25, 0.0999f, "dual pan" },
    { 25, 0.1f, "balance" },     { 25, 1.0f, "balance" },
    { 0, 0.25f, "0.25" },        { 27, 0.25f, "0.25" },
    { -1, 0.25f, "0.25" },       { 1000000, 0.25f, "0.25" },
};

struct SwitchCase
{
    int kind;
    const char *off, *on;
};

constexpr SwitchCase switchCases[] = {
    { 4, "OFF", "ON" },
    { 5, "BYPASS OFF", "BYPASS ACTIVE" },
    { 6, "UN-MUTE", "MUTE ACTIVE" },
    { 7, "NO MUTE-ALL", "MUTE-ALL ACTIVE" },
    { 8, "NO MUTE-MID", "MUTE-MID ACTIVE" },
    { 9, "NO MUTE-SIDE", "MUTE-SIDE ACTIVE" },
    { 10, "SAFE BASS OFF", "SAFE BASS ON" },
    { 11, "NO SWAP", "SWAP ACTIVE" },
    { 12, "PHASE NORMAL", "PHASE FLIPPED" },
    { 13, "MONO OFF", "MONO ACTIVE" },
    { 26, "NO PHASE ALIGN", "ALIGN PHASE ACTIVE" },
};

/** What each kind shows for 0.0, from kind 0 on. */
constexpr const char* zeroTexts[] = {
    "0.00",        "0 %",         "0 %",          "0.00",          "OFF",      "BYPASS OFF",     "UN-MUTE",
    "NO MUTE-ALL", "NO MUTE-MID", "NO MUTE-SIDE", "SAFE BASS OFF", "NO SWAP",  "PHASE NORMAL",   "MONO OFF",
    "L",           "L99",         "L100",         "-INF",          "-12.0dB",  "-24.0dB",        "OFF",
    "0Hz",         "linear",      "-0dB",         "fix mid",       "dual pan", "NO PHASE ALIGN",
};

struct ParseCase
{
    int kind;
    const char* text;
    float value;
};

constexpr ParseCase parseCases[] = {
    { 2, "150 %", 0.75f },
    { 2, "  80", 0.4f },
    { 2, "250", 1.0f },
    { 2, "-5", 0.0f },
    { 2, "abc", 0.0f },
    { 2, "", 0.0f },
    { 2, "nan", 0.0f },
    { 2, "inf", 0.0f },
    { 2, "-inf", 0.0f },
    { 16, "L100", 0.0f },
    { 16, "C", 0.5f },
    { 16, " center ", 0.5f },
    { 16, "r50", 0.75f },
    { 16, "25", 0.625f },
    { 16, "-25", 0.375f },
    { 16, "\tR100 ", 1.0f },
    { 16, "++10", 0.55f },
    { 16, "rR20", 0.6f },
    { 16, "L 50", 0.5f }, // the number ends at the space
    { 16, "R12.5", 0.56f },
    { 16, "L200", 0.0f },
    { 16, "R99999999999999999999999999999999999999999999", 1.0f },
    { 16, "abc", 0.5f },
    { 16, "", 0.5f },
    { 16, "nan", 0.5f },
    { 18, "6", 0.75f },
    { 18, "+6 dB", 0.75f },
    { 18, "-12dB", 0.0f },
    { 18, "100", 4.6666665f }, // limited by whoever asks
    { 18, "abc", 0.5f },
    { 18, "nan", 0.5f },
    { 18, "inf", 0.5f },
    { 20, "OFF", 0.0f },
    { 20, "off", 0.0f },
    { 20, "9", 0.0f },
    { 20, "10", 0.0f },
    { 20, "255Hz", 0.5f },
    { 20, "1000", 1.0f },
    { 20, "-50", 0.0f },
    { 20, "nan", 0.0f },
    { 20, "inf", 0.0f },
};
} // namespace

TEST (CrzParameterValueMapper, ShowsValuesAsTexts)
{
    for (const auto& row : textCases)
        EXPECT_EQ (textOf (row.kind, row.value), row.text) << "kind " << row.kind << " at " << row.value;

    for (const auto& row : switchCases)
    {
        for (const float off : { 0.0f, 0.5f, -1.0f })
            EXPECT_EQ (textOf (row.kind, off), row.off) << off;

        for (const float on : { justAboveHalf, 1.0f, 2.0f })
            EXPECT_EQ (textOf (row.kind, on), row.on) << on;
    }
}

TEST (CrzParameterValueMapper, ShowsValuesThatAreNotFiniteAsZero)
{
    static_assert (std::size (zeroTexts) == 27);

    for (int kind = 0; kind < 27; ++kind)
        for (const float value : { 0.0f, notANumber, infinity, -infinity })
            EXPECT_EQ (textOf (kind, value), zeroTexts[kind]) << "kind " << kind << " at " << value;
}

TEST (CrzParameterValueMapper, ShowsHugeValuesWithoutHarm)
{
    for (int kind = -1; kind < 28; ++kind)
        for (const float value : { -3.0e38f, 3.0e38f, 1.0e10f, -1.0e10f, 1.0e-45f })
            EXPECT_TRUE (textOf (kind, value).isNotEmpty()) << "kind " << kind << " at " << value;
}

TEST (CrzParameterValueMapper, ShowsFractionsOfTheSampleRate)
{
    struct RateCase
    {
        double sampleRate;
        float value;
        const char* text;
    };

    constexpr RateCase rows[] = { { 48000.0, 0.0f, "0Hz" },       { 48000.0, 0.25f, "6000Hz" },
                                  { 48000.0, 0.5f, "12.0kHz" },   { 48000.0, 1.0f, "24.0kHz" },
                                  { 19999.0, 1.0f, "9999Hz" },    { 20000.0, 1.0f, "10.0kHz" },
                                  { 44100.0, 0.00101f, "22Hz" },  { 0.0, 1.0f, "0Hz" },
                                  { 48000.0, notANumber, "0Hz" }, { 48000.0, 1.0e30f, "2147483.8kHz" } };
    WideLoomAudioProcessor processor;
    CrzParameter parameter (processor.getParameterManager(),
                            CrzParameterValueMapper::mappingSampleRateFraction);

    for (const auto& row : rows)
    {
        prepare (processor, row.sampleRate);
        parameter.setValue (row.value);
        EXPECT_EQ (parameter.getValueAsText(), row.text) << row.sampleRate << " " << row.value;
    }
}

TEST (CrzParameterValueMapper, ReadsTexts)
{
    for (const auto& row : parseCases)
        EXPECT_FLOAT_EQ (valueOf (row.kind, row.text), row.value) << "kind " << row.kind << ": " << row.text;

    for (int kind = -1; kind < 28; ++kind)
    {
        if (kind == 2 || kind == 16 || kind == 18 || kind == 20)
            continue;

        for (const char* text : { "1", "ON", "50 %", "sin/cos", "nan", "" })
            EXPECT_EQ (valueOf (kind, text), 0.5f) << "kind " << kind << ": " << text;
    }
}

TEST (CrzParameterValueMapper, ShowsLevelsInDecibels)
{
    struct LevelCase
    {
        float linear;
        int decimals;
        const char* text;
    };

    constexpr LevelCase rows[] = { { 0.0f, 1, "-INF" },       { -0.0f, 2, "-INF" },    { -0.5f, 1, "-INF" },
                                   { notANumber, 1, "-INF" }, { infinity, 1, "-INF" }, { 1.0f, 1, "0.0" },
                                   { 0.5f, 1, "-6.0" },       { 10.0f, 2, "20.00" },   { 2.0f, 3, "6.021" },
                                   { 1.0e-45f, 1, "-897.1" } };
    const CrzParameterValueMapper mapper (nullptr, CrzParameterValueMapper::mappingPlain);

    for (const auto& row : rows)
        EXPECT_EQ (mapper.valueToDBString (row.linear, row.decimals), row.text) << row.linear;
}

TEST (CrzParameter, WithoutAMapperShowsTheNumber)
{
    CrzParameter parameter (nullptr, CrzParameterValueMapper::mappingNone);
    EXPECT_EQ (parameter.getValueMapper(), nullptr);
    EXPECT_EQ (parameter.getIndex(), -1);
    EXPECT_EQ (parameter.getName(), "reserved");
    parameter.setDefaultValue (0.75f);
    EXPECT_FALSE (parameter.hasFlagChanged());
    EXPECT_EQ (parameter.getValue(), 0.0f);
    parameter.setValue (1.5f);
    EXPECT_TRUE (parameter.hasFlagChanged());
    EXPECT_EQ (parameter.getValueAsText(), "1.5");

    for (const float value : { notANumber, infinity, -infinity })
    {
        parameter.setValue (value);
        EXPECT_EQ (parameter.getValueAsText(), juce::String (0.0f)) << value;
    }
}
