// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The numbered routines: which there are, where they lead, and that nothing but a result comes out of them.

#include "host/CDAEError.h"
#include "host/CProcessGroup.h"
#include "host/FakeFramework.h"
#include "host/HostGlobals.h"
#include "host/RoutineArguments.h"
#include "host/Routines.h"
#include "support/NamedRows.h"

#include <gtest/gtest.h>

#include <functional>
#include <new>
#include <set>
#include <stdexcept>

namespace
{
using Words = std::vector<std::uintptr_t>;

constexpr std::int32_t groupResult = -4711;

/** Notes each operation that a routine reaches, with its arguments. */
class RecordingGroup : public CProcessGroup
{
public:
#define GROUP_OPERATION(selector, Name, parameters, names)                                                   \
    std::int32_t Name parameters override                                                                    \
    {                                                                                                        \
        return record<selector> names;                                                                       \
    }
#define TYPE_OPERATION(selector, Name, parameters, names)                                                    \
    std::int32_t Name (std::uint32_t type FIC_BARE parameters) override                                      \
    {                                                                                                        \
        return record<selector> (type FIC_BARE names);                                                       \
    }
#define PROCESS_OPERATION(selector, Name, answer, parameters, names)                                         \
    std::int32_t Name (std::uint32_t type, std::int32_t process FIC_BARE parameters) override                \
    {                                                                                                        \
        return record<selector> (type, process FIC_BARE names);                                              \
    }
#define FIXED_OPERATION(selector, Name, parameters, names)                                                   \
    PROCESS_OPERATION (selector, Name, 0, parameters, names)

    FIC_ROUTINES (GROUP_OPERATION, TYPE_OPERATION, PROCESS_OPERATION, FIXED_OPERATION)

#undef GROUP_OPERATION
#undef TYPE_OPERATION
#undef PROCESS_OPERATION
#undef FIXED_OPERATION

    std::vector<std::int32_t> selectors;
    Words words;
    std::function<void()> beforeResult;

private:
    template <std::int32_t selector, typename... Arguments>
    std::int32_t record (Arguments... arguments)
    {
        selectors.push_back (selector);
        words = { asWord (arguments)... };

        if (beforeResult)
            beforeResult();

        return groupResult;
    }
};

/** Calls the routine of a row. */
std::int32_t call (const RoutineRow& row, ArgumentMaker& maker)
{
    FicRoutine routine = nullptr;
    EXPECT_EQ (PI_GetRoutineDescriptor (row.selector, &routine), ficSuccess);
    return row.call (routine, maker);
}

class GroupInUse
{
public:
    explicit GroupInUse (CProcessGroup* group) { gProcessGroup = group; }
    ~GroupInUse() { gProcessGroup = nullptr; }
};

class ScopeInUse
{
public:
    explicit ScopeInUse (std::int32_t scope) { CProcessGroupInterface::sCriticalSectionScope = scope; }
    ~ScopeInUse() { CProcessGroupInterface::sCriticalSectionScope = before; }

private:
    const std::int32_t before = CProcessGroupInterface::sCriticalSectionScope;
};

TEST (Routines, LeadToTheOperationOfTheirRowOrHaveAFixedAnswer)
{
    for (const auto& row : routineRows)
    {
        SCOPED_TRACE (row.name);
        RecordingGroup group;
        const GroupInUse inUse (&group);
        ArgumentMaker maker;

        const auto result = call (row, maker);

        if (row.isFixed())
        {
            EXPECT_EQ (result, ficSuccess);
            EXPECT_TRUE (group.selectors.empty());
            EXPECT_EQ (maker.numTouchedBytes(), row.selector == ficSelectorGetControlUnitsString ? 1u : 0u);
        }
        else
        {
            EXPECT_EQ (result, groupResult);
            EXPECT_EQ (group.selectors, std::vector<std::int32_t> { row.selector });
            EXPECT_EQ (group.words, maker.words);
            EXPECT_EQ (maker.numTouchedBytes(), 0u);
        }
    }
}

TEST (Routines, NeedAGroupUnlessTheirAnswerIsFixed)
{
    for (const auto& row : routineRows)
    {
        SCOPED_TRACE (row.name);
        ArgumentMaker maker;
        EXPECT_EQ (call (row, maker), row.isFixed() ? ficSuccess : ficNoGroup);
    }
}

TEST (RoutineTable, SaysWhichSelectorsAHostMaySend)
{
    for (const auto selector : { -6, -1, 0, 11, 107, 173 })
        EXPECT_TRUE (CProcessGroupInterface::CanDoSelector (static_cast<std::int16_t> (selector)))
            << selector;

    for (const auto selector : { -32768, -7, 174, 32767 })
        EXPECT_FALSE (CProcessGroupInterface::CanDoSelector (static_cast<std::int16_t> (selector)))
            << selector;
}

struct ExceptionCase
{
    const char* name;
    std::function<void()> thrower;
    std::int32_t result;
};

const ExceptionCase exceptionCases[] = {
    { "HostError", [] { throw CDAEError (ficUnknownProcess); }, ficUnknownProcess },
    { "NoMemory", [] { throw std::bad_alloc(); }, ficOutOfMemory },
    { "NoArray", [] { throw std::bad_array_new_length(); }, ficOutOfMemory },
    { "StandardException", [] { throw std::runtime_error ("lost"); }, ficUnknownException },
    { "Number", [] { throw 1; }, ficUnknownException },
};

using RoutineExceptions = testing::TestWithParam<ExceptionCase>;

INSTANTIATE_ROWS (RoutineExceptions, exceptionCases);

TEST_P (RoutineExceptions, BecomeResultsAndLeaveTheCriticalSection)
{
    FakeFramework framework;
    RecordingGroup group;
    const GroupInUse inUse (&group);
    const ScopeInUse scope (99);
    group.CProcessGroup::Initialize();
    group.beforeResult = [&]
    {
        EXPECT_EQ (framework.criticalSectionDepth, 1);
        GetParam().thrower();
    };

    for (const auto& row : routineRows)
    {
        if (row.isFixed() || row.selector == ficSelectorGetAutoType)
            continue;

        ArgumentMaker maker;
        EXPECT_EQ (call (row, maker), GetParam().result) << row.name;
        EXPECT_EQ (framework.criticalSectionDepth, 0) << row.name;
    }
}

struct ScopeCase
{
    const char* name;
    std::int32_t scope;
    bool usual, late, latest;
};

const ScopeCase scopeCases[] = {
    { "None", 0, false, false, false },      { "Least", 1, true, false, false },
    { "BelowFull", 98, true, false, false }, { "Full", 99, true, true, false },
    { "AboveFull", 100, true, true, true },
};

using CriticalSectionScope = testing::TestWithParam<ScopeCase>;

INSTANTIATE_ROWS (CriticalSectionScope, scopeCases);

TEST_P (CriticalSectionScope, DecidesWhichRoutinesRunInside)
{
    const std::set<std::int32_t> late {
        ficSelectorDraw, ficSelectorSetViewPort, ficSelectorProcessData, ficSelectorReleaseMIDI
    };

    FakeFramework framework;
    RecordingGroup group;
    const GroupInUse inUse (&group);
    const ScopeInUse scope (GetParam().scope);
    group.CProcessGroup::Initialize();

    for (const auto& row : routineRows)
    {
        framework.numTimesEntered = 0;
        ArgumentMaker maker;
        call (row, maker);

        const auto expected = row.selector == ficSelectorGetAutoType ? GetParam().latest
                              : late.contains (row.selector)         ? GetParam().late
                                                                     : GetParam().usual;
        EXPECT_EQ (framework.numTimesEntered, expected && ! row.isFixed() ? 1 : 0) << row.name;
    }
}

TEST (CriticalSectionScope, WithoutASectionRoutinesRunAllTheSame)
{
    RecordingGroup group;
    const GroupInUse inUse (&group);
    const ScopeInUse scope (100);
    ArgumentMaker maker;
    EXPECT_EQ (call (routineRows[0], maker), groupResult);
}
} // namespace
