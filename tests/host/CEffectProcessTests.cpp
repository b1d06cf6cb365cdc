// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// What an instance takes from its type, and how it answers about keys, strings, bypass and meters.

#include "host/ControlledProcess.h"
#include "host/FakeTokenHost.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <host/CDAEError.h>
#include <host/CEffectGroup.h>
#include <host/CEffectType.h>
#include <host/FourCC.h>
#include <host/Gestalts.h>
#include <host/HostGlobals.h>
#include <host/PascalText.h>
#include <host/platform/Ticks.h>

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>

namespace
{
using testing::ElementsAre;

constexpr std::int32_t bottom = longControlBottom;
constexpr std::int32_t top = longControlTop;

std::unique_ptr<CPluginControl_Discrete> discreteControl (std::uint32_t id = fourCC ("mode"))
{
    return std::make_unique<CPluginControl_Discrete> (id, "Mode", 0, 10, 5, true);
}

std::string toText (const unsigned char* pascal)
{
    return { pascal + 1, pascal + 1 + pascal[0] };
}

TEST (CEffectProcess, TakesItsLayoutFromTheType)
{
    CEffectType type (fourCC ("typ1"), fourCC ("prod"), nativePlugInType, 1);
    type.DefineStemFormats (1, 2, 0);
    type.AddGestalt (Gestalts::sideChainPort);

    ControlledProcess process;
    process.SetProcessType (&type);
    std::int16_t numInputs = 0, numOutputs = 0;
    process.effectInit = [&]
    {
        process.GetNumAudioInputs (&numInputs);
        process.GetNumAudioOutputs (&numOutputs);
    };
    process.Initialize();

    EXPECT_EQ (numInputs, 2);
    EXPECT_EQ (numOutputs, 3);
    EXPECT_EQ (process.GetSidechainPort(), 3);
    EXPECT_EQ (process.GetPlugInType(), nativePlugInType);
    EXPECT_EQ (process.stemFormats.input, 1);
    EXPECT_EQ (process.stemFormats.output, 2);
    EXPECT_EQ (process.stemFormats.sideChain, 0);
}

TEST (CEffectProcess, StartsWithTheRatesOfTheGroup)
{
    CEffectGroup group;
    constexpr SFicTimeCodeInfo info { 2, 1234 };
    group.SetSampleRate (96000);
    group.SetTimeCodeInfo (&info);

    gProcessGroup = &group;
    const ControlledProcess process;
    gProcessGroup = nullptr;
    EXPECT_EQ (process.GetSampleRate(), 96000);
    EXPECT_EQ (process.GetFrameRate(), 2);
    EXPECT_EQ (process.GetFrameOffset(), 1234);
}

TEST (CEffectProcess, RegistersNothingIfItsOwnSetUpFails)
{
    FakeTokenHost host;
    ControlledProcess process;
    process.effectInit = [] { throw CDAEError (ficOutOfMemory); };
    EXPECT_THROW (process.Initialize(), CDAEError);
    process.Free();
    EXPECT_THAT (host.calls, testing::IsEmpty());
}

TEST (CEffectProcess, HandlesKeysThatItOrItsViewTakes)
{
    for (const auto& [viewHandles, processHandles] :
         { std::pair (false, false), { true, false }, { false, true } })
    {
        ControlledProcess process;
        process.nextView = std::make_unique<TestView> (process.calls);
        process.nextView->handlesKeys = viewHandles;
        process.handlesKeys = processHandles;
        process.Initialize();

        unsigned char handled = 99;
        EXPECT_EQ (process.DoKeyCommand (nullptr, &handled), 0);
        EXPECT_EQ (handled, viewHandles || processHandles);
        process.Free();
    }
}

TEST (CEffectProcess, FindsItsStringsBySelector)
{
    ControlledProcess process;
    process.plugInStrings = { { 4, "four" }, { 5, std::string (300, 'x') } };
    std::array<unsigned char, 256> text {};

    EXPECT_EQ (process.GetPlugInString (4, text.data()), 0);
    EXPECT_EQ (toText (text.data()), "four");
    EXPECT_EQ (process.GetPlugInString (5, text.data()), 0);
    EXPECT_EQ (toText (text.data()), std::string (255, 'x'));
    EXPECT_EQ (process.GetPlugInString (6, text.data()), 0);
    EXPECT_EQ (toText (text.data()), "");
    EXPECT_EQ (process.GetPlugInString (4, nullptr), 0);
}

TEST (CEffectProcess, IsBypassedFromTheMiddleOfTheScaleUp)
{
    ControlledProcess process;
    process.add (discreteControl());
    const auto bypass = [&]
    {
        unsigned char on = 99;
        EXPECT_EQ (process.GetBypass (0, &on), 0);
        return int { on };
    };

    EXPECT_EQ (process.SetBypass (0, 1), 0); // no master bypass yet
    EXPECT_EQ (bypass(), 0);
    EXPECT_EQ (process.valueOf (1), LongToLongControl (5, 0, 10));
    EXPECT_TRUE (process.DefineMasterBypassControlIndex (1));

    for (const auto& [value, on] : { std::pair (bottom, 0), { -1, 0 }, { 0, 1 }, { top, 1 } })
    {
        process.UpdateControlValue (1, value);
        EXPECT_EQ (bypass(), on) << value;
    }

    process.SetBypass (0, 0);
    EXPECT_EQ (process.valueOf (1), bottom);
    process.SetBypass (0, 2);
    EXPECT_EQ (process.valueOf (1), top);
}

TEST (CEffectProcess, LeavesOnlyADiscreteBypassOutOfItsChunk)
{
    ControlledProcess process;
    process.add (std::make_unique<PlainTestControl> ("A", 7));
    process.add (discreteControl (0));
    process.add (discreteControl());
    std::int32_t control = 0;

    for (const std::int32_t index : { 1, 2, 4, 0 })
    {
        EXPECT_FALSE (process.DefineMasterBypassControlIndex (index)) << index;
        process.GetMasterBypassControl (&control);
        EXPECT_EQ (control, index);
    }

    EXPECT_TRUE (process.DefineMasterBypassControlIndex (3));
}

/** Two meters of one type around one of another. */
class MeteredProcess : public ControlledProcess
{
public:
    MeteredProcess()
    {
        effectInit = [this]
        {
            meterManager.AddMeter ('i', 1);
            meterManager.AddMeter ('o', 2);
            meterManager.AddMeter ('i', 3);
        };
        levels = { 10, 20, 30 };
        clips = { false, false, false };
        Initialize();
    }
};

TEST (CEffectProcessMeters, AreFoundByIndexAndType)
{
    MeteredProcess process;
    std::int32_t number = 0;
    const auto answered = [&] (std::int32_t result)
    {
        EXPECT_EQ (result, 0);
        return number;
    };

    EXPECT_EQ (answered (process.GetNumMeters (&number)), 3);
    EXPECT_EQ (answered (process.GetNumMetersOfType ('i', &number)), 2);
    EXPECT_EQ (answered (process.GetMeterIndexByType ('i', 2, &number)), 3);
    EXPECT_EQ (answered (process.GetMeterOrientation (2, &number)), 2);
    EXPECT_EQ (answered (process.GetMeterOrientation (4, &number)), 0);
    EXPECT_EQ (answered (process.GetMeterVal (2, &number)), 20);

    for (const std::int32_t index : { 0, -1, 4 })
        EXPECT_EQ (answered (process.GetMeterVal (index, &number)), 0) << index;
}

TEST (CEffectProcessMeters, ClipUntilCleared)
{
    FakeTokenHost host; // for its clock
    MeteredProcess process;
    unsigned char clipped = 99;
    process.GetClipState (&clipped);
    EXPECT_EQ (clipped, 0);

    process.clips = { false, false, true };
    host.ticks += 2;
    process.GetClipState (&clipped);
    EXPECT_EQ (clipped, 1);

    process.clips = { false, false, false };
    host.ticks += 2;
    process.GetClipState (&clipped);
    EXPECT_EQ (clipped, 1);

    EXPECT_EQ (process.ClearClipState(), 0);
    process.GetClipState (&clipped);
    EXPECT_EQ (clipped, 0);
    process.Free();
}

TEST (CEffectProcessMeters, MayBeNone)
{
    ControlledProcess process;
    process.Initialize();
    unsigned char clipped = 99;
    std::int32_t level = 99;
    EXPECT_EQ (process.GetClipState (&clipped), 0);
    EXPECT_EQ (process.GetMeterVal (1, &level), 0);
    EXPECT_EQ (process.ClearClipState(), 0);
    EXPECT_EQ (clipped + level, 0);
}

TEST (CEffectProcess, HasNoAuxStems)
{
    ControlledProcess process;
    std::int32_t number = 99, format = 99, port = 99;
    EXPECT_EQ (process.GetNumAuxOutputStems (&number), 0);
    EXPECT_EQ (process.GetAuxOutputStemInfo (1, &format, &port), 0);
    EXPECT_EQ (number + format + port, 0);
}
} // namespace
