// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The plug-in's own group under a fake host, for tests of instances with their processors.

#pragma once

#include "host/CProcessGroup.h"
#include "host/CProcessType.h"
#include "host/FakeEngine.h"
#include "host/FakeFramework.h"
#include "host/FakeTransport.h"
#include "host/FourCC.h"
#include "host/HostGlobals.h"
#include "host/JucePlugInProcess.h"
#include "host/S_RTASP_CustomDataAdmin.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <vector>

/** Stands while instances of the effect, or of other processors, are made and rendered. */
class BridgeFixture : public testing::Test
{
protected:
    static constexpr auto typeCode = fourCC ("jcaa");

    BridgeFixture()
    {
        juce::initialiseJuce_GUI();
        framework.isAlive = 0; // no token service
        framework.transport = &transport;
        group.reset (makePlugInGroup());
        gProcessGroup = group.get();
        group->Initialize();
    }

    ~BridgeFixture() override
    {
        group.reset();
        gProcessGroup = nullptr;
    }

    /** An instance of the effect, as the host makes it. */
    JucePlugInProcess& instantiate()
    {
        std::int32_t index = 0;
        EXPECT_EQ (group->InstantiateProcess (typeCode, &index), ficSuccess);
        return dynamic_cast<JucePlugInProcess&> (*type().GetProcessFromIndex (index));
    }

    /** An instance of another processor, as the type sets up its own. It is the caller's. */
    template <typename Processor>
    std::unique_ptr<JucePlugInProcess> instantiateWith (std::unique_ptr<Processor> processor)
    {
        auto process = std::make_unique<JucePlugInProcess> (std::move (processor));
        process->SetProcessType (&type());
        process->SetProcessIndex (1);
        process->Initialize();
        EXPECT_EQ (process->CreateHostPlugIn ({}), ficSuccess);
        return process;
    }

    CProcessType& type() { return *group->GetProcessTypeFromOSType (typeCode); }

    FakeFramework framework;
    FakeEngine engine;
    FakeTransport transport;
    std::unique_ptr<CProcessGroup> group;
};

/** What the host's engine has of one stereo instance: its ports' samples, and the worker to call. */
class StereoPorts
{
public:
    static constexpr int maxSamples = 1024;
    static constexpr float inputLevel = 0.25f, outputBefore = 0.75f;

    explicit StereoPorts (FakeEngine& engine)
        : instance (engine.dataBlock(), channels.size())
    {
        instance.globals.emptyOutput = emptyOutput.data();
        reset();

        for (std::size_t port = 0; port < channels.size(); ++port)
            instance.setPort (port, channels[port].data());
    }

    void reset()
    {
        for (std::size_t port = 0; port < channels.size(); ++port)
            channels[port].assign (maxSamples, port < 2 ? inputLevel : outputBefore);
    }

    void render (std::int32_t numSamples)
    {
        instance.globals.quantum = numSamples;
        JucePlugInProcess::RenderAudioWorker (instance.get(), &instance.globals);
    }

    float output (std::size_t channel, std::size_t sample) const { return channels[2 + channel][sample]; }

    std::array<std::vector<float>, 4> channels;
    std::vector<float> emptyOutput = std::vector<float> (maxSamples);
    FakeInstance instance;
};
