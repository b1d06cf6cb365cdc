// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// One case for each kind of mapping, in both directions.

#include "CrzParameterValueMapper.h"

#include "CrzParameter.h"
#include "CrzParameterManager.h"

#include <juce_audio_processors/juce_audio_processors.h>

#include <cmath>
#include <limits>

namespace
{
/** A two-sided switch text. On starts just above one half, as in the signal chain. */
struct SwitchTexts
{
    CrzParameterValueMapper::CrzMappingENUM mapping;
    const char* on;
    const char* off;
};

constexpr SwitchTexts switchTexts[] = {
    { CrzParameterValueMapper::mappingOnOff, "ON", "OFF" },
    { CrzParameterValueMapper::mappingBypass, "BYPASS ACTIVE", "BYPASS OFF" },
    { CrzParameterValueMapper::mappingMute, "MUTE ACTIVE", "UN-MUTE" },
    { CrzParameterValueMapper::mappingMuteAll, "MUTE-ALL ACTIVE", "NO MUTE-ALL" },
    { CrzParameterValueMapper::mappingMuteMid, "MUTE-MID ACTIVE", "NO MUTE-MID" },
    { CrzParameterValueMapper::mappingMuteSide, "MUTE-SIDE ACTIVE", "NO MUTE-SIDE" },
    { CrzParameterValueMapper::mappingSafeBass, "SAFE BASS ON", "SAFE BASS OFF" },
    { CrzParameterValueMapper::mappingSwap, "SWAP ACTIVE", "NO SWAP" },
    { CrzParameterValueMapper::mappingPhaseFlip, "PHASE FLIPPED", "PHASE NORMAL" },
    { CrzParameterValueMapper::mappingMono, "MONO ACTIVE", "MONO OFF" },
    { CrzParameterValueMapper::mappingPhaseAlign, "ALIGN PHASE ACTIVE", "NO PHASE ALIGN" },
};

/** Texts of a choice: the first below 0.1, the second below 0.2, else the third. */
struct ChoiceTexts
{
    CrzParameterValueMapper::CrzMappingENUM mapping;
    const char* first;
    const char* second;
    const char* third;
};

constexpr ChoiceTexts choiceTexts[] = {
    { CrzParameterValueMapper::mappingPanCurve, "linear", "logarithmic", "sin/cos" },
    { CrzParameterValueMapper::mappingPanLaw, "-0dB", "-3dB", "-6dB" },
    { CrzParameterValueMapper::mappingMsMode, "fix mid", "bind levels", "bind levels" },
    { CrzParameterValueMapper::mappingPanMode, "dual pan", "balance", "balance" },
};

constexpr float widthPercentRange = 200.0f;
constexpr float panRange100 = 200.0f;
constexpr float panRange99 = 198.0f;
constexpr float gain12RangeDb = 24.0f;
constexpr float safeBassLowestHz = 10.0f;
constexpr float safeBassRangeHz = 490.0f;

/** +12 dB as a linear factor. */
constexpr float levelAtFullScale = 3.9810717f;

const char* const minusInfinity = "-INF";

float finiteOrZero (float value) noexcept
{
    return std::isfinite (value) ? value : 0.0f;
}

/** The number at the start of a text; 0.0 when there is none, which "nan" and "inf" are not. */
float numberAtStart (const juce::String& text)
{
    constexpr auto largest = static_cast<double> (std::numeric_limits<float>::max());
    const double number = text.getDoubleValue();
    return std::isfinite (number) ? static_cast<float> (juce::jlimit (-largest, largest, number)) : 0.0f;
}

juce::String atPlaces (float value, int decimals)
{
    return juce::String (finiteOrZero (value), decimals);
}

juce::String roundedWithUnit (float value, const char* unit)
{
    return juce::String (juce::roundToInt (value)) + unit;
}

juce::String panText (float value, float range)
{
    if (value < 0.5f)
        return "L" + juce::String (juce::roundToInt ((0.5f - value) * range));

    if (value > 0.5f)
        return "R" + juce::String (juce::roundToInt ((value - 0.5f) * range));

    return "C";
}

juce::String channelSelectText (float value)
{
    if (value < 0.3f)
        return "L";

    return value > 0.7f ? "R" : "L+R";
}

juce::String gain24Text (float value)
{
    if (value == 0.5f)
        return "+/-0dB";

    const auto tenths = juce::roundToInt ((48.0f * value - 24.0f) * 10.0f);
    return (value > 0.5f ? "+" : "") + atPlaces (static_cast<float> (tenths) / 10.0f, 1) + "dB";
}

float parsePan100 (const juce::String& text)
{
    auto number = text.trim().toLowerCase().replace ("l", "-").replace ("r", "+");

    if (number.startsWith ("c"))
        number = "0";

    number = number.trimCharactersAtStart ("+").initialSectionContainingOnly ("0123456789-");
    return juce::jlimit (0.0f, 1.0f, numberAtStart (number) / panRange100 + 0.5f);
}

float parseSafeBassFreq (const juce::String& text)
{
    if (text == "OFF")
        return 0.0f;

    const float frequency = numberAtStart (text);

    if (frequency < safeBassLowestHz)
        return 0.0f;

    return juce::jmin (1.0f, (frequency - safeBassLowestHz) / safeBassRangeHz);
}
} // namespace

CrzParameterValueMapper::CrzParameterValueMapper (CrzParameter* parameterToShow,
                                                  CrzMappingENUM mappingToUse) noexcept
    : parameter (parameterToShow),
      mapping (mappingToUse)
{
}

juce::String CrzParameterValueMapper::normed2RealValueAsString (float normalisedValue) const
{
    const float value = finiteOrZero (normalisedValue);

    for (const auto& row : switchTexts)
        if (row.mapping == mapping)
            return value > 0.5f ? row.on : row.off;

    for (const auto& row : choiceTexts)
        if (row.mapping == mapping)
            return value < 0.1f ? row.first : value < 0.2f ? row.second : row.third;

    switch (static_cast<int> (mapping))
    {
        case mappingPercent:
            return roundedWithUnit (value * 100.0f, " %");
        case mappingWidthPercent:
            return roundedWithUnit (value * widthPercentRange, " %");
        case mappingChannelSelect:
            return channelSelectText (value);
        case mappingPan99:
            return panText (value, panRange99);
        case mappingPan100:
            return panText (value, panRange100);
        case mappingLevelDb:
            return levelDbText (value);
        case mappingGain12Db:
            return atPlaces (value == 0.5f ? 0.0f : (value - 0.5f) * gain12RangeDb, 1) + "dB";
        case mappingGain24Db:
            return gain24Text (value);
        case mappingSafeBassFreq:
            return value == 0.0f ? juce::String ("OFF")
                                 : roundedWithUnit (value * safeBassRangeHz + safeBassLowestHz, "Hz");
        case mappingSampleRateFraction:
            return sampleRateFractionText (value);
        default:
            return atPlaces (value, 2);
    }
}

float CrzParameterValueMapper::string2normedValueAsFloat (const juce::String& text) const
{
    switch (static_cast<int> (mapping))
    {
        case mappingWidthPercent:
            return juce::jlimit (0.0f, 1.0f, numberAtStart (text) / widthPercentRange);
        case mappingPan100:
            return parsePan100 (text);
        case mappingGain12Db:
            return numberAtStart (text) / gain12RangeDb + 0.5f;
        case mappingSafeBassFreq:
            return parseSafeBassFreq (text);
        default:
            return 0.5f;
    }
}

juce::String CrzParameterValueMapper::valueToDBString (float linearValue, int decimals) const
{
    if (! std::isfinite (linearValue) || linearValue <= 0.0f)
        return minusInfinity;

    return juce::String (20.0 * std::log10 (static_cast<double> (linearValue)), decimals);
}

juce::String CrzParameterValueMapper::levelDbText (float value) const
{
    const float linear = value * levelAtFullScale;

    if (! std::isfinite (linear) || linear <= 0.0f)
        return minusInfinity;

    const double decibels = 20.0 * std::log10 (static_cast<double> (linear));
    const float rounded = static_cast<float> (juce::roundToInt (decibels * 10.0)) / 10.0f;
    return (rounded > 0.0f ? "+" : "") + juce::String (rounded, 1);
}

juce::String CrzParameterValueMapper::sampleRateFractionText (float value) const
{
    const auto* manager = parameter != nullptr ? parameter->getParameterManager() : nullptr;
    const auto* processor = manager != nullptr ? manager->getAudioProcessor() : nullptr;
    const double sampleRate = processor != nullptr ? processor->getSampleRate() : 0.0;

    constexpr auto lowest = static_cast<double> (std::numeric_limits<int>::min());
    constexpr auto highest = static_cast<double> (std::numeric_limits<int>::max());
    const int frequency = static_cast<int> (juce::jlimit (lowest, highest, value * sampleRate * 0.5));

    if (frequency > 9999)
        return juce::String (static_cast<float> (frequency) / 1000.0f, 1) + "kHz";

    return juce::String (frequency) + "Hz";
}
