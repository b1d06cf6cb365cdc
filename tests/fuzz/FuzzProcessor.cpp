// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Sets up a home of its own for the processor, and makes failed assertions end the run.

#include "FuzzProcessor.h"

#include <cstdio>
#include <cstdlib>

namespace
{
bool inputIsRunning = false; // NOLINT: libFuzzer calls the targets on one thread

/** Hostile bytes must not reach what JUCE takes for a mistake of the program. */
class FatalAssertions : public juce::Logger
{
    void logMessage (const juce::String& message) override
    {
        if (! inputIsRunning)
            return;

        std::fprintf (stderr, "%s\n", message.toRawUTF8());
        std::abort();
    }
};

/** Made once and never released, because libFuzzer leaves through exit(). */
struct Environment
{
    Environment()
    {
        const auto home = juce::File::createTempFile ({});
        home.createDirectory();
        ::setenv ("HOME", home.getFullPathName().toRawUTF8(), 1);
        juce::Logger::setCurrentLogger (&assertions);
        processor = std::make_unique<WideLoomAudioProcessor>();
    }

    FatalAssertions assertions;
    juce::ScopedJuceInitialiser_GUI juce;
    std::unique_ptr<WideLoomAudioProcessor> processor;
};
} // namespace

WideLoomAudioProcessor& fuzzProcessor()
{
    static auto* const environment = new Environment();
    return *environment->processor;
}

ScopedFuzzInput::ScopedFuzzInput() noexcept
{
    inputIsRunning = true;
}

ScopedFuzzInput::~ScopedFuzzInput()
{
    inputIsRunning = false;
}

void require (bool condition, const char* what)
{
    if (! condition)
    {
        std::fprintf (stderr, "It does not hold that %s\n", what);
        std::abort();
    }
}

void requireSoundState()
{
    constexpr int maxHeight = 10000; // pixels
    auto& processor = fuzzProcessor();

    for (int i = 0; i < numParameters; ++i)
        require (processor.getParameter (i) >= 0.0f && processor.getParameter (i) <= 1.0f,
                 "every parameter is in 0..1");

    for (const int height : { processor.getEditorHeight(), processor.getDefaultEditorHeight() })
        require (height >= 1 && height <= maxHeight, "editor heights are usable");

    processor.clearUndoHistory();
}
