// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// JUCE's output stream on a file descriptor, which remembers a failure.

#pragma once

#include <juce_core/juce_core.h>

#include <vector>

/** The writers of audio formats complete their headers when they are deleted and tell nobody whether that
    worked; this does, through a place that outlives it. */
class DescriptorOutputStream : public juce::OutputStream
{
public:
    /** Borrows the descriptor. `failure`, 0 before, becomes the system's error number once something could
        not be written. */
    DescriptorOutputStream (int descriptorToWrite, int& failureToSet);
    ~DescriptorOutputStream() override;

    void flush() override;
    bool setPosition (juce::int64 newPosition) override;
    juce::int64 getPosition() override;
    bool write (const void* data, std::size_t count) override;

private:
    int descriptor;
    int& failure;
    juce::int64 bufferStart = 0; ///< where the first byte of the buffer belongs
    std::vector<char> buffer;
};
