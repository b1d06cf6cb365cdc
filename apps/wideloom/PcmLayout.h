// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Where the samples of an uncompressed file lie and how they are stored, and the checks that all formats
// share.

#pragma once

#include "AudioFileKind.h"
#include "Command.h"

#include <cstdint>

struct PcmLayout
{
    int numChannels = 0;
    double sampleRate = 0.0; ///< Hz, a whole number
    SampleFormat samples;    ///< with the bits as stored, a multiple of 8
    std::int64_t numFrames = 0;
    std::int64_t dataStart = 0; ///< in bytes from the start of the file
    bool bigEndian = false;

    int bytesPerFrame() const noexcept { return numChannels * samples.bits / 8; }
    std::int64_t dataBytes() const noexcept { return numFrames * bytesPerFrame(); }
};

/** Whether channels, rate and sample size are such as can be processed. */
Problem checkSamples (int numChannels, double sampleRate, SampleFormat samples);

/** Bits in whole bytes, as samples of so many bits are stored. */
constexpr int storedBits (int bits) noexcept
{
    return (bits + 7) / 8 * 8;
}

/** What to say of a file that is shorter than its header says. All in bytes. */
std::string truncatedText (std::int64_t promised, std::int64_t present);
