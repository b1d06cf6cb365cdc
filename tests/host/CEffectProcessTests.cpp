// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// What an instance takes from its type, and how it answers about keys, strings, bypass and meters.

#include "host/ControlledProcess.h"
#include "host/FakeTokenHost.h"
#include "support/NamedRows.h"

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

//==============================================================================================

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

TEST (CEffectProcess, IsKnownToTheHostByTheGroupsName)
{
    FakeTokenHost host;
    CEffectGroup group;
    group.DefineManufacturerNamesAndID ("Maker\nMk", fourCC ("mkr1"));
    group.DefinePlugInNamesAndVersion ("Effect\nEff", 0x00010102);
    CEffectType type (fourCC ("typ1"), fourCC ("prod"), nativePlugInType, 1);
    type.SetProcessGroup (&group, 1);

    ControlledProcess process;
    process.SetProcessType (&type);
    process.Initialize();
    EXPECT_EQ (host.calls.front(),
               "reserve 0:Plug-Ins/Maker/Effect/2/Inst" + std::to_string (gInstanciationNum));
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

struct KeyRow
{
    const char* name;
    bool viewHandles, processHandles;
    unsigned char handled;
};

using CEffectProcessKeys = testing::TestWithParam<KeyRow>;

TEST_P (CEffectProcessKeys, GoToTheViewFirst)
{
    ControlledProcess process;
    process.nextView = std::make_unique<TestView> (process.calls);
    process.nextView->handlesKeys = GetParam().viewHandles;
    process.handlesKeys = GetParam().processHandles;
    process.Initialize();

    unsigned char handled = 99;
    EXPECT_EQ (process.DoKeyCommand (nullptr, &handled), 0);
    EXPECT_EQ (handled, GetParam().handled);
    process.Free();
}

constexpr auto keyRows = std::to_array<KeyRow> ({
    { "Nobody", false, false, 0 },
    { "View", true, false, 1 },
    { "Process", false, true, 1 },
});

INSTANTIATE_ROWS (CEffectProcessKeys, keyRows);

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

//==============================================================================================

struct BypassRow
{
    const char* name;
    std::int32_t value;
    unsigned char on;
};

using CEffectProcessBypass = testing::TestWithParam<BypassRow>;

TEST_P (CEffectProcessBypass, IsOnFromTheMiddleUp)
{
    ControlledProcess process;
    process.add (discreteControl())->SetValue (GetParam().value);
    EXPECT_TRUE (process.DefineMasterBypassControlIndex (1));

    unsigned char on = 99;
    EXPECT_EQ (process.GetBypass (0, &on), 0);
    EXPECT_EQ (on, GetParam().on);
}

constexpr auto bypassRows = std::to_array<BypassRow> ({
    { "Bottom", bottom, 0 },
    { "JustBelow", -1, 0 },
    { "Middle", 0, 1 },
    { "Top", top, 1 },
});

INSTANTIATE_ROWS (CEffectProcessBypass, bypassRows);

TEST (CEffectProcess, SetsItsBypassToTheEndsOfTheScale)
{
    ControlledProcess process;
    process.add (discreteControl());
    unsigned char on = 99;

    EXPECT_EQ (process.SetBypass (0, 1), 0); // no master bypass yet
    EXPECT_EQ (process.GetBypass (0, &on), 0);
    EXPECT_EQ (on, 0);
    EXPECT_EQ (process.valueOf (1), LongToLongControl (5, 0, 10));

    process.DefineMasterBypassControlIndex (1);
    process.SetBypass (0, 2);
    EXPECT_EQ (process.valueOf (1), top);
    process.SetBypass (0, 0);
    EXPECT_EQ (process.valueOf (1), bottom);
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

//==============================================================================================

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

    EXPECT_EQ (process.GetNumMeters (&number), 0);
    EXPECT_EQ (number, 3);
    EXPECT_EQ (process.GetNumMetersOfType ('i', &number), 0);
    EXPECT_EQ (number, 2);
    EXPECT_EQ (process.GetMeterIndexByType ('i', 2, &number), 0);
    EXPECT_EQ (number, 3);
    EXPECT_EQ (process.GetMeterOrientation (2, &number), 0);
    EXPECT_EQ (number, 2);
    EXPECT_EQ (process.GetMeterOrientation (4, &number), 0);
    EXPECT_EQ (number, 0);
    EXPECT_EQ (process.GetMeterVal (2, &number), 0);
    EXPECT_EQ (number, 20);

    for (const std::int32_t index : { 0, -1, 4 })
    {
        EXPECT_EQ (process.GetMeterVal (index, &number), 0);
        EXPECT_EQ (number, 0) << index;
    }
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
