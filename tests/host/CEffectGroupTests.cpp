// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// What an effect's group and its types tell a host of themselves, which chunks they take, and native
// processes.

#include "host/CDAEError.h"
#include "host/CEffectGroup.h"
#include "host/CEffectTypeRTAS.h"
#include "host/FakeFramework.h"
#include "host/FourCC.h"
#include "host/HostGlobals.h"
#include "host/StemFormats.h"
#include "host/TestProcess.h"
#include "host/platform/ResourceFiles.h"
#include "support/NamedRows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <stdexcept>
#include <tuple>

namespace
{
constexpr auto maker = fourCC ("Makr");
constexpr auto product = fourCC ("Prod");
constexpr auto stereo = fourCC ("ster");
constexpr auto mono = fourCC ("mono");
constexpr auto monoToStereo = fourCC ("mtos");
constexpr auto stranger = fourCC ("strg");
constexpr std::int32_t nativeType = 3;
constexpr std::int32_t offlineType = 2;
constexpr std::uint32_t pluginVersion = 0x00010203;
constexpr std::uint32_t category = 512;
constexpr std::uintptr_t hostObject = 0x123456789;

bool makesNativeProcesses = true;

CEffectProcess* createProcess()
{
    if (makesNativeProcesses)
        return new NativeTestProcess;

    return new TestProcess;
}

class TestEffectGroup : public CEffectGroup
{
public:
    TestEffectGroup()
    {
        gProcessGroup = this;
        makesNativeProcesses = true;
        resetTestProcesses();
        DefineManufacturerNamesAndID ("Weavers & Daughters\nWeavers\nWvrs", maker);
        DefinePlugInNamesAndVersion ("Long Loom\nLoom", pluginVersion);
        AddGestalt (14);
    }

    ~TestEffectGroup() override
    {
        FreeProcessTypes();
        gProcessGroup = nullptr;
    }

    CEffectTypeRTAS* native = nullptr;

protected:
    void CreateEffectTypes() override
    {
        native = new CEffectTypeRTAS (stereo, product, category);
        native->DefineTypeNames ("Stereo Loom\nSt");
        native->DefineSampleRateSupport (6);
        native->DefineStemFormats (stemFormatStereo, stemFormatStereo, 0);
        native->AddGestalt (48);
        native->AttachEffectProcessCreator (createProcess, nullptr);
        AddEffectType (native);

        addType (mono, fourCC ("PrdM"), nativeType, stemFormatMono, stemFormatMono);
        addType (monoToStereo, product, nativeType, stemFormatMono, stemFormatStereo);
        addType (fourCC ("offl"), product, offlineType, stemFormatStereo, stemFormatMono);
        AddProcessType (new TestProcessType (stranger, nativeType));
    }

private:
    void addType (std::uint32_t code,
                  std::uint32_t productOfType,
                  std::int32_t plugInType,
                  std::int32_t input,
                  std::int32_t output)
    {
        auto* const type = new CEffectType (code, productOfType, plugInType, category);
        type->DefineStemFormats (input, output, stemFormatNone);
        AddEffectType (type);
    }
};

class CEffectGroupTest : public testing::Test
{
protected:
    CEffectGroupTest()
    {
        group.Initialize();
        group.EnablePlugInType (nativeType);
        group.SetCFicWidgetObject (hostObject);
    }

    FakeFramework framework;
    TestEffectGroup group;
};

TEST_F (CEffectGroupTest, AnswersGestaltsThatComeWithOthers)
{
    const auto gestalt = [] (CEffectType& type, std::int32_t selector)
    {
        std::int32_t value = -1;
        EXPECT_EQ (type.Gestalt (selector, &value), ficSuccess);
        return value;
    };

    CEffectTypeRTAS native (stereo, product, category);
    native.DefineStemFormats (stemFormatStereo, stemFormatStereo, 0);
    native.AddGestalt (41);
    native.AddGestalt (5);
    EXPECT_EQ (gestalt (native, 5), 3) << "the port behind the inputs";
    EXPECT_EQ (gestalt (native, 41), 1);
    EXPECT_EQ (gestalt (native, 30), 1);
    EXPECT_EQ (gestalt (native, 38), 1);

    CEffectType offline (stereo, product, offlineType, category);
    offline.AddGestalt (41);
    EXPECT_EQ (gestalt (offline, 30), 1);
    EXPECT_EQ (gestalt (offline, 38), 0);
    EXPECT_EQ (gestalt (offline, 29), 0);
    EXPECT_EQ (gestalt (offline, 32), 0) << "of native types alone";
}

TEST_F (CEffectGroupTest, NamesItselfInTheRoomThereIs)
{
    std::array<unsigned char, 64> name {};
    const auto text = [&] { return std::string (name.begin() + 1, name.begin() + 1 + name[0]); };

    EXPECT_EQ (group.GetManufacturerName (63, name.data()), ficSuccess);
    EXPECT_EQ (text(), "Weavers & Daughters");
    group.GetManufacturerName (8, name.data());
    EXPECT_EQ (text(), "Weavers");
    group.GetPlugInName (name.data(), 2);
    EXPECT_EQ (text(), "Lo") << "the shortest, cut";
    group.GetProcessTypeName (stereo, 5, name.data());
    EXPECT_EQ (text(), "St");
    group.GetProcessTypeName (stereo, -1, name.data());
    EXPECT_EQ (text(), "");
    EXPECT_EQ (group.GetProcessTypeName (stereo, 5, nullptr), ficSuccess);
    EXPECT_EQ (group.GetAutoType(), 3);
}

TEST_F (CEffectGroupTest, TellsTheCodesAndChannelsOfItsTypes)
{
    std::uint32_t manufacturerID = 0, productID = 0, typeID = 0;
    EXPECT_EQ (group.GetProcessTypeIDs (2, &manufacturerID, &productID, &typeID), ficSuccess);
    EXPECT_EQ (std::tuple (manufacturerID, productID, typeID), std::tuple (maker, fourCC ("PrdM"), mono));

    for (const auto index : { -1, 0, 6 })
        EXPECT_EQ (group.GetProcessTypeIDs (index, nullptr, nullptr, nullptr), ficUnknownTypeIndex) << index;

    SFicPlugInStemFormats formats {};
    std::int16_t inputs = 0, outputs = 0;
    EXPECT_EQ (group.GetStemFormats (monoToStereo, &formats), ficSuccess);
    EXPECT_EQ (group.GetNumAudioInputs (monoToStereo, 0, &inputs), ficSuccess);
    EXPECT_EQ (group.GetNumAudioOutputs (monoToStereo, 0, &outputs), ficSuccess);
    EXPECT_EQ (std::tuple (formats.input, formats.output, formats.sideChain),
               std::tuple (stemFormatMono, stemFormatStereo, stemFormatNone));
    EXPECT_EQ (std::tuple (inputs, outputs), std::tuple (1, 2));
}

TEST_F (CEffectGroupTest, BuildsTheNameOfItsInstancesOnce)
{
    std::array<char, CEffectGroup::maxSDSBaseNameLength + 1> name {};
    group.BuildSDSBaseName (name.data());
    EXPECT_STREQ (name.data(), "Plug-Ins/Weavers & Daughters/Long Loom/3");

    group.DefinePlugInNamesAndVersion ("Other", 0);
    group.BuildSDSBaseName (name.data());
    EXPECT_STREQ (name.data(), "Plug-Ins/Weavers & Daughters/Long Loom/3");

    TestEffectGroup verbose;
    const std::string longName (200, 'x');
    verbose.DefineManufacturerNamesAndID ((longName + "\n" + longName.substr (0, 127)).c_str(), maker);
    verbose.DefinePlugInNamesAndVersion (longName.c_str(), 0x1ff);
    verbose.BuildSDSBaseName (name.data());
    const auto longest = longName.substr (0, 127);
    EXPECT_EQ (std::string (name.data()), ("Plug-Ins/" + longest + "/" + longest + "/255").substr (0, 255));
    gProcessGroup = &group;
}

constexpr auto givenProduct = fourCC ("givn");

TEST_F (CEffectGroupTest, FindsRelatedTypesByChannels)
{
    constexpr auto monoProduct = fourCC ("PrdM"), none = fourCC ("none"), other = fourCC ("othr");

    struct Row
    {
        std::uint32_t manufacturerID, typeID;
        std::int32_t inputs, outputs, result;
        std::uint32_t relatedProduct, relatedType; // in the record afterwards
    };

    for (const auto& row : { Row { maker, mono, 2, 2, ficSuccess, product, stereo },
                             { maker, stereo, 1, 1, ficSuccess, monoProduct, mono },
                             { maker, stereo, 1, 2, ficSuccess, product, monoToStereo },
                             { maker, monoToStereo, -3, 9, ficSuccess, product, monoToStereo },
                             { maker, stereo, 2, 1, ficNoRelatedType, givenProduct, stereo },
                             { maker, stereo, 3, 2, ficSuccess, givenProduct, stereo },
                             { maker, stereo, 2, 0, ficSuccess, givenProduct, stereo },
                             { maker, none, 2, 2, ficNoRelatedType, givenProduct, none },
                             { maker, none, 3, 3, ficNoRelatedType, givenProduct, none },
                             { other, stereo, 2, 2, ficNoRelatedType, givenProduct, stereo },
                             { other, stereo, 3, 3, ficSuccess, givenProduct, stereo } })
    {
        SFicPlugInSpec spec { row.manufacturerID, givenProduct, row.typeID };
        EXPECT_EQ (group.GetRelatedProcessType (&spec, row.inputs, row.outputs), row.result)
            << row.typeID << " " << row.inputs << " " << row.outputs;
        EXPECT_EQ (std::tuple (spec.manufacturerID, spec.productID, spec.typeID),
                   std::tuple (row.manufacturerID, row.relatedProduct, row.relatedType));
    }
}

TEST_F (CEffectGroupTest, FindsRelatedTypesByKindAndFormatOrElseByCounts)
{
    struct Row
    {
        std::int32_t plugInType, inputs, outputs, inputFormat, outputFormat, result;
        std::uint32_t relatedType;
    };

    for (const auto& row : { Row { nativeType, 7, 7, stemFormatMono, stemFormatMono, ficSuccess, mono },
                             { nativeType, 1, 2, -1, stemFormatMono, ficSuccess, monoToStereo },
                             { nativeType, 1, 1, stemFormatStereo, -1, ficSuccess, mono },
                             { offlineType, 2, 1, -1, -1, ficSuccess, fourCC ("offl") },
                             { offlineType, 2, 2, -1, -1, ficNoRelatedType, stereo },
                             { nativeType, 2, 2, 5, 5, ficNoRelatedType, stereo } })
    {
        SFicPlugInSpec spec { maker, givenProduct, stereo };
        EXPECT_EQ (group.GetRelatedProcessTypeOfType (
                       &spec, row.plugInType, row.inputs, row.outputs, row.inputFormat, row.outputFormat),
                   row.result);
        EXPECT_EQ (spec.typeID, row.relatedType)
            << row.plugInType << " " << row.inputs << " " << row.inputFormat;
    }
}

TEST_F (CEffectGroupTest, RelatesNothingToNothing)
{
    EXPECT_EQ (group.GetRelatedProcessType (nullptr, 2, 2), ficNoRelatedType);
    EXPECT_EQ (group.GetRelatedProcessTypeOfType (nullptr, nativeType, 2, 2, 1, 1), ficNoRelatedType);

    SFicPlugInSpec spec { maker, product, stranger };
    EXPECT_EQ (group.GetRelatedProcessType (&spec, 2, 2), ficNoRelatedType) << "a type without relations";
}

TEST_F (CEffectGroupTest, SignsTheChunksOfItsProcesses)
{
    constexpr unsigned char before = 0xa5;
    SFicPlugInChunk chunk;
    std::memset (&chunk, before, sizeof (chunk));
    const auto untouched = chunk;
    const auto isUntouched = [&] { return std::memcmp (&chunk, &untouched, sizeof (chunk)) == 0; };

    EXPECT_EQ (group.GetChunk (stereo, 1, FIC_CHUNK_JUCE, &chunk), ficUnknownProcess);
    EXPECT_TRUE (isUntouched());

    group.InstantiateProcess (stereo, nullptr);
    testProcessLog.answer = [] (const std::string&) -> std::int32_t { return ficChunkNotHandled; };
    EXPECT_EQ (group.GetChunk (stereo, 1, FIC_CHUNK_JUCE, &chunk), ficChunkNotHandled);
    EXPECT_TRUE (isUntouched()) << "there may be no room at all";

    testProcessLog.answer = {};
    EXPECT_EQ (group.GetChunk (stereo, 1, FIC_CHUNK_JUCE, &chunk), ficSuccess);
    EXPECT_EQ (std::tuple (chunk.chunkSize, chunk.version),
               std::tuple (ficChunkHeaderSize, static_cast<std::int32_t> (pluginVersion)));
    EXPECT_EQ (std::tuple (chunk.manufacturerID, chunk.productID, chunk.typeID),
               std::tuple (maker, product, stereo));
    EXPECT_EQ (chunk.chunkID, FIC_CHUNK_JUCE);
    EXPECT_THAT (std::vector<int> (chunk.chunkName, chunk.chunkName + 5),
                 testing::ElementsAre (0, 0, 0, 0, before));
}

TEST_F (CEffectGroupTest, RefusesChunksOfOthers)
{
    group.InstantiateProcess (stereo, nullptr);
    testProcessLog.calls.clear();

    SFicPlugInChunk foreignMaker { ficChunkHeaderSize, 0, maker + 1, product, stereo, FIC_CHUNK_JUCE, {} };
    SFicPlugInChunk foreignProduct { ficChunkHeaderSize, 0, maker, product + 1, stereo, FIC_CHUNK_JUCE, {} };
    unsigned char same = 7;

    for (const auto* chunk : { &foreignMaker, &foreignProduct, static_cast<SFicPlugInChunk*> (nullptr) })
    {
        EXPECT_EQ (group.SetChunk (stereo, 1, FIC_CHUNK_JUCE, chunk), ficChunkNotHandled);
        EXPECT_EQ (group.CompareActiveChunk (stereo, 1, chunk, &same), ficChunkNotHandled);
    }

    EXPECT_TRUE (testProcessLog.calls.empty());
    EXPECT_EQ (same, 7);

    SFicPlugInChunk own { ficChunkHeaderSize, 0, maker, product, mono, FIC_CHUNK_JUCE, {} };
    EXPECT_EQ (group.SetChunk (stereo, 1, FIC_CHUNK_JUCE, &own), ficSuccess)
        << "of another type of the product";
    EXPECT_EQ (group.CompareActiveChunk (stereo, 1, &own, &same), ficSuccess);
    EXPECT_THAT (testProcessLog.calls, testing::ElementsAre ("SetChunk1", "CompareActiveChunk1"));
    EXPECT_EQ (same, 1);
}

TEST_F (CEffectGroupTest, AnnouncesEachNewNativeProcess)
{
    std::int32_t process = 0;
    group.InstantiateProcess (stereo, nullptr);
    EXPECT_EQ (group.InstantiateProcess (stereo, &process), ficSuccess);
    EXPECT_EQ (process, 2);
    EXPECT_EQ (testProcessLog.calls.back(), "CreateHostPlugIn");

    const auto& id = testProcessLog.announcedId;
    EXPECT_EQ (std::tuple (id.manufacturerID, id.productID, id.typeID, id.plugInObject, id.processIndex),
               std::tuple (maker, product, stereo, hostObject, 2));
}

struct AnnouncementCase
{
    const char* name;
    bool isNative;
    std::int32_t (*answer)(); // to the announcement
    std::int32_t result;
};

std::int32_t refuse()
{
    return ficOutOfMemory;
}

std::int32_t lose()
{
    throw std::runtime_error ("lost");
}

constexpr AnnouncementCase announcementCases[] = {
    { "NotNative", false, nullptr, ficUnknownTypeIndex },
    { "Refused", true, refuse, ficOutOfMemory },
    { "Thrown", true, lose, ficUnknownException },
};

using CEffectTypeRTASFailure = WithRows<CEffectGroupTest, AnnouncementCase>;

INSTANTIATE_ROWS (CEffectTypeRTASFailure, announcementCases);

TEST_P (CEffectTypeRTASFailure, ToAnnounceAProcessLeavesNothing)
{
    makesNativeProcesses = GetParam().isNative;
    testProcessLog.answer = [] (const std::string& call)
    { return call == "CreateHostPlugIn" ? GetParam().answer() : std::int32_t { ficSuccess }; };
    std::int32_t process = 99;

    EXPECT_EQ (group.InstantiateProcess (stereo, &process), GetParam().result);
    EXPECT_EQ (process, 99);
    EXPECT_EQ (testProcessLog.count ("ReleaseMIDI1"), 1);
    EXPECT_EQ (testProcessLog.count ("Free1"), 1);
    EXPECT_EQ (testProcessLog.numAlive, 0);
    EXPECT_EQ (group.native->GetProcessFromIndex (1), nullptr);
    EXPECT_EQ (platform::numOpenResourceFiles(), 0);
    EXPECT_EQ (gOurTokenTask, nullptr);
}

TEST (StemFormats, CountTheirChannels)
{
    constexpr std::array channels { 1, 2, 3, 4, 4, 5, 6, 6, 7, 7, 8 };

    for (std::int32_t format = 0; format < static_cast<std::int32_t> (channels.size()); ++format)
        EXPECT_EQ (SurroundFormatToNumChannels (format), channels[static_cast<std::size_t> (format)])
            << format;

    for (const auto format : { -2, -1, 11 })
        EXPECT_THROW (SurroundFormatToNumChannels (format), CDAEError) << format;
}

TEST (StemFormats, AreAnnouncedByChannels)
{
    constexpr std::array formats { -1, 0, 1, 2, 3, 5, 6, 9, 10, -1 };

    for (std::int32_t channels = 0; channels < static_cast<std::int32_t> (formats.size()); ++channels)
        EXPECT_EQ (stemFormatOf (channels), formats[static_cast<std::size_t> (channels)]) << channels;
}
} // namespace
