// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Asks a process for its channels, ports and name, and makes ports and worker of the answers.

#include "CAdaptorPlugIn.h"

#include "CEffectProcessRTAS.h"
#include "CProcess.h"
#include "CProcessType.h"
#include "FicFunctions.h"
#include "Gestalts.h"
#include "StemFormats.h"

#include <array>
#include <new>

namespace
{
std::int32_t gestaltOf (CProcess& process, std::int32_t selector)
{
    std::int32_t answer = 0;
    auto* const type = process.GetProcessType();
    return type != nullptr && type->Gestalt (selector, &answer) == ficSuccess ? answer : 0;
}

bool hasVariableQuanta (CProcess& process)
{
    std::int32_t answer = 0;
    return gestaltOf (process, Gestalts::variableQuanta) != 0
           && host::FicGestalt (FIC_GESTALT_VARIABLE_QUANTA, &answer) == ficSuccess && answer != 0;
}

std::string workerNameOf (CProcess& process)
{
    constexpr auto size = static_cast<std::size_t> (CAdaptorPlugIn::maxWorkerNameLength) + 1;
    std::array<unsigned char, size> name {};
    auto* const type = process.GetProcessType();

    if (type == nullptr
        || type->GetProcessTypeName (CAdaptorPlugIn::maxWorkerNameLength, name.data()) != ficSuccess)
        return "<unknown>";

    return { name.begin() + 1, name.begin() + 1 + name[0] };
}

/** Channels of all auxiliary output stems. */
std::int32_t numAuxOutputs (CProcess& process)
{
    std::int32_t numStems = 0;
    std::int32_t numChannels = 0;
    process.GetNumAuxOutputStems (&numStems);

    for (std::int32_t stem = 1; stem <= numStems; ++stem)
    {
        std::int32_t format = 0;
        std::int32_t firstPort = 0;

        if (process.GetAuxOutputStemInfo (stem, &format, &firstPort) == ficSuccess)
            numChannels += SurroundFormatToNumChannels (format);
    }

    return numChannels;
}

FicWorkerProc genericWorkerFor (CProcess& process)
{
    return gestaltOf (process, Gestalts::scatterGatherWorker) != 0 ? CEffectProcessRTAS::PlugInWorkerSG
                                                                   : CEffectProcessRTAS::PlugInWorker;
}
} // namespace

CAdaptorPlugIn::CAdaptorPlugIn (const SFicPlugInId& newId,
                                CProcess& process,
                                DAEConnection** inputConnections,
                                DAEConnection** outputConnections,
                                FicWorkerProc workerFunction)
    : CPlugIn (newId),
      worker (std::make_unique<CPlugInWorker> (*this,
                                               workerFunction != nullptr ? workerFunction
                                                                         : genericWorkerFor (process),
                                               workerNameOf (process)))
{
    std::int16_t numInputs = 0;
    std::int16_t numOutputs = 0;
    process.GetNumAudioInputs (&numInputs);
    process.GetNumAudioOutputs (&numOutputs);

    const auto sidechainPort = gestaltOf (process, Gestalts::sideChainPort);
    const auto auxOutputs = gestaltOf (process, Gestalts::auxOutputStems) != 0 ? numAuxOutputs (process) : 0;
    numInputPorts = static_cast<std::int16_t> (numInputs + (sidechainPort != 0 ? 1 : 0));
    numOutputPorts = static_cast<std::int16_t> (numOutputs + auxOutputs);

    try
    {
        makePorts (sidechainPort);
        worker->dataObjects.AddMember (&customData);
        workers.AddMember (worker.get());
    }
    catch (const std::bad_alloc&)
    {
        throw std::int32_t { ficOutOfMemory };
    }

    customData.SetAll ({ &process,
                         inputConnections,
                         outputConnections,
                         numInputs,
                         numOutputs,
                         sidechainPort,
                         hasVariableQuanta (process) ? 1 : 0 });
}

void CAdaptorPlugIn::makePorts (std::int32_t sidechainPort)
{
    for (std::int16_t number = 1; number <= numInputPorts; ++number)
    {
        const bool isSidechain = sidechainPort != 0 && number == numInputPorts;
        ports.push_back (std::make_unique<CPlugInInput> (*this, isSidechain ? sidechainPort : 0));
        inputs.AddMember (ports.back().get());
    }

    for (std::int16_t number = 1; number <= numOutputPorts; ++number)
    {
        ports.push_back (std::make_unique<CPlugInOutput> (*this, 0));
        outputs.AddMember (ports.back().get());
    }
}

CAdaptorPlugIn::~CAdaptorPlugIn()
{
    inputs.Clear();
    outputs.Clear();
    controls.Clear();
    workers.Clear();

    try
    {
        // The host must not look at ports that are gone, so it is told before they go.
        DescribeToDAE();
    }
    catch (...)
    {
        // Out of memory for a message: nobody is left to be told.
    }
}
