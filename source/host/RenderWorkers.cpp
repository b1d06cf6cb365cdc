// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The functions that the host's real-time engine calls. Everything here is [audio]: pointers are copied,
// nothing is allocated and no lock is taken.

#include "CEffectProcessRTAS.h"
#include "S_RTASP_CustomDataAdmin.h"

#include <algorithm>

namespace
{
/** Input ports of a process with these data: where the outputs' words begin. Negative counts are nobody's. */
std::size_t numInputPorts (const SRTASPCustomData& data) noexcept
{
    return static_cast<std::size_t> (std::max (data.numInputs, 0)) + (data.sidechainPort != 0 ? 1 : 0);
}

std::size_t numOutputPorts (const SRTASPCustomData& data) noexcept
{
    return static_cast<std::size_t> (std::max (data.numOutputs, 0));
}

/** Reads each port's word; false if there is no word, nothing in it, or no room for it. */
bool copyPointers (std::vector<float*>& samples, float* const* const* ports, std::size_t numPorts) noexcept
{
    if (numPorts > samples.size())
        return false;

    for (std::size_t i = 0; i < numPorts; ++i)
    {
        if (ports[i] == nullptr || *ports[i] == nullptr)
            return false;

        samples[i] = *ports[i];
    }

    return true;
}
} // namespace

bool CEffectProcessRTAS::takePorts (const SPlugInRTInstance& instance) noexcept
{
    const auto* const ports = instance.ports;
    const auto numInputs = numInputPorts (*renderContext);

    return copyPointers (inputSamples, ports, numInputs)
           && copyPointers (outputSamples, ports + numInputs, numOutputPorts (*renderContext));
}

bool CEffectProcessRTAS::renderBlock (const SPlugInRTInstance& instance,
                                      const SRTASPCustomData& data,
                                      SPlugInRTGlobals& globals) noexcept
{
    renderContext = &data;
    renderGlobals = &globals;

    try
    {
        if (takePorts (instance))
        {
            const auto numSamples =
                data.variableQuanta != 0 ? globals.quantum : std::int32_t { ficFixedQuantum };
            RenderAudio (inputSamples.data(), outputSamples.data(), numSamples);
            SetMetersReady();
            return true;
        }
    }
    catch (...)
    {
        // The host's engine knows no exceptions. The block ends here, whatever it was.
    }

    // A copy, because the record's word is not aligned and nothing may refer to it.
    auto* const emptyOutput = globals.emptyOutput;
    std::fill (outputSamples.begin(), outputSamples.end(), emptyOutput);
    return false;
}

bool CEffectProcessRTAS::renderInstance (const SPlugInRTInstance* instance,
                                         SPlugInRTGlobals* globals) noexcept
{
    if (instance == nullptr || globals == nullptr || instance->customData == nullptr)
        return false;

    const auto& data = *static_cast<const SRTASPCustomData*> (instance->customData);
    auto* const process = data.process == nullptr ? nullptr : data.process->GetRenderTarget();
    return process != nullptr && process->renderBlock (*instance, data, *globals);
}

void CEffectProcessRTAS::RenderAudioWorker (SPlugInRTInstance* instance, SPlugInRTGlobals* globals)
{
    renderInstance (instance, globals);
}

void CEffectProcessRTAS::PlugInWorker (SPlugInRTInstance* instance, SPlugInRTGlobals* globals)
{
    if (renderInstance (instance, globals) || instance == nullptr || globals == nullptr
        || instance->customData == nullptr)
        return;

    const auto& data = *static_cast<const SRTASPCustomData*> (instance->customData);
    const auto* const process = data.process == nullptr ? nullptr : data.process->GetRenderTarget();

    // Counts that no record can have do not say where its outputs are.
    if (process != nullptr
        && (numInputPorts (data) > process->inputSamples.size()
            || numOutputPorts (data) > process->outputSamples.size()))
        return;

    auto* const* const outputs = instance->ports + numInputPorts (data);

    for (std::size_t i = 0; i < numOutputPorts (data); ++i)
        if (outputs[i] != nullptr)
            *outputs[i] = globals->emptyOutput;
}

void CEffectProcessRTAS::PlugInWorkerSG (SPlugInRTInstance* instance, SPlugInRTGlobals* globals)
{
    // Each port is read through its own word in any case, so scattered buffers want nothing more.
    PlugInWorker (instance, globals);
}
