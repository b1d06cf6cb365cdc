// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Counts the steps of typing between two names.

#include "NearestName.h"

#include "NumberText.h"

#include <algorithm>
#include <numeric>
#include <string>
#include <vector>

namespace
{
/** How many letters differ: the least number of changes, insertions and removals. */
std::size_t distance (std::string_view a, std::string_view b)
{
    std::vector<std::size_t> row (b.size() + 1);
    std::iota (row.begin(), row.end(), std::size_t { 0 });

    for (std::size_t i = 0; i < a.size(); ++i)
    {
        auto diagonal = row[0];
        row[0] = i + 1;

        for (std::size_t j = 0; j < b.size(); ++j)
        {
            const auto substituted = diagonal + (a[i] == b[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min ({ row[j] + 1, row[j + 1] + 1, substituted });
        }
    }

    return row[b.size()];
}
} // namespace

std::size_t unlikeness (std::string_view typed, std::string_view name)
{
    const auto a = folded (typed), b = folded (name);
    const bool isPart = ! a.empty() && (a.find (b) != std::string::npos || b.find (a) != std::string::npos);
    return isPart ? 0 : distance (a, b);
}
