// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Names the rows of a table of cases, so that a failing row is known by its name.

#pragma once

#include <gtest/gtest.h>

#include <string>

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
