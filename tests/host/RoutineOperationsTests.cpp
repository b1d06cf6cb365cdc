// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The operations of those which know nothing better: each gives its row's answer and clears its results.

#include "host/CPlugIn.h"
#include "host/CProcessGroupInterface.h"
#include "host/CProcessOperations.h"
#include "host/CProcessType.h"
#include "host/RoutineArguments.h"

#include <gtest/gtest.h>

namespace
{
template <typename Object, typename... Arguments>
void expectNeutral (const char* name,
                    Object&& object,
                    std::int32_t (std::decay_t<Object>::*operation) (Arguments...),
                    std::int32_t answer)
{
    ArgumentMaker maker;
    EXPECT_EQ (callWith (object, operation, maker), answer) << name;
    EXPECT_TRUE (maker.onlyResultsAreCleared()) << name;
    EXPECT_EQ ((object.*operation) (Arguments {}...), answer) << name << " with null pointers";
}

#define OF_PROCESS(selector, Name, answer, ...)                                                              \
    expectNeutral (#Name, CProcessOperations(), &CProcessOperations::Name, answer);
#define OF_INTERFACE(selector, Name, ...)                                                                    \
    expectNeutral (#Name, CProcessGroupInterface(), &CProcessGroupInterface::Name, 0);
#define OF_INTERFACE_FOR_PROCESS(selector, Name, answer, ...)                                                \
    expectNeutral (#Name, CProcessGroupInterface(), &CProcessGroupInterface::Name, answer);
#define OF_TYPE(selector, Name, ...)                                                                         \
    if (selector != ficSelectorInstantiateProcess && selector != ficSelectorFreeProcess)                     \
        expectNeutral (#Name, CProcessType(), &CProcessType::Name, 0);

TEST (RoutineOperations,
      OfAProcessAnswerAsTheirRowsSay) { FIC_ROUTINES (FIC_SKIP, FIC_SKIP, OF_PROCESS, FIC_SKIP) }

TEST (RoutineOperations, OfTheInterfaceAnswerAsTheirRowsSay) {
    FIC_ROUTINES (OF_INTERFACE, OF_INTERFACE, OF_INTERFACE_FOR_PROCESS, FIC_SKIP)
}

TEST (RoutineOperations, OfATypeAnswerNothing) { FIC_ROUTINES (FIC_SKIP, OF_TYPE, FIC_SKIP, FIC_SKIP) }

TEST (RoutineOperations, OfAPlugInAnswerAsTheirRowsSay)
{
    CPlugIn plugIn ({});
    int numOperations = 0;

#define OF_PLUGIN(Name, answer, parameters, names)                                                           \
    expectNeutral (#Name, plugIn, &CPlugIn::Name, answer);                                                   \
    ++numOperations;

    CPLUGIN_NEUTRAL_OPERATIONS (OF_PLUGIN)
    CPLUGIN_NEUTRAL_NESTING_OPERATIONS (OF_PLUGIN)
    EXPECT_EQ (numOperations, 48);
}
} // namespace
