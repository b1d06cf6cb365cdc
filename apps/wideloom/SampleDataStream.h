// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// A sound file as it should be: a header of our own in front of the samples of the file that is read.

#pragma once

#include "ByteSource.h"
#include "PcmLayout.h"

#include <juce_core/juce_core.h>

/** What JUCE's readers get in place of the file. Its WAV and AIFF readers trust every chunk; one that is
    malformed can make them loop for ever or allocate without bound. This way they see two chunks, both of
   them written here. */
class SampleDataStream : public juce::InputStream
{
public:
    /** The samples of a WAV or AIFF file, presented in the same container. Borrows the bytes. */
    SampleDataStream (const ByteSource& bytesToRead, AudioContainer container, const PcmLayout& layout);

    /** The whole file as it is, for formats that need no such care. Borrows the bytes. */
    explicit SampleDataStream (const ByteSource& bytesToRead);

    /** Whether a byte that is there could not be read. */
    bool hasFailed() const noexcept { return failed; }

    juce::int64 getTotalLength() override;
    bool isExhausted() override;
    juce::int64 getPosition() override { return position; }
    bool setPosition (juce::int64 newPosition) override;
    int read (void* destination, int numBytes) override;

private:
    const ByteSource& bytes;
    juce::MemoryBlock header;
    juce::int64 dataStart, dataBytes;
    juce::int64 position = 0;
    bool failed = false;
};
