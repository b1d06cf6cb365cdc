// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Loads the bundle in a home folder of the tests' own, looks at what it leaves behind, and renders noise.

#include "BundleFixture.h"

#include "support/ScratchFolder.h"

#include <cstdlib>

namespace
{
/** A home for the plug-in's settings file and presets, which are not those of the person who runs the tests.
 */
class HomeOfTheTests : public testing::Environment
{
    void SetUp() override
    {
        home = std::make_unique<ScratchFolder>();
        ::setenv ("HOME", (*home / "").c_str(), 1);
    }

    void TearDown() override { home.reset(); }

    std::unique_ptr<ScratchFolder> home;
};

[[maybe_unused]] const auto* const environment =
    testing::AddGlobalTestEnvironment (new HomeOfTheTests); // NOLINT: the framework owns it

std::unique_ptr<refhost::HostBundle> loadBundle()
{
    std::string problem;
    auto bundle = refhost::HostBundle::load (WIDELOOM_BUNDLE, problem);

    if (bundle == nullptr)
        throw std::runtime_error (problem);

    return bundle;
}
} // namespace

BundleFixture::BundleFixture (refhost::HostOffer offer)
    : services (offer),
      bundle (loadBundle()),
      pi (bundle->getRoutines())
{
}

void BundleFixture::TearDown()
{
    EXPECT_EQ (bundle->stop(), ficSuccess);
    EXPECT_EQ (bundle->getReference().numReferences, 1);
    EXPECT_THAT (services.complaints, testing::IsEmpty());
    EXPECT_EQ (services.leftInTheBooks(), "");
}

void BundleFixture::start()
{
    ASSERT_EQ (bundle->start(), ficSuccess);
}

std::unique_ptr<refhost::HostInstance> BundleFixture::insert()
{
    std::int32_t result = ficSuccess;
    auto instance = refhost::HostInstance::make (*bundle, services, typeCode, result);
    EXPECT_EQ (result, ficSuccess);
    return instance;
}

refhost::HostInstance::Bytes BundleFixture::stateOf (const refhost::HostInstance& instance)
{
    refhost::HostInstance::Bytes state;
    EXPECT_EQ (instance.getChunk (FIC_CHUNK_JUCE, state), ficSuccess);
    return state;
}

BlockOfAudio::BlockOfAudio (int numSamples)
{
    for (auto* const channels : { &input, &output })
        for (auto& channel : *channels)
            channel.resize (static_cast<std::size_t> (numSamples));

    fill (1);
}

void BlockOfAudio::fill (std::uint32_t seed)
{
    TestRandom random (seed);

    for (auto& channel : input)
        for (auto& sample : channel)
            sample = random.between (-0.5f, 0.5f);

    for (auto& channel : output)
        std::fill (channel.begin(), channel.end(), mark);
}

bool BlockOfAudio::render (const refhost::HostInstance& instance, std::int32_t quantum)
{
    std::array<float*, 2> in { input[0].data(), input[1].data() };
    std::array<float*, 2> out { output[0].data(), output[1].data() };
    return instance.render (in.data(), out.data(), quantum);
}
