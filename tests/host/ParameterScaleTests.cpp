// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Parameter values on the host's control scale and back.

#include "host/ParameterScale.h"

#include <gtest/gtest.h>

#include <limits>

namespace
{
constexpr auto bottom = std::numeric_limits<std::int32_t>::min();
constexpr auto top = std::numeric_limits<std::int32_t>::max();
} // namespace

TEST (ParameterScale, ParametersSpanTheWholeScale)
{
    constexpr auto infinity = std::numeric_limits<float>::infinity();
    constexpr auto noNumber = std::numeric_limits<float>::quiet_NaN();

    constexpr std::pair<float, std::int32_t> rows[] = { { 0.0f, bottom },      { 1.0f, top },
                                                        { 0.5f, 0 },           { 0.25f, -1073741824 },
                                                        { 0.75f, 1073741823 }, { -0.5f, bottom },
                                                        { 1.5f, top },         { -infinity, bottom },
                                                        { infinity, top },     { noNumber, bottom } };

    for (const auto& [parameter, expected] : rows)
        EXPECT_EQ (longFromParameter (parameter), expected) << parameter;
}

TEST (ParameterScale, TheScaleSpansAllParameters)
{
    EXPECT_EQ (parameterFromLong (bottom), 0.0f);
    EXPECT_EQ (parameterFromLong (top), 1.0f);
    EXPECT_EQ (parameterFromLong (0), 0.5f);
    EXPECT_EQ (parameterFromLong (-1), 0.5f);
    EXPECT_EQ (parameterFromLong (1073741823), 0.75f);
}

TEST (ParameterScale, ChoicesSurviveTheWayToTheHostAndBack)
{
    for (const float choice : { 0.0f, 0.1f, 0.2f, 1.0f, 0.5f, 0.286f })
        EXPECT_EQ (parameterFromLong (longFromParameter (choice)), choice);
}
