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

/** Stands for the plug-in, with that much of it inside the critical section. */
class GroupInUse
{
public:
    explicit GroupInUse (CProcessGroup& group, std::int32_t scope = 99)
    {
        gProcessGroup = &group;
        CProcessGroupInterface::sCriticalSectionScope = scope;
    }

    ~GroupInUse()
    {
        gProcessGroup = nullptr;
        CProcessGroupInterface::sCriticalSectionScope = scopeBefore;
    }

private:
    const std::int32_t scopeBefore = CProcessGroupInterface::sCriticalSectionScope;
};

TEST (Routines, LeadToTheOperationOfTheirRowOrHaveAFixedAnswer)
{
    for (const auto& row : routineRows)
    {
        SCOPED_TRACE (row.name);
        RecordingGroup group;
        const GroupInUse inUse (group);
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

using Thrower = void (*)();

TEST (Routines, TurnExceptionsIntoResultsAndLeaveTheCriticalSection)
{
    for (const auto& [thrower, result] :
         { std::pair<Thrower, std::int32_t> { [] { throw CDAEError (ficUnknownProcess); },
                                              ficUnknownProcess },
           { [] { throw std::bad_alloc(); }, ficOutOfMemory },
           { [] { throw std::bad_array_new_length(); }, ficOutOfMemory },
           { [] { throw std::runtime_error ("lost"); }, ficUnknownException },
           { [] { throw 1; }, ficUnknownException } })
    {
        FakeFramework framework;
        RecordingGroup group;
        const GroupInUse inUse (group);
        group.CProcessGroup::Initialize();
        group.beforeResult = [&, throwIt = thrower]
        {
            EXPECT_EQ (framework.criticalSectionDepth, 1);
            throwIt();
        };

        for (const auto& row : routineRows)
        {
            if (row.isFixed() || row.selector == ficSelectorGetAutoType)
                continue;

            ArgumentMaker maker;
            EXPECT_EQ (call (row, maker), result) << row.name;
            EXPECT_EQ (framework.criticalSectionDepth, 0) << row.name;
        }
    }
}

TEST (Routines, RunInsideTheCriticalSectionAsItsScopeSays)
{
    const std::set<std::int32_t> late {
        ficSelectorDraw, ficSelectorSetViewPort, ficSelectorProcessData, ficSelectorReleaseMIDI
    };

    for (const std::int32_t scope : { 0, 1, 98, 99, 100 })
    {
        FakeFramework framework;
        RecordingGroup group;
        const GroupInUse inUse (group, scope);
        group.CProcessGroup::Initialize();

        for (const auto& row : routineRows)
        {
            framework.numTimesEntered = 0;
            ArgumentMaker maker;
            call (row, maker);
            const int leastScope = row.selector == ficSelectorGetAutoType ? 100
                                   : late.contains (row.selector)         ? 99
                                                                          : 1;
            EXPECT_EQ (framework.numTimesEntered, scope >= leastScope && ! row.isFixed())
                << row.name << " " << scope;
        }
    }
}

TEST (Routines, RunWithoutACriticalSectionAllTheSame)
{
    RecordingGroup group;
    const GroupInUse inUse (group, 100);
    ArgumentMaker maker;
    EXPECT_EQ (call (routineRows[0], maker), groupResult);
}
} // namespace
