// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// A native process for tests that notes how it is rendered.

#pragma once

#include "host/CEffectProcessRTAS.h"

#include <functional>

/** Renders what the test says, and tells which blocks it got. */
class RenderingProcess : public CEffectProcessRTAS
{
public:
    void RenderAudio (float** inputs, float** outputs, std::int32_t numSamples) override
    {
        latest = { inputs, outputs, numSamples };

        if (onRender)
            onRender();
    }

    std::int32_t GetNumAuxOutputStems (std::int32_t* numStems) override
    {
        *numStems = numAuxStems;
        return ficSuccess;
    }

    std::int32_t GetAuxOutputStemInfo (std::int32_t stem,
                                       std::int32_t* format,
                                       std::int32_t* firstPort) override
    {
        constexpr std::int32_t stereo = 1;
        constexpr std::int32_t channelsOfStereo = 2;
        *format = stereo;
        *firstPort = firstAuxPort + channelsOfStereo * (stem - 1);
        return ficSuccess;
    }

    void ConnectSidechain() override { ++numSidechainConnections; }
    void DisconnectSidechain() override { --numSidechainConnections; }
    using CEffectProcessRTAS::IsBypassed;

    struct Block
    {
        float **inputs, **outputs;
        std::int32_t numSamples;
    };

    Block latest {};
    std::function<void()> onRender;
    std::int32_t numAuxStems = 0;
    static constexpr std::int32_t firstAuxPort = 3;
    int numSidechainConnections = 0;

protected:
    std::unique_ptr<CPlugInView> CreateCPlugInView() override { return nullptr; }
};
