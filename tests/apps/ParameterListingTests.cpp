// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// `wideloom params` held against the live parameters.

#include <wideloom/ParameterListing.h>

#include <engine/WideLoomAudioProcessor.h>

#include <gmock/gmock.h>

namespace
{
juce::var parsedListing()
{
    juce::var parsed;
    const auto text = juce::JSON::toString (parameterListingJson());
    EXPECT_TRUE (juce::JSON::parse (text, parsed).wasOk()) << text;
    return parsed;
}

TEST (ParameterListing, AgreesWithTheLiveParameters)
{
    // The processor is what the values will be set in, so it decides.
    const WideLoomAudioProcessor processor;
    auto& manager = *processor.getParameterManager();
    const auto listing = parsedListing();
    ASSERT_EQ (listing.size(), manager.getNumberOfParameters());

    for (int i = 0; i < listing.size(); ++i)
    {
        const auto& row = listing[i];
        auto& parameter = *manager.getParameter (i);
        const auto textOf = [&parameter] (const juce::var& value)
        { return parameter.getValueMapper()->normed2RealValueAsString (static_cast<float> (value)); };

        EXPECT_EQ (static_cast<int> (row["index"]), i);
        EXPECT_EQ (row["name"].toString(), parameter.getName());

        // Read back as a program would, the default is the very float.
        EXPECT_EQ (static_cast<float> (row["default"]), parameter.getDefaultValue()) << parameter.getName();
        EXPECT_EQ (row["defaultText"].toString(), parameter.getValueAsText());

        if (row["kind"] == "continuous")
        {
            EXPECT_EQ (row["lowestText"].toString(), textOf (0.0f));
            EXPECT_EQ (row["highestText"].toString(), textOf (1.0f));
            continue;
        }

        ASSERT_GE (row["values"].size(), 2) << parameter.getName();

        for (const auto& value : *row["values"].getArray())
            EXPECT_EQ (value["text"].toString(), textOf (value["value"]));
    }
}

TEST (ParameterListing, GivesTheExactFloatsOfTheChoices)
{
    const auto panCurve = parsedListing()[11];
    ASSERT_EQ (panCurve["name"].toString(), "PanCurve");
    ASSERT_EQ (panCurve["values"].size(), 3);
    EXPECT_EQ (static_cast<float> (panCurve["values"][1]["value"]), 0.1f);
    EXPECT_EQ (static_cast<float> (panCurve["values"][2]["value"]), 0.2f);
}

TEST (ParameterListing, TellsPeopleWhatCanBeSet)
{
    const auto lines = juce::StringArray::fromLines (parameterListing().trimEnd());
    ASSERT_EQ (lines.size(), 19);
    EXPECT_EQ (lines[1], "Bypass          BYPASS OFF      off, on (shown as BYPASS OFF, BYPASS ACTIVE)");
    EXPECT_EQ (lines[2], "StereoWidth     100 %           0 % to 200 %");
    EXPECT_EQ (lines[12], "PanCurve        logarithmic     linear, logarithmic, sin/cos");
    EXPECT_EQ (lines[17], "SafeBassFreq    150Hz           OFF to 500Hz");
}
} // namespace
