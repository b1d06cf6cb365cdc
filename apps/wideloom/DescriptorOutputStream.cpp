// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Gathers small writes, and keeps the first error.

#include "DescriptorOutputStream.h"

#include "FileDescriptors.h"

#include <cerrno>
#include <unistd.h>

namespace
{
constexpr std::size_t bufferBytes = 1 << 16;
}

DescriptorOutputStream::DescriptorOutputStream (int descriptorToWrite, int& failureToSet)
    : descriptor (descriptorToWrite),
      failure (failureToSet)
{
    buffer.reserve (bufferBytes);
}

DescriptorOutputStream::~DescriptorOutputStream()
{
    DescriptorOutputStream::flush();
}

void DescriptorOutputStream::flush()
{
    if (failure == 0 && ! buffer.empty()
        && (::lseek (descriptor, bufferStart, SEEK_SET) < 0
            || ! writeFully (descriptor, buffer.data(), buffer.size())))
        failure = errno;

    bufferStart += static_cast<juce::int64> (buffer.size());
    buffer.clear();
}

bool DescriptorOutputStream::setPosition (juce::int64 newPosition)
{
    flush();
    bufferStart = newPosition;
    return newPosition >= 0;
}

juce::int64 DescriptorOutputStream::getPosition()
{
    return bufferStart + static_cast<juce::int64> (buffer.size());
}

bool DescriptorOutputStream::write (const void* data, std::size_t count)
{
    if (buffer.size() + count > bufferBytes)
        flush();

    const auto* bytes = static_cast<const char*> (data);
    buffer.insert (buffer.end(), bytes, bytes + count);

    if (buffer.size() >= bufferBytes)
        flush();

    return failure == 0;
}
