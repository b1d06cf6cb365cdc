// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The host's functions: what they answer when the host has them, and when it has not.

#include "host/FakeFramework.h"
#include "host/FicFunctions.h"
#include "support/NamedRows.h"

#include <gtest/gtest.h>

namespace
{
struct FrameworkCase
{
    const char* name;
    bool frameworkIsThere;
    const char* missingFunction;
    std::int32_t initialised, result, answer;
    bool hasServices;
};

const FrameworkCase frameworkCases[] = {
    { "AllThere", true, "", ficSuccess, ficSuccess, 1, true },
    { "NoFramework", false, "", ficFrameworkMissing, ficFrameworkMissing, 0, false },
    { "NoMarker", true, FIC_FRAMEWORK_MARKER, ficFrameworkMissing, ficFrameworkMissing, 0, false },
    { "NoSuchFunction", true, "FicGestalt", ficSuccess, ficFunctionMissing, 0, true },
    { "NoServices", true, "FicGetServices", ficSuccess, ficSuccess, 1, false },
};

using FicFunctions = testing::TestWithParam<FrameworkCase>;

TEST_P (FicFunctions, AnswerWithTheCodeOfWhatIsMissing)
{
    FakeFramework framework;
    framework.isThere = GetParam().frameworkIsThere;
    framework.missingFunction = GetParam().missingFunction;

    EXPECT_EQ (UDigiLibAccess::Initialize(), GetParam().initialised);

    std::int32_t answer = 0;
    EXPECT_EQ (host::FicGestalt (FIC_GESTALT_TOKEN_SERVICE, &answer), GetParam().result);
    EXPECT_EQ (answer, GetParam().answer);
    EXPECT_EQ (host::FicGetServices() != nullptr, GetParam().hasServices);
}

INSTANTIATE_ROWS (FicFunctions, frameworkCases);

TEST (FicFunctions, AreForgottenWithTheFramework)
{
    FakeFramework framework;
    std::int32_t answer = 0;

    EXPECT_EQ (host::FicGestalt (FIC_GESTALT_TOKEN_SERVICE, &answer), ficFrameworkMissing)
        << "before it is loaded";
    UDigiLibAccess::Initialize();
    framework.isThere = false;
    UDigiLibAccess::Initialize();
    EXPECT_EQ (host::FicGestalt (FIC_GESTALT_TOKEN_SERVICE, &answer), ficFrameworkMissing);

    platform::HostFunction function = nullptr;
    EXPECT_EQ (UDigiLibAccess::GetProcPtr (FicFunctionIndex::indexFicGestalt, &function), ficNoSuchRoutine);
}
} // namespace
