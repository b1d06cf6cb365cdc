// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The channels, rates and sample formats that are taken, and the message for a file that ends early.

#include "PcmLayout.h"

namespace
{
/** More would overflow the fields of some formats, and no file means it in earnest. */
constexpr double highestSampleRateHz = 10.0e6;
constexpr int mostBits = 32;
} // namespace

Problem checkSamples (int numChannels, double sampleRate, SampleFormat samples)
{
    if (numChannels > 2)
        return "it has " + std::to_string (numChannels)
               + " channels; the effect takes mono and stereo, so split it first";

    if (numChannels < 1)
        return "its header is damaged: it says that there are no channels";

    if (! (sampleRate >= 1.0 && sampleRate <= highestSampleRateHz))
        return "its header is damaged: it gives a sample rate that is not between 1 Hz and 10 MHz";

    if (samples.bits < 1 || samples.bits > mostBits || (samples.isFloat && samples.bits != mostBits))
        return "it holds " + describe (samples).toStdString()
               + " samples; convert it to 16 or 24 bits or to 32-bit float";

    return {};
}

std::string truncatedText (std::int64_t promised, std::int64_t present)
{
    return "it is cut short: its header promises " + std::to_string (promised) + " bytes of audio and "
           + std::to_string (present) + " are there; copy or export it again";
}
