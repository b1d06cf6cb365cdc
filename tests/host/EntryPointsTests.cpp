// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// What a host finds in the bundle by name: opening, closing, and the small answers.

#include "host/CDAEError.h"
#include "host/CProcessGroup.h"
#include "host/FakeFramework.h"
#include "host/GroupMaker.h"
#include "host/HostGlobals.h"
#include "host/Routines.h"
#include "host/platform/ResourceFiles.h"
#include "support/NamedRows.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <exception>
#include <new>

extern "C"
{
    std::int32_t NewMachOPlugIn (CFBundleRef bundle);
    std::int32_t CloseMachOPlugIn (CFBundleRef bundle);
    CFBundleRef CProcessGroupGetBundleRef();
    std::int16_t CProcessGroupUseResourceFile();
    void CProcessGroupRestoreResourceFile (std::int16_t file);
    extern void* const __PI_GetRoutineDescriptor[4];
    std::int32_t Dispatcher (const void* record);
}

namespace
{
int numGroups = 0;
void (*whileInitializing)() = nullptr;

class CountedGroup : public CProcessGroup
{
public:
    CountedGroup() { ++numGroups; }
    ~CountedGroup() override { --numGroups; }

protected:
    void CreateProcessTypeObjects() override
    {
        if (whileInitializing != nullptr)
            whileInitializing();
    }
};

CFBundleRef bundleNumber (std::uintptr_t number)
{
    return reinterpret_cast<CFBundleRef> (number);
}

class EntryPoints : public testing::Test
{
protected:
    EntryPoints()
    {
        whileInitializing = nullptr;
        groupMaker = []() -> CProcessGroup* { return new CountedGroup; };
    }

    ~EntryPoints() override { groupMaker = nullptr; }

    void expectClosed()
    {
        EXPECT_EQ (numGroups, 0);
        EXPECT_EQ (gProcessGroup, nullptr);
        EXPECT_EQ (framework.bundleCount, 0);
        EXPECT_EQ (framework.numObjects, 0);
        EXPECT_EQ (CProcessGroupGetBundleRef(), nullptr);
    }

    FakeFramework framework;
};

TEST_F (EntryPoints, OpenAndCloseAPlugIn)
{
    EXPECT_EQ (NewMachOPlugIn (bundleNumber (7)), ficSuccess);
    EXPECT_EQ (CProcessGroupGetBundleRef(), bundleNumber (7));
    EXPECT_EQ (framework.bundleCount, 1);
    EXPECT_EQ (numGroups, 1);

    EXPECT_EQ (CloseMachOPlugIn (bundleNumber (7)), ficSuccess);
    expectClosed();
    EXPECT_EQ (CloseMachOPlugIn (bundleNumber (7)), ficSuccess);
    expectClosed();
}

TEST_F (EntryPoints, CloseWhatWasOpenBeforeTheyOpenAnother)
{
    NewMachOPlugIn (bundleNumber (7));
    EXPECT_EQ (NewMachOPlugIn (bundleNumber (8)), ficSuccess);
    EXPECT_EQ (numGroups, 1);
    EXPECT_EQ (framework.bundleCount, 1);
    EXPECT_EQ (CProcessGroupGetBundleRef(), bundleNumber (8));
    CloseMachOPlugIn (bundleNumber (8));
    expectClosed();
}

struct OpeningCase
{
    const char* name;
    void (*spoil) (FakeFramework& framework);
    std::int32_t result;
};

template <typename Error, auto... arguments>
void spoilInitialization (FakeFramework&)
{
    whileInitializing = [] { throw Error (arguments...); };
}

const OpeningCase openingCases[] = {
    { "NoGroup",
      [] (auto&)
      {
          groupMaker = []() -> CProcessGroup* { return nullptr; };
      },
      ficNoGroup },
    { "NoFramework", [] (auto& framework) { framework.isThere = false; }, ficNoCriticalSection },
    { "NoSection", [] (auto& framework) { framework.makesCriticalSection = false; }, ficNoCriticalSection },
    { "OldServices", [] (auto& framework) { framework.services.version = 0; }, ficServicesTooOld },
    { "NoServices", [] (auto& framework) { framework.hasServices = false; }, ficServicesTooOld },
    { "HostError", spoilInitialization<CDAEError, ficUnknownType>, ficUnknownType },
    { "NoMemory", spoilInitialization<std::bad_alloc>, ficOutOfMemory },
    { "OtherException", spoilInitialization<std::exception>, ficUnknownException },
};

using EntryPointsFailure = WithRows<EntryPoints, OpeningCase>;

INSTANTIATE_ROWS (EntryPointsFailure, openingCases);

TEST_P (EntryPointsFailure, ToOpenLeavesNothing)
{
    GetParam().spoil (framework);
    EXPECT_EQ (NewMachOPlugIn (bundleNumber (7)), GetParam().result);
    EXPECT_EQ (numGroups, 0);
    EXPECT_EQ (gProcessGroup, nullptr);
    EXPECT_EQ (framework.bundleCount, 0);
    EXPECT_EQ (CProcessGroupGetBundleRef(), nullptr);
}

TEST_F (EntryPoints, LeadToTheRoutines)
{
    EXPECT_EQ (__PI_GetRoutineDescriptor[0], reinterpret_cast<void*> (PI_GetRoutineDescriptor));

    for (const auto word : { 1, 2, 3 })
        EXPECT_EQ (__PI_GetRoutineDescriptor[word], nullptr);
}

TEST_F (EntryPoints, ForwardTheResourceFileWithoutAGroup)
{
    const auto before = CProcessGroupUseResourceFile();
    EXPECT_EQ (platform::numOpenResourceFiles(), 1);
    CProcessGroupRestoreResourceFile (before);
    EXPECT_EQ (platform::numOpenResourceFiles(), 0);
}

TEST_F (EntryPoints, ReadTheAnswerOfACardsRecord)
{
    std::array<unsigned char, 16> record {};
    constexpr std::int32_t answer = 0x01020304;
    std::memcpy (record.data() + 10, &answer, sizeof (answer));
    record[0] = 1;
    EXPECT_EQ (Dispatcher (record.data()), answer);
    EXPECT_EQ (Dispatcher (nullptr), 0);

    for (const auto byte : { 4u, 7u })
    {
        record[byte] = 1;
        EXPECT_EQ (Dispatcher (record.data()), 0) << byte;
        record[byte] = 0;
    }
}
} // namespace
