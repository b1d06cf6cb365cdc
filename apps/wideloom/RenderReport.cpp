// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Puts the report together, with texts for figures that JSON has no number for.

#include "RenderReport.h"

#include "FileDescriptors.h"
#include "ReadableText.h"

#include <juce_core/juce_core.h>

#include <cmath>

namespace
{
juce::var object (std::initializer_list<std::pair<const char*, juce::var>> members)
{
    auto* const result = new juce::DynamicObject();

    for (const auto& [name, value] : members)
        result->setProperty (name, value);

    return result;
}

juce::var numberOrText (double number)
{
    if (std::isfinite (number))
        return number;

    return std::isnan (number) ? "nan" : number < 0.0 ? "-inf" : "inf";
}

juce::var peak (float linear)
{
    return object ({ { "linear", numberOrText (linear) },
                     { "dbfs", numberOrText (20.0 * std::log10 (static_cast<double> (linear))) } });
}

juce::var peaks (const CrzStereoVuVisuals& meter)
{
    return object ({ { "left", peak (meter.left) }, { "right", peak (meter.right) } });
}

} // namespace

Problem writeReport (TargetFile& file, const RenderReport& report)
{
    const auto json =
        juce::JSON::toString (object ({
                                  { "input", readableText (report.input) },
                                  { "output", readableText (report.output) },
                                  { "sampleRate", report.sampleRate },
                                  { "inputMeter", peaks (report.peaks.input) },
                                  { "outputMeter", peaks (report.peaks.output) },
                                  { "before", toJson (report.before) },
                                  { "after", toJson (report.after) },
                                  { "clippedSamples", static_cast<juce::int64> (report.numClippedSamples) },
                              }))
            .toStdString()
        + "\n";

    if (! writeFully (file.getDescriptor(), json.data(), json.size()))
        return file.getName() + " cannot be written: " + systemError();

    return file.commit();
}
