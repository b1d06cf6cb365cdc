// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Splits blocks where automation falls, so that each event takes effect at its sample.

#include "Renderer.h"

#include "Interruption.h"

#include <algorithm>
#include <limits>

namespace
{
/** Small blocks are gathered to about this many frames before they are read and written. */
constexpr int framesAtOnce = 16384;

/** The effect, the events still to come and where the next block starts. */
class AutomatedEffect
{
public:
    AutomatedEffect (EffectPath& effectToUse, const RenderSettings& settingsToUse)
        : effect (effectToUse),
          settings (settingsToUse)
    {
    }

    void process (juce::AudioBuffer<float>& audio, int numFrames)
    {
        for (int done = 0; done < numFrames;)
        {
            applyEvents();
            const int count = static_cast<int> (
                std::min<std::int64_t> (std::min (numFrames - done, framesLeftInBlock), framesToNextEvent()));
            juce::AudioBuffer<float> block (audio.getArrayOfWritePointers(), 2, done, count);
            effect.process (block);

            done += count;
            position += count;
            framesLeftInBlock -= count;

            if (framesLeftInBlock == 0)
                framesLeftInBlock = settings.blockFrames;
        }
    }

private:
    void applyEvents()
    {
        for (; nextEvent < settings.automation.size() && settings.automation[nextEvent].position <= position;
             ++nextEvent)
        {
            const auto& setting = settings.automation[nextEvent].setting;
            effect.setParameter (setting.index, setting.value);
        }
    }

    std::int64_t framesToNextEvent() const
    {
        return nextEvent < settings.automation.size() ? settings.automation[nextEvent].position - position
                                                      : std::numeric_limits<std::int64_t>::max();
    }

    EffectPath& effect;
    const RenderSettings& settings;
    std::int64_t position = 0;
    int framesLeftInBlock = settings.blockFrames;
    std::size_t nextEvent = 0;
};
} // namespace

Problem startEffect (EffectPath& effect, double sampleRate, const RenderSettings& settings)
{
    if (auto problem = effect.prepare (sampleRate, settings.blockFrames))
        return problem;

    if (! settings.state.isEmpty())
        if (auto problem = effect.setState (settings.state))
            return problem;

    for (const auto& parameter : settings.parameters)
        effect.setParameter (parameter.index, parameter.value);

    return {};
}

Problem render (AudioInput& input,
                EffectPath& effect,
                AudioOutput& output,
                const RenderSettings& settings,
                const RenderObservers& observers)
{
    const auto numFrames = input.getNumFrames();
    juce::AudioBuffer<float> audio (2, framesAtOnce);
    const auto* left = audio.getReadPointer (0);
    const auto* right = audio.getReadPointer (1);

    AutomatedEffect automated (effect, settings);

    for (std::int64_t position = 0; position < numFrames;)
    {
        const auto count = static_cast<int> (std::min<std::int64_t> (framesAtOnce, numFrames - position));

        if (wasInterrupted())
            return "interrupted";

        if (! input.read (audio, position, count))
            return input.getName() + ": it cannot be read to its end; the disk or the network failed";

        if (observers.input)
            observers.input (left, right, count);

        automated.process (audio, count);

        if (observers.output)
            observers.output (left, right, count);

        if (auto problem = output.write (left, right, count))
            return problem;

        position += count;

        if (observers.progress)
            observers.progress (position, numFrames);
    }

    return {};
}
