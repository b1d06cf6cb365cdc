// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The operations that the rows of the routine table make in processes and types which know nothing better.

#include "host/CProcessOperations.h"
#include "host/CProcessType.h"
#include "host/RoutineArguments.h"

#include <gtest/gtest.h>

namespace
{
template <typename Object>
struct OperationRow
{
    std::int32_t selector;
    const char* name;
    std::int32_t neutralAnswer;
    std::int32_t (*call) (Object& object, ArgumentMaker& maker);
};

#define OPERATION_ROW(Object, selector, Name, answer)                                                        \
    OperationRow<Object> { selector, #Name, answer, [] (Object& object, ArgumentMaker& maker) {              \
                              return callWith (object, &Object::Name, maker);                                \
                          } },
#define TYPE_ROW(selector, Name, ...)            OPERATION_ROW (CProcessType, selector, Name, 0)
#define PROCESS_ROW(selector, Name, answer, ...) OPERATION_ROW (CProcessOperations, selector, Name, answer)

const OperationRow<CProcessType> typeRows[] = { FIC_ROUTINES (FIC_SKIP, TYPE_ROW, FIC_SKIP, FIC_SKIP) };
const OperationRow<CProcessOperations> processRows[] = { FIC_ROUTINES (
    FIC_SKIP, FIC_SKIP, PROCESS_ROW, FIC_SKIP) };

#undef OPERATION_ROW
#undef TYPE_ROW
#undef PROCESS_ROW

TEST (RoutineOperations, OfAProcessAnswerAsTheirRowsSay)
{
    for (const auto& row : processRows)
    {
        SCOPED_TRACE (row.name);
        CProcessOperations process;
        ArgumentMaker maker;
        EXPECT_EQ (row.call (process, maker), row.neutralAnswer);
        EXPECT_TRUE (maker.onlyResultsAreCleared());
    }
}

TEST (RoutineOperations, OfATypeAnswerNothing)
{
    for (const auto& row : typeRows)
    {
        if (row.selector == ficSelectorInstantiateProcess || row.selector == ficSelectorFreeProcess)
            continue;

        SCOPED_TRACE (row.name);
        CProcessType type;
        ArgumentMaker maker;
        EXPECT_EQ (row.call (type, maker), row.neutralAnswer);
        EXPECT_TRUE (maker.onlyResultsAreCleared());
    }
}
} // namespace
