// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The life of the plug-in in its host: start, instances, end, and a host that fails at any point of it.

#include "BundleFixture.h"

namespace
{
using refhost::HostFaults;
using refhost::HostInstance;
using refhost::HostPoint;

class BundleLife : public BundleFixture
{
};

TEST_F (BundleLife, ShowsItsTypeOnceNativeTypesAreEnabled)
{
    const auto open = reinterpret_cast<NewMachOPlugInProc> (bundle->findExport ("NewMachOPlugIn"));
    ASSERT_EQ (open (&bundle->getReference()), ficSuccess);
    EXPECT_EQ (bundle->getReference().numReferences, 2);
    EXPECT_EQ (bundle->getNumTypes(), 0);

    constexpr std::int32_t anotherType = 2;
    EXPECT_EQ (pi.EnablePlugInType (anotherType), ficSuccess);
    EXPECT_EQ (bundle->getNumTypes(), 0);
    EXPECT_EQ (pi.EnablePlugInType (refhost::HostBundle::nativePlugInType), ficSuccess);
    EXPECT_EQ (bundle->getNumTypes(), 1);

    SFicPlugInSpec ids {};
    EXPECT_EQ (bundle->getTypeIDs (1, ids), ficSuccess);
    EXPECT_EQ (ids.manufacturerID, manufacturerCode);
    EXPECT_EQ (ids.productID, productCode);
    EXPECT_EQ (ids.typeID, typeCode);
    EXPECT_EQ (bundle->getTypeIDs (2, ids), ficUnknownTypeIndex);
}

TEST_F (BundleLife, StartsAgainAfterItsEnd)
{
    for (int life = 0; life < 3; ++life)
    {
        start();
        const auto instance = insert();
        BlockOfAudio audio (refhost::HostOffer().maxQuantum);
        EXPECT_TRUE (audio.render (*instance, 64));
        EXPECT_NE (audio.output[0][0], BlockOfAudio::mark);
        EXPECT_EQ (pi.FreeProcess (typeCode, 7), ficUnknownProcess);
        // Leaves the instance to the end of the plug-in's life.
    }
}

TEST_F (BundleLife, GivesAnInstanceTheLowestFreeIndex)
{
    start();
    auto first = insert();
    auto second = insert();
    EXPECT_EQ (first->getIndex(), 1);
    EXPECT_EQ (second->getIndex(), 2);

    second->setValue (swapLR, highest);
    first.reset();
    const auto third = insert();
    EXPECT_EQ (third->getIndex(), 1);
    EXPECT_EQ (third->getValue (swapLR), lowest);
    EXPECT_EQ (second->getValue (swapLR), highest);
}

TEST_F (BundleLife, KeepsSixtyFourInstancesApart)
{
    constexpr int numInstances = 64;
    start();
    std::vector<std::unique_ptr<HostInstance>> instances;

    for (int i = 0; i < numInstances; ++i)
        instances.push_back (insert());

    for (int i = 0; i < numInstances; i += 2)
        instances[static_cast<std::size_t> (i)]->setValue (swapLR, highest);

    BlockOfAudio audio (64);

    for (int i = 0; i < numInstances; ++i)
    {
        audio.fill (static_cast<std::uint32_t> (i));
        audio.input[1].assign (audio.input[1].size(), 0.0f);
        ASSERT_TRUE (audio.render (*instances[static_cast<std::size_t> (i)], 64)) << i;
        EXPECT_EQ (audio.output[0][0] == 0.0f, i % 2 == 0) << i;
        EXPECT_EQ (audio.output[1][0] == 0.0f, i % 2 == 1) << i;
    }

    // In an order of its own.
    for (int i = 0; i < numInstances; ++i)
        instances[static_cast<std::size_t> (i * 37 % numInstances)].reset();
}

TEST_F (BundleLife, CannotBeRenderedBehindItsEnd)
{
    start();
    auto instance = insert();
    const auto plugIn = instance->getPlugIn();
    ASSERT_NE (plugIn, nullptr);
    instance.reset();
    float sample = 0.0f;
    std::array<float*, 2> channels { &sample, &sample };
    EXPECT_FALSE (services.engine.render (*plugIn, channels.data(), channels.data(), 1));
    EXPECT_EQ (services.engine.getNumPlugIns(), 0);
}

/** Rendered noise with Safe Bass on, whose filter depends on the sample rate. */
std::vector<float> filtered (const HostInstance& instance)
{
    instance.setValue (BundleFixture::safeBass, BundleFixture::highest);
    instance.setValue (BundleFixture::safeBassFreq, BundleFixture::highest);
    BlockOfAudio audio (512);
    EXPECT_TRUE (audio.render (instance, 512));
    return audio.output[0];
}

TEST_F (BundleLife, PreparesAnInstanceForTheRateThatTheHostHasSetBefore)
{
    start();
    const auto atUsualRate = filtered (*insert());
    ASSERT_EQ (pi.SetSampleRate (96000), ficSuccess);
    const auto instance = insert();
    const auto atHighRate = filtered (*instance);
    EXPECT_NE (atHighRate, atUsualRate);

    // A rate that comes later holds for later instances.
    ASSERT_EQ (pi.SetSampleRate (44100), ficSuccess);
    const auto later = insert();
    EXPECT_EQ (filtered (*later), atUsualRate);
}

TEST_F (BundleLife, RegistersForTheHighestTransportThatTheHostHas)
{
    start();

    for (std::int32_t version = 0; version <= refhost::HostTransport::highestVersion; ++version)
    {
        services.transport.version = version;
        const int callsBefore = services.faults.getNumCalls (HostPoint::FicRegisterDirectMIDIClient);
        const auto instance = insert();
        EXPECT_EQ (services.transport.getNumClients(), version > 0 ? 1 : 0) << version;
        const int attempts =
            services.faults.getNumCalls (HostPoint::FicRegisterDirectMIDIClient) - callsBefore;
        EXPECT_EQ (attempts, version > 0 ? 8 - version : 7);

        services.transport.position.isPlaying = true;
        BlockOfAudio audio (64);
        EXPECT_TRUE (audio.render (*instance, 64)) << version;
        EXPECT_EQ (pi.ReleaseMIDI (typeCode, instance->getIndex()), ficSuccess);
        EXPECT_EQ (services.transport.getNumClients(), 0) << version;
    }
}

struct FaultRow
{
    HostPoint point;
    const char* name;
};

/** Called at the end, too: what fails there stays in the books, and must not throw. */
constexpr bool letsGo (HostPoint point)
{
    switch (point)
    {
        case HostPoint::FicGetServices:
        case HostPoint::FicSDSDoneWithToken:
        case HostPoint::FicUnRegisterDirectMIDIClient:
        case HostPoint::FicRetainBundle:
        case HostPoint::FicReleaseBundle:
        case HostPoint::ReleaseName:
        case HostPoint::RegisterRemoteObject:
        case HostPoint::CallRemoteObject:
            return true;
        default:
            return false;
    }
}

#define FAULT_ROW(Result, Name, parameters) FaultRow { HostPoint::Name, #Name },
#define SERVICE_FAULT_ROW(Name)             FAULT_ROW (void, Name, ())

constexpr FaultRow faultRows[] = { FIC_HOST_FUNCTIONS (FAULT_ROW) SERVICE_FAULT_ROW (InitFic)
                                       SERVICE_FAULT_ROW (NewStandardObject) SERVICE_FAULT_ROW (ReleaseName)
                                           SERVICE_FAULT_ROW (GetRemoteObjectManager)
                                               SERVICE_FAULT_ROW (RegisterRemoteObject)
                                                   SERVICE_FAULT_ROW (CallRemoteObject) };

class BundleFaults : public BundleFixture, public testing::WithParamInterface<FaultRow>
{
protected:
    void TearDown() override
    {
        if (! letsGo (GetParam().point))
            return BundleFixture::TearDown();

        bundle->stop();
    }

    /** One whole life with the host as it is now. */
    void live()
    {
        if (bundle->start() == ficSuccess)
        {
            std::int32_t result = ficSuccess;
            const auto instance = HostInstance::make (*bundle, services, typeCode, result);
            EXPECT_EQ (instance != nullptr, result == ficSuccess);

            if (instance != nullptr)
            {
                pi.SetControlValue (typeCode, instance->getIndex(), swapLR, highest);
                services.tokens.send (1, FIC_TOKEN_GET, FIC_TOKEN_VALUE, 0);
                instance->idle();
                BlockOfAudio audio (64);
                audio.render (*instance, 64);
            }
        }

        bundle->stop();
    }
};

TEST_P (BundleFaults, LeaveNothingBehindAndAreOver)
{
    std::vector<HostFaults::Kind> kinds { HostFaults::Kind::code };

    if (! letsGo (GetParam().point))
        kinds.insert (kinds.end(), { HostFaults::Kind::badAlloc, HostFaults::Kind::exception });

    for (const auto kind : kinds)
    {
        for (const int call : { 1, 2, 3, 4, 5, 8, 60 })
        {
            SCOPED_TRACE (testing::Message() << "kind " << static_cast<int> (kind) << ", call " << call);
            services.faults.fail (GetParam().point, kind, call, call % 2 == 0 ? 1 : HostFaults::forEver);
            live();
            services.faults.clear();

            if (letsGo (GetParam().point))
                continue;

            ASSERT_EQ (services.leftInTheBooks(), "");
            ASSERT_EQ (bundle->getReference().numReferences, 1);
        }
    }

    // And the host is well again.
    start();
    const auto instance = insert();
    ASSERT_NE (instance, nullptr);
    EXPECT_EQ (instance->getNumControls(), numControls);
}

INSTANTIATE_TEST_SUITE_P (Points,
                          BundleFaults,
                          testing::ValuesIn (faultRows),
                          [] (const auto& row) { return std::string (row.param.name); });

struct CodeRow
{
    const char* name;
    HostPoint point;
    HostFaults::Kind kind;
    std::int32_t startResult, insertResult;
};

class BundleFaultCodes : public BundleFixture, public testing::WithParamInterface<CodeRow>
{
};

TEST_P (BundleFaultCodes, ReachTheHostAsResults)
{
    const auto& row = GetParam();
    services.faults.fail (row.point, row.kind);
    ASSERT_EQ (bundle->start(), row.startResult);

    if (row.startResult == ficSuccess)
    {
        std::int32_t result = ficSuccess;
        const auto instance = HostInstance::make (*bundle, services, typeCode, result);
        EXPECT_EQ (result, row.insertResult);
    }

    services.faults.clear();
}

constexpr auto usualCode = HostFaults::usualCode;

constexpr CodeRow codeRows[] = {
    { "noCriticalSection",
      HostPoint::FicCreateCriticalSection,
      HostFaults::Kind::code,
      ficNoCriticalSection,
      0 },
    { "noServices", HostPoint::FicGetServices, HostFaults::Kind::code, ficServicesTooOld, 0 },
    { "startThrowsBadAlloc",
      HostPoint::FicCreateCriticalSection,
      HostFaults::Kind::badAlloc,
      ficOutOfMemory,
      0 },
    { "startThrows",
      HostPoint::FicCreateCriticalSection,
      HostFaults::Kind::exception,
      ficUnknownException,
      0 },
    { "initFails", HostPoint::InitFic, HostFaults::Kind::code, 0, usualCode },
    { "initThrows", HostPoint::InitFic, HostFaults::Kind::exception, 0, ficUnknownException },
    { "nameRefused", HostPoint::FicSDSReserveName, HostFaults::Kind::code, 0, usualCode },
    { "nameThrowsBadAlloc", HostPoint::FicSDSReserveName, HostFaults::Kind::badAlloc, 0, ficOutOfMemory },
    { "registrationThrows", HostPoint::FicRegisterDirectMIDIClient, HostFaults::Kind::exception, 0, 0 },
    { "noTransport", HostPoint::FicRegisterDirectMIDIClient, HostFaults::Kind::code, 0, 0 },
    { "noTokenTask", HostPoint::NewStandardObject, HostFaults::Kind::code, 0, 0 },
    { "noGestalt", HostPoint::FicGestalt, HostFaults::Kind::code, 0, 0 },
    { "noManager", HostPoint::GetRemoteObjectManager, HostFaults::Kind::code, 0, 0 },
};

INSTANTIATE_TEST_SUITE_P (Rows,
                          BundleFaultCodes,
                          testing::ValuesIn (codeRows),
                          [] (const auto& row) { return std::string (row.param.name); });

TEST_F (BundleLife, RefusesAnInstanceWhoseListenersCannotAllBeMade)
{
    start();

    // The task is the first object, the listeners come behind it, three a control.
    for (const int call : { 2, 3, 80, 3 * numControls + 1 })
    {
        services.faults.fail (HostPoint::NewStandardObject, HostFaults::Kind::code, call, 1);
        std::int32_t result = ficSuccess;
        EXPECT_EQ (HostInstance::make (*bundle, services, typeCode, result), nullptr) << call;
        EXPECT_EQ (result, ficObjectNotMade) << call;
        services.faults.clear();
        EXPECT_EQ (services.leftInTheBooks(), "") << call;
    }

    EXPECT_NE (insert(), nullptr);
}

class BundleWithOldHost : public BundleFixture
{
protected:
    BundleWithOldHost()
        : BundleFixture (oldHost())
    {
    }

    static refhost::HostOffer oldHost()
    {
        refhost::HostOffer offer;
        offer.servicesVersion = 0;
        return offer;
    }
};

TEST_F (BundleWithOldHost, DoesNotStart)
{
    EXPECT_EQ (bundle->start(), ficServicesTooOld);
    std::int16_t numTypes = 9;
    EXPECT_EQ (pi.GetNumProcessTypes (&numTypes), ficNoGroup);
    EXPECT_EQ (numTypes, 9);
}
} // namespace
