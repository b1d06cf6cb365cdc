// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Audio files for tests, written and read whole.

#pragma once

#include "TestSignals.h"

#include "wideloom/AudioFileKind.h"

#include <string>

/** Writes without dither; the extension chooses the container. Fails the test when that does not work. */
void writeAudio (const std::string& path,
                 const StereoSignal& signal,
                 SampleFormat samples,
                 double sampleRate = 44100.0);

/** Fails the test, and gives nothing, when the file cannot be read. */
StereoSignal readAudio (const std::string& path);

/** The sample format of a file. */
SampleFormat sampleFormatOf (const std::string& path);

/** Fails the test when they differ in length or in a bit. */
void expectSame (const StereoSignal& actual, const StereoSignal& expected);

/** A 16-bit stereo WAV of just the chunks that it needs, byte by byte. */
std::string plainWav (const std::string& samples, int numChannels = 2, int bits = 16, int formatTag = 1);

/** Noise at half of full scale. */
StereoSignal noise (int numFrames);
