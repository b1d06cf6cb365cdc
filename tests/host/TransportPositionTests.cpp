// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// What a processor hears of the host's transport, whatever interface the host has.

#include "host/CEffectMIDIWorld.h"
#include "host/FakeTransport.h"
#include "host/TransportPosition.h"

#include <gtest/gtest.h>

namespace
{
using PlayHead = juce::AudioPlayHead;

constexpr double sampleRate = 44100.0;
constexpr TimeCode thirtyFrames { 5, 60 };

class TransportPosition : public testing::Test
{
protected:
    PlayHead::PositionInfo read (std::int32_t interfaceVersion)
    {
        world.transportInterface = &transport;
        world.interfaceVersion = interfaceVersion;
        return positionFrom (&reads, sampleRate, thirtyFrames);
    }

    FakeTransport transport;
    CEffectMIDIWorld world;
    CEffectMIDITransport reads { world };
};

/** That of a host that tells nothing. */
void expectDefaults (const PlayHead::PositionInfo& info)
{
    EXPECT_EQ (info.getBpm(), juce::makeOptional (120.0));
    EXPECT_EQ (info.getTimeSignature()->numerator, 4);
    EXPECT_EQ (info.getTimeSignature()->denominator, 4);
    EXPECT_FALSE (info.getIsPlaying());
    EXPECT_EQ (info.getTimeInSamples(), juce::makeOptional (std::int64_t { 0 }));
    EXPECT_EQ (info.getTimeInSeconds(), juce::makeOptional (0.0));
    EXPECT_EQ (info.getPpqPosition(), juce::makeOptional (0.0));
}

void expectWhatNeverChanges (const PlayHead::PositionInfo& info)
{
    EXPECT_EQ (info.getPpqPositionOfLastBarStart(), juce::makeOptional (0.0));
    ASSERT_TRUE (info.getLoopPoints().hasValue());
    EXPECT_EQ (info.getLoopPoints()->ppqStart, 0.0);
    EXPECT_EQ (info.getLoopPoints()->ppqEnd, 0.0);
    EXPECT_FALSE (info.getIsLooping());
    EXPECT_FALSE (info.getIsRecording());
    EXPECT_EQ (info.getFrameRate()->getType(), PlayHead::fps30);
    EXPECT_EQ (info.getEditOriginTime(), juce::makeOptional (2.0));
}
} // namespace

TEST_F (TransportPosition, WithoutATransportIsTheStart)
{
    const auto info = positionFrom (nullptr, sampleRate, thirtyFrames);
    expectDefaults (info);
    expectWhatNeverChanges (info);
}

TEST_F (TransportPosition, OldOrRefusingInterfacesLeaveTheDefaults)
{
    expectDefaults (read (0));
    expectDefaults (read (1));
    transport.result = -1;

    for (const bool writes : { false, true })
    {
        transport.writesWhenRefusing = writes;
        expectDefaults (read (7));
    }
}

TEST_F (TransportPosition, MiddleInterfacesTellNoPosition)
{
    for (std::int32_t version = 2; version <= 6; ++version)
    {
        const auto info = read (version);
        EXPECT_EQ (info.getBpm(), juce::makeOptional (97.5));
        EXPECT_EQ (info.getTimeSignature()->numerator, 7);
        EXPECT_EQ (info.getTimeSignature()->denominator, 8);
        EXPECT_TRUE (info.getIsPlaying());
        EXPECT_EQ (info.getTimeInSamples(), juce::makeOptional (std::int64_t { 0 }));
        EXPECT_EQ (info.getPpqPosition(), juce::makeOptional (0.0));
    }
}

TEST_F (TransportPosition, ThePositionIsThatOfThePlayingOrOfTheStoppedTransport)
{
    auto info = read (7);
    EXPECT_EQ (info.getTimeInSamples(), juce::makeOptional (std::int64_t { 88200 }));
    EXPECT_EQ (info.getTimeInSeconds(), juce::makeOptional (2.0));
    EXPECT_EQ (info.getPpqPosition(), juce::makeOptional (882000.0 / 960000.0));
    expectWhatNeverChanges (info);

    transport.playing = 0;
    info = read (7);
    EXPECT_FALSE (info.getIsPlaying());
    EXPECT_EQ (info.getTimeInSamples(), juce::makeOptional (std::int64_t { 1000 }));
    EXPECT_EQ (info.getPpqPosition(), juce::makeOptional (10000.0 / 960000.0));
}

TEST_F (TransportPosition, FrameRates)
{
    struct Case
    {
        signed char code;
        PlayHead::FrameRateType type;
        double framesPerSecond;
    };

    constexpr Case rows[] = {
        { 1, PlayHead::fps24, 24.0 },          { 2, PlayHead::fps25, 25.0 },
        { 3, PlayHead::fps2997, 29.97002997 }, { 4, PlayHead::fps2997drop, 29.97002997 },
        { 5, PlayHead::fps30, 30.0 },          { 6, PlayHead::fps30drop, 30.0 },
        { 7, PlayHead::fps24, 23.976 },        { 0, PlayHead::fpsUnknown, 24.0 },
        { 8, PlayHead::fpsUnknown, 24.0 },     { -1, PlayHead::fpsUnknown, 24.0 }
    };

    for (const auto& [code, type, framesPerSecond] : rows)
    {
        const auto info = positionFrom (nullptr, sampleRate, { code, 12345 });
        EXPECT_EQ (info.getFrameRate()->getType(), type) << int { code };
        EXPECT_EQ (info.getEditOriginTime(), juce::makeOptional (12345 / framesPerSecond)) << int { code };
    }
}
