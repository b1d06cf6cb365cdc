// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Any bytes as a user preset file.

#include "FuzzProcessor.h"

#include <presets/UserPresetFile.h>

extern "C" int LLVMFuzzerTestOneInput (const std::uint8_t* data, std::size_t size)
{
    auto& processor = fuzzProcessor();
    const ScopedFuzzInput input;
    const std::string_view bytes (reinterpret_cast<const char*> (data), size);
    const auto contents = UserPresetFile::read (bytes);

    require (contents.tree.isValid() == contents.error.isEmpty(), "there is either a preset or a reason");

    juce::MemoryInputStream stream (data, size, false);
    processor.rzReadString (stream);

    if (contents.tree.isValid())
    {
        processor.copyAllPresetValuesFromValueTree (contents.tree);
        processor.recallAllParamsFromValueTree (&processor.getCurrentPresetValueTree());
        processor.recallAllParamsFromValueTree (&contents.tree);
        processor.undoLastParameterChange();

        for (const bool compressed : { false, true })
        {
            const auto written = UserPresetFile::write (contents.tree, compressed);
            const auto again =
                UserPresetFile::read ({ static_cast<const char*> (written.getData()), written.getSize() });

            // The program's own form may be longer than a file may be.
            require (! again.tree.isValid() || again.tree.isEquivalentTo (contents.tree),
                     "a preset survives being written and read");
        }
    }

    requireSoundState();
    return 0;
}
