// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The kinds of trouble: zeros, denormals, levels over full scale, values that are not finite.

#include "TestSignals.h"

#include <array>
#include <bit>
#include <cmath>
#include <cstring>
#include <functional>
#include <limits>
#include <sstream>
#include <utility>

namespace
{
constexpr int poolLength = 16384;
constexpr float infinity = std::numeric_limits<float>::infinity();
constexpr float largest = std::numeric_limits<float>::max();
constexpr float smallest = std::numeric_limits<float>::denorm_min();
constexpr float notANumber = std::numeric_limits<float>::quiet_NaN();

using Sample = std::pair<float, float>;

float zero (TestRandom& random)
{
    return random.chance (0.5) ? 0.0f : -0.0f;
}

Sample noise (TestRandom& random)
{
    return { random.between (-1.0f, 1.0f), random.between (-1.0f, 1.0f) };
}

Sample noiseWithZeros (TestRandom& random)
{
    auto sample = noise (random);

    if (random.chance (0.4))
        sample.first = zero (random);

    if (random.chance (0.4))
        sample.second = zero (random);

    return sample;
}

Sample equalChannels (TestRandom& random)
{
    const float value = random.between (-1.0f, 1.0f);
    return { value, random.chance (0.9) ? value : -value };
}

Sample tiny (TestRandom& random)
{
    const auto value = [&random]
    {
        constexpr std::array scales { 1.0e-7f, 1.0e-8f, 1.0e-20f, 1.0e-38f, 1.0e-42f };
        return random.chance (0.05) ? smallest : random.between (-3.0f, 3.0f) * random.oneOf (scales);
    };
    return { value(), value() };
}

Sample loud (TestRandom& random)
{
    const auto value = [&random]
    {
        constexpr std::array scales { 10.0f, 1.0e6f, 1.0e20f, largest };
        return random.between (-1.0f, 1.0f) * random.oneOf (scales);
    };
    return { value(), value() };
}

Sample withSpecials (TestRandom& random)
{
    const auto value = [&random]
    {
        constexpr std::array specials { infinity, -infinity, notANumber, -notANumber, largest, 0.0f };
        return random.chance (0.04) ? random.oneOf (specials) : random.between (-1.0f, 1.0f);
    };
    return { value(), value() };
}

constexpr std::array kinds { noise, noiseWithZeros, equalChannels, tiny, loud, withSpecials };

Sample anything (TestRandom& random)
{
    return random.oneOf (kinds) (random);
}

StereoSignal make (const std::function<Sample()>& next)
{
    StereoSignal signal;

    for (int i = 0; i < poolLength; ++i)
    {
        const auto [left, right] = next();
        signal.left.push_back (left);
        signal.right.push_back (right);
    }

    return signal;
}

/** Runs of sound and of silence, from one sample to a few hundred. */
StereoSignal makeWithPauses (TestRandom& random)
{
    constexpr int longestRun = 300;
    int remaining = 0;
    bool silent = false;

    return make (
        [&]
        {
            if (remaining-- == 0)
            {
                remaining = random.chance (0.5) ? random.between (0, 8) : random.between (0, longestRun);
                silent = ! silent;
            }

            return silent ? Sample { zero (random), zero (random) } : noise (random);
        });
}
} // namespace

StereoSignal StereoSignal::part (int start, int length) const
{
    const auto range = [start, length] (const std::vector<float>& channel)
    { return std::vector (channel.begin() + start, channel.begin() + start + length); };
    return { range (left), range (right) };
}

TestSignals::TestSignals (TestRandom& randomToUse)
    : random (randomToUse)
{
    for (auto* kind : kinds)
        pool.push_back (make ([&] { return kind (random); }));

    pool.push_back (make ([&] { return anything (random); }));
    pool.push_back (makeWithPauses (random));
}

StereoSignal TestSignals::piece (int length)
{
    const auto& signal =
        pool[static_cast<std::size_t> (random.between (0, static_cast<int> (pool.size()) - 1))];
    return signal.part (random.between (0, poolLength - length), length);
}

std::string firstDifference (std::span<const float> actual, std::span<const float> expected)
{
    if (expected.empty() || std::memcmp (actual.data(), expected.data(), expected.size_bytes()) == 0)
        return {};

    for (std::size_t i = 0; i < expected.size(); ++i)
    {
        if (std::isnan (actual[i]) && std::isnan (expected[i]))
            continue;

        if (std::bit_cast<std::uint32_t> (actual[i]) != std::bit_cast<std::uint32_t> (expected[i]))
        {
            std::ostringstream text;
            text << "sample " << i << " of " << expected.size() << ": " << std::hexfloat << actual[i]
                 << " instead of " << expected[i];
            return text.str();
        }
    }

    return {};
}

std::string firstDifference (const StereoSignal& actual, const StereoSignal& expected)
{
    if (const auto text = firstDifference (actual.left, expected.left); ! text.empty())
        return "left, " + text;

    if (const auto text = firstDifference (actual.right, expected.right); ! text.empty())
        return "right, " + text;

    return {};
}
