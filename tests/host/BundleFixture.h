// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The plug-in bundle in the reference host, for tests that know it by its exports alone.

#pragma once

#include "refhost/HostInstance.h"
#include "support/TestSeed.h"

#include <gmock/gmock.h>

#include <array>
#include <limits>

/** Ends with a look at the host's complaints and books: whatever happened, nothing may be left in them. */
class BundleFixture : public testing::Test
{
public:
    static constexpr std::int32_t lowest = std::numeric_limits<std::int32_t>::min();
    static constexpr std::int32_t highest = std::numeric_limits<std::int32_t>::max();

    static constexpr std::uint32_t typeCode = FIC_CODE ('j', 'c', 'a', 'a');
    static constexpr std::uint32_t productCode = FIC_CODE ('Q', '7', 'W', 'l');
    static constexpr std::uint32_t manufacturerCode = FIC_CODE ('Q', '7', 'Q', 'v');
    static constexpr std::uint32_t unknownType = FIC_CODE ('n', 'o', 'n', 'e');

    static constexpr int numControls = 51;
    static constexpr std::int32_t masterBypass = 1;

    /** Controls of the parameters that tests use. */
    static constexpr std::int32_t stereoWidth = 3, swapLR = 7, mono = 9, safeBassFreq = 18, safeBass = 19;

protected:
    explicit BundleFixture (refhost::HostOffer offer = {});

    void TearDown() override;

    /** Starts the plug-in, and makes an instance; each expects success. */
    void start();
    std::unique_ptr<refhost::HostInstance> insert();

    refhost::HostInstance::Bytes stateOf (const refhost::HostInstance& instance);

    refhost::HostServices services;
    std::unique_ptr<refhost::HostBundle> bundle;
    const refhost::HostRoutines& pi;
};

/** With one instance in a plug-in that is started. */
class BundleWithInstance : public BundleFixture
{
protected:
    void SetUp() override
    {
        start();
        instance = insert();
        ASSERT_NE (instance, nullptr);
    }

    void TearDown() override
    {
        instance.reset();
        BundleFixture::TearDown();
    }

    std::unique_ptr<refhost::HostInstance> instance;
};

/** Two channels of samples for one block, and where they go. */
class BlockOfAudio
{
public:
    explicit BlockOfAudio (int numSamples);

    /** Fills the input with noise that depends on the seed alone, and the output with a mark. */
    void fill (std::uint32_t seed);

    bool render (const refhost::HostInstance& instance, std::int32_t quantum);

    std::array<std::vector<float>, 2> input, output;

    static constexpr float mark = 77.0f;
};
