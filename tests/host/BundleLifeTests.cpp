// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The life of the plug-in in its host: start, instances, end, and a host that fails at any point of it.

#include "BundleFixture.h"
#include "support/NamedRows.h"

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
#define SERVICE_ROW(Name)                   FAULT_ROW (void, Name, ())

// clang-format off
constexpr FaultRow faultRows[] = {
    FIC_HOST_FUNCTIONS (FAULT_ROW)
    SERVICE_ROW (InitFic)
    SERVICE_ROW (NewStandardObject)
    SERVICE_ROW (ReleaseName)
    SERVICE_ROW (GetRemoteObjectManager)
    SERVICE_ROW (RegisterRemoteObject)
    SERVICE_ROW (CallRemoteObject)
};
// clang-format on

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

INSTANTIATE_ROWS (BundleFaults, faultRows);
} // namespace
