// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Any bytes as a session block.

#include "FuzzProcessor.h"

extern "C" int LLVMFuzzerTestOneInput (const std::uint8_t* data, std::size_t size)
{
    auto& processor = fuzzProcessor();
    const ScopedFuzzInput input;
    processor.setStateInformation (data, static_cast<int> (size));
    requireSoundState();

    juce::MemoryBlock first, second;
    processor.getStateInformation (first);
    processor.setStateInformation (first.getData(), static_cast<int> (first.getSize()));
    processor.getStateInformation (second);
    require (first == second, "a session block restores what it was made from");

    requireSoundState();
    return 0;
}
