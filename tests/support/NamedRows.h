// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Names the rows of a table of cases, so that a failing row is known by its name.

#pragma once

#include <gtest/gtest.h>

#include <iterator>
#include <string>
#include <type_traits>

template <typename Row>
concept NamedRow = requires (const Row& row)
{
    std::string (row.name);
};

/** For INSTANTIATE_TEST_SUITE_P. */
template <NamedRow Row>
std::string rowName (const testing::TestParamInfo<Row>& info)
{
    return info.param.name;
}

/** A suite whose tests run on a fixture of their own for each row. */
template <typename Fixture, typename Row>
class WithRows : public Fixture, public testing::WithParamInterface<Row>
{
};

/** Runs the tests of a suite for each row of a table, under the row's name. */
#define INSTANTIATE_ROWS(Suite, rows)                                                                        \
    INSTANTIATE_TEST_SUITE_P (                                                                               \
        Rows, Suite, testing::ValuesIn (rows), rowName<std::decay_t<decltype (*std::begin (rows))>>)
