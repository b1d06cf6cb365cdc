// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Seeds for random tests, told to the person who runs them and taken back from them.

#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <random>
#include <string>

/** A new seed, or the one in the environment variable WIDELOOM_TEST_SEED. Prints how to get it again. */
inline std::uint32_t testSeed()
{
    constexpr auto variable = "WIDELOOM_TEST_SEED";
    const char* given = std::getenv (variable);
    const auto seed =
        given != nullptr ? static_cast<std::uint32_t> (std::stoul (given)) : std::random_device {}();
    const auto* test = testing::UnitTest::GetInstance()->current_test_info();
    std::cout << variable << "=" << seed << " repeats " << test->test_suite_name() << "." << test->name()
              << "\n";
    return seed;
}

/** Random picks for tests. */
class TestRandom
{
public:
    explicit TestRandom (std::uint32_t seed)
        : engine (seed)
    {
    }

    /** Evenly from `low` up to `high`, both included. */
    int between (int low, int high) { return std::uniform_int_distribution (low, high) (engine); }

    float between (float low, float high) { return std::uniform_real_distribution (low, high) (engine); }

    bool chance (double probability) { return std::bernoulli_distribution (probability) (engine); }

    template <typename Container>
    auto oneOf (const Container& container)
    {
        return container[static_cast<std::size_t> (
            between (0, static_cast<int> (std::size (container)) - 1))];
    }

private:
    std::mt19937 engine;
};
