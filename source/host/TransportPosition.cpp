// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Reads the transport value by value, and takes a transport at rest for what it does not answer.

#include "TransportPosition.h"

#include "HostInterface.h"

#include <array>

namespace
{
constexpr double ticksPerQuarterNote = 960000.0;

struct FrameRateRow
{
    signed char code;
    juce::AudioPlayHead::FrameRateType type;
    double framesPerSecond;
};

constexpr double ntscFramesPerSecond = 29.97002997;

// 23.976 has no name of its own for processors, but its offset counts with its own rate.
constexpr std::array frameRates { FrameRateRow { 1, juce::AudioPlayHead::fps24, 24.0 },
                                  FrameRateRow { 2, juce::AudioPlayHead::fps25, 25.0 },
                                  FrameRateRow { 3, juce::AudioPlayHead::fps2997, ntscFramesPerSecond },
                                  FrameRateRow { 4, juce::AudioPlayHead::fps2997drop, ntscFramesPerSecond },
                                  FrameRateRow { 5, juce::AudioPlayHead::fps30, 30.0 },
                                  FrameRateRow { 6, juce::AudioPlayHead::fps30drop, 30.0 },
                                  FrameRateRow { 7, juce::AudioPlayHead::fps24, 23.976 } };

constexpr FrameRateRow unknownFrameRate { 0, juce::AudioPlayHead::fpsUnknown, 24.0 };

const FrameRateRow& frameRateFor (signed char code) noexcept
{
    for (const auto& row : frameRates)
        if (row.code == code)
            return row;

    return unknownFrameRate;
}

/** What the transport answered, or would at rest. */
struct TransportState
{
    double tempo = 120.0;
    std::int32_t numerator = 4, denominator = 4;
    unsigned char playing = 0; // any number but 0 while it runs
    std::int64_t samples = 0;
    std::int64_t ticks = 0;
};

/** Calls `readInto` with a copy, which it keeps only if all went well: a host may write and refuse all the
    same. */
template <typename Read>
void update (TransportState& state, Read readInto)
{
    auto attempt = state;

    if (readInto (attempt) == ficSuccess)
        state = attempt;
}

TransportState read (const CEffectMIDITransport& transport)
{
    TransportState state;
    update (state, [&] (auto& attempt) { return transport.GetCurrentTempo (&attempt.tempo); });
    update (state, [&] (auto& attempt) { return transport.IsTransportPlaying (&attempt.playing); });
    update (state,
            [&] (auto& attempt)
            { return transport.GetCurrentMeter (&attempt.numerator, &attempt.denominator); });
    update (state,
            [&] (auto& attempt)
            {
                return attempt.playing != 0 ? transport.GetCurrentRTASSampleLocation (&attempt.samples)
                                            : transport.GetCurrentTDMSampleLocation (&attempt.samples);
            });
    update (state,
            [&] (auto& attempt) { return transport.GetCustomTickPosition (&attempt.ticks, state.samples); });
    return state;
}
} // namespace

juce::AudioPlayHead::PositionInfo positionFrom (const CEffectMIDITransport* transport,
                                                double sampleRate,
                                                TimeCode timeCode)
{
    const auto state = transport != nullptr ? read (*transport) : TransportState {};
    const auto& frameRate = frameRateFor (timeCode.frameRateCode);

    juce::AudioPlayHead::PositionInfo info;
    info.setTimeInSamples (state.samples);
    info.setTimeInSeconds (static_cast<double> (state.samples) / sampleRate);
    info.setBpm (state.tempo);
    info.setTimeSignature (juce::AudioPlayHead::TimeSignature { state.numerator, state.denominator });
    info.setIsPlaying (state.playing != 0);
    info.setIsRecording (false);
    info.setPpqPosition (static_cast<double> (state.ticks) / ticksPerQuarterNote);
    info.setPpqPositionOfLastBarStart (0.0);
    info.setLoopPoints (juce::AudioPlayHead::LoopPoints {});
    info.setIsLooping (false);
    info.setFrameRate (juce::AudioPlayHead::FrameRate (frameRate.type));
    info.setEditOriginTime (timeCode.frameOffset / frameRate.framesPerSecond);
    return info;
}
