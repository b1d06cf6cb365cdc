// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// What --set, --norm and automation files take for a parameter, and what they refuse.

#include "wideloom/ParameterText.h"

#include "engine/ParameterTable.h"

#include <gmock/gmock.h>

namespace
{
struct AcceptedRow
{
    const char* assignment;
    ParameterId id;
    float value;
};

class ParameterTextAccepted : public testing::TestWithParam<AcceptedRow>
{
};

TEST_P (ParameterTextAccepted, GivesTheValueThatTheEditorStores)
{
    ParameterSetting setting;
    const auto problem = readTextSetting (GetParam().assignment, setting);
    ASSERT_FALSE (problem) << *problem;
    EXPECT_EQ (setting.index, indexOf (GetParam().id));
    EXPECT_EQ (setting.value, GetParam().value);
}

constexpr AcceptedRow acceptedRows[] = {
    { "StereoWidth=150 %", ParameterId::stereoWidth, 0.75f },
    { "StereoWidth=150", ParameterId::stereoWidth, 0.75f },
    { "StereoWidth= +33.3% ", ParameterId::stereoWidth, 33.3f / 200.0f },
    { "StereoWidth=200", ParameterId::stereoWidth, 1.0f },
    { "Pan=L30", ParameterId::pan, -30.0f / 200.0f + 0.5f },
    { "Pan=r30", ParameterId::pan, 30.0f / 200.0f + 0.5f },
    { "Pan=-30", ParameterId::pan, -30.0f / 200.0f + 0.5f },
    { "Pan=+30", ParameterId::pan, 30.0f / 200.0f + 0.5f },
    { "Pan=c", ParameterId::pan, 0.5f },
    { "Pan=L100", ParameterId::pan, 0.0f },
    { "InputGain=-3dB", ParameterId::inputGain, -3.0f / 24.0f + 0.5f },
    { "InputGain=+3 DB", ParameterId::inputGain, 3.0f / 24.0f + 0.5f },
    { "OutputGain=12", ParameterId::outputGain, 1.0f },
    { "OutputGain=-.1", ParameterId::outputGain, -0.1f / 24.0f + 0.5f },
    { "SafeBassFreq=120Hz", ParameterId::safeBassFreq, (120.0f - 10.0f) / 490.0f },
    { "SafeBassFreq=500 hz", ParameterId::safeBassFreq, 1.0f },
    { "SafeBassFreq=off", ParameterId::safeBassFreq, 0.0f },
    { "SafeBass=on", ParameterId::safeBass, 1.0f },
    { "SafeBass=Safe Bass ON", ParameterId::safeBass, 1.0f },
    { "Bypass=YES", ParameterId::bypass, 1.0f },
    { "Bypass=0", ParameterId::bypass, 0.0f },
    { "PhaseAlignSide=no phase align", ParameterId::phaseAlignSide, 0.0f },
    { "PanCurve=sin/cos", ParameterId::panCurve, choice::third },
    { "PanCurve=Linear", ParameterId::panCurve, choice::first },
    { "PanLaw=-3dB", ParameterId::panLaw, choice::second },
    { "PanLaw=-6 db", ParameterId::panLaw, choice::third },
    { "MsMode=bind levels", ParameterId::msMode, choice::second },
    { "PanMode=dual pan", ParameterId::panMode, choice::first },
};

std::string rowNumber (const testing::TestParamInfo<AcceptedRow>& info)
{
    return std::to_string (info.index) + "_" + rowOf (info.param.id).name;
}

INSTANTIATE_TEST_SUITE_P (Rows, ParameterTextAccepted, testing::ValuesIn (acceptedRows), rowNumber);

struct RefusedRow
{
    const char* name;
    const char* assignment;
    const char* hint; ///< must be in the message
};

class ParameterTextRefused : public testing::TestWithParam<RefusedRow>
{
};

TEST_P (ParameterTextRefused, SaysWhatWouldBeRight)
{
    ParameterSetting setting;
    const auto problem = readTextSetting (GetParam().assignment, setting);
    ASSERT_TRUE (problem);
    EXPECT_THAT (*problem, testing::HasSubstr (GetParam().hint));
}

constexpr RefusedRow refusedRows[] = {
    { "noEquals", "StereoWidth", "NAME=VALUE" },
    { "unknownName", "Width=3", "did you mean StereoWidth?" },
    { "misspelt", "InputGian=3", "did you mean InputGain?" },
    { "wrongCase", "pan=3", "did you mean Pan?" },
    { "emptyName", "=3", "no parameter ''" },
    { "widthTooMuch", "StereoWidth=200.1", "0 % to 200 %" },
    { "widthNegative", "StereoWidth=-1", "0 % to 200 %" },
    { "widthWords", "StereoWidth=wide", "0 % to 200 %" },
    { "widthEmpty", "StereoWidth=", "0 % to 200 %" },
    { "widthWrongUnit", "StereoWidth=50dB", "0 % to 200 %" },
    { "decimalComma", "StereoWidth=1,5", "0 % to 200 %" },
    { "notANumber", "StereoWidth=nan", "0 % to 200 %" },
    { "infinite", "InputGain=inf", "-12 dB to 12 dB" },
    { "exponent", "InputGain=1e1", "-12 dB to 12 dB" },
    { "gainTwoSigns", "InputGain=+-3dB", "-12 dB to 12 dB" },
    { "gainTooMuch", "InputGain=12.01", "-12 dB to 12 dB" },
    { "panTooFar", "Pan=L101", "L100 to L1" },
    { "panFraction", "Pan=30.5", "whole number" },
    { "panLetterBehind", "Pan=30L", "L100 to L1" },
    { "panLetterAndSign", "Pan=L-30", "L100 to L1" },
    { "panTwoSigns", "Pan=+-30", "L100 to L1" },
    { "frequencyThatIsOff", "SafeBassFreq=10", "more than 10 Hz" },
    { "frequencyTooHigh", "SafeBassFreq=500.5Hz", "up to 500 Hz" },
    { "switchNumber", "Mono=2", "on or off, 'MONO OFF', 'MONO ACTIVE'" },
    { "switchOfAnother", "Mono=SWAP ACTIVE", "'MONO ACTIVE'" },
    { "choiceNumber", "PanLaw=0.1", "'-0dB', '-3dB', '-6dB'" },
    { "choiceThatIsNone", "MsMode=levels", "'fix mid', 'bind levels'" },
};

INSTANTIATE_TEST_SUITE_P (Rows,
                          ParameterTextRefused,
                          testing::ValuesIn (refusedRows),
                          [] (const auto& row) { return std::string (row.param.name); });

TEST (ParameterText, TakesTheTextThatTheEffectShowsForEveryDefault)
{
    for (const auto& row : parameterTable)
    {
        const auto shown =
            CrzParameterValueMapper (nullptr, row.mapping).normed2RealValueAsString (row.defaultValue);
        ParameterSetting setting;
        const auto problem = readTextSetting (row.name + ("=" + shown.toStdString()), setting);
        ASSERT_FALSE (problem) << *problem;
        EXPECT_EQ (shown,
                   CrzParameterValueMapper (nullptr, row.mapping).normed2RealValueAsString (setting.value));
    }
}

TEST (ParameterText, TakesNormalisedValuesFromZeroToOneOnly)
{
    ParameterSetting setting;
    ASSERT_FALSE (readNormalisedSetting ("SafeBassFreq=0.286", setting));
    EXPECT_EQ (setting.value, 0.286f);

    for (const auto* text :
         { "Pan=", "Pan=-0.01", "Pan=1.0001", "Pan=nan", "Pan=inf", "Pan=0.5x", "Pan= 0.5", "Pan=C" })
        EXPECT_THAT (readNormalisedSetting (text, setting).value_or (""), testing::HasSubstr ("from 0 to 1"))
            << text;
}
} // namespace
