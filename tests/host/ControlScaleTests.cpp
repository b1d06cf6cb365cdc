// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Integers on the scale of controls and back, each to its last bit.

#include "support/NamedRows.h"

#include <gtest/gtest.h>
#include <host/ControlScale.h>

#include <cstdint>
#include <tuple>

namespace
{
constexpr std::int32_t bottom = longControlBottom;
constexpr std::int32_t top = longControlTop;

struct ScaleCase
{
    const char* name;
    std::int32_t value, low, high, control;
};

// Truncated toward zero: what lies between two whole numbers moves up below zero and down above it.
constexpr ScaleCase toScaleCases[] = {
    { "OffIsTheBottom", 0, 0, 1, bottom },
    { "OnIsTheTop", 1, 0, 1, top },
    { "AboveTheRange", 5, 0, 1, top },
    { "BelowTheRange", -5, 0, 1, bottom },
    { "HalfIsCutTowardZero", 1, 0, 2, 0 },
    { "QuarterBelowZero", 1, 0, 4, -1073741824 },
    { "ThreeQuartersAboveZero", 3, 0, 4, 1073741823 },
    { "NegativeRange", -50, -100, 0, 0 },
    { "WholeScaleBottom", bottom, bottom, top, bottom },
    { "WholeScaleTop", top, bottom, top, top },
    { "WholeScaleZero", 0, bottom, top, 0 },
    { "NoExtent", 7, 7, 7, bottom },
    { "TurnedRange", 7, 9, 1, bottom },
};

constexpr ScaleCase toRangeCases[] = {
    { "BottomIsOff", 0, 0, 1, bottom },
    { "TopIsOn", 1, 0, 1, top },
    { "JustBelowTheMiddle", 0, 0, 1, -1 },
    { "TheMiddleRoundsUp", 1, 0, 1, 0 },
    { "MiddleOfThree", 1, 0, 2, 0 },
    { "NegativeMiddleRoundsUp", -1, -3, 0, 0 },
    { "WholeScaleBottom", bottom, bottom, top, bottom },
    { "WholeScaleTop", top, bottom, top, top },
    { "NoExtent", 7, 7, 7, top },
};

using ToControlScale = testing::TestWithParam<ScaleCase>;

TEST_P (ToControlScale, PutsTheValueThere)
{
    const auto& row = GetParam();
    EXPECT_EQ (LongToLongControl (row.value, row.low, row.high), row.control);
}

using FromControlScale = testing::TestWithParam<ScaleCase>;

TEST_P (FromControlScale, FindsTheValue)
{
    const auto& row = GetParam();
    EXPECT_EQ (LongControlToNewRange (row.control, row.low, row.high), row.value);
}

INSTANTIATE_ROWS (ToControlScale, toScaleCases);
INSTANTIATE_ROWS (FromControlScale, toRangeCases);

TEST (ControlScale, EveryStepComesBack)
{
    for (const auto& [low, high] :
         { std::pair (0, 1), std::pair (-3, 4), std::pair (0, 1000), std::pair (-700, -1) })
        for (std::int32_t value = low; value <= high; ++value)
            ASSERT_EQ (LongControlToNewRange (LongToLongControl (value, low, high), low, high), value)
                << low << " to " << high;
}
} // namespace
