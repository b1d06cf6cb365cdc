// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Sets the processor up and ends it, and passes values, gestures and state between it and the host.

#include "JucePlugInProcess.h"

#include "CPluginControl_OnOff.h"
#include "CProcessType.h"
#include "CallNoThrow.h"
#include "FicFunctions.h"
#include "FourCC.h"
#include "HostGlobals.h"
#include "JucePluginControl.h"
#include "ParameterScale.h"
#include "platform/Application.h"

#include <engine/NativeWrapperType.h>

#include <algorithm>
#include <cstring>

namespace
{
int numInstances = 0;

constexpr std::int32_t masterBypassIndex = 1;
constexpr std::int32_t firstParameterControl = masterBypassIndex + 1;
constexpr int midiEventBytes = 2048;

/** Lets what is still under way in JUCE come to its end, then ends JUCE. */
void shutDownJuceIfUnused()
{
    constexpr int numDispatchRounds = 20;

    if (numInstances > 0)
        return;

    for (int round = 0; round < numDispatchRounds; ++round)
        juce::MessageManager::getInstance()->runDispatchLoopUntil (1);

    juce::shutdownJuce_GUI();
}

/** The control of a parameter. */
std::int32_t controlOf (int parameterIndex) noexcept
{
    return parameterIndex + firstParameterControl;
}

unsigned char* bodyOf (SFicPlugInChunk* chunk) noexcept
{
    return reinterpret_cast<unsigned char*> (chunk) + ficChunkHeaderSize;
}
} // namespace

std::unique_ptr<juce::AudioProcessor> createPluginFilterOfType (juce::AudioProcessor::WrapperType type)
{
    juce::AudioProcessor::setTypeOfNextNewPlugin (type);
    std::unique_ptr<juce::AudioProcessor> filter (createPluginFilter());
    juce::AudioProcessor::setTypeOfNextNewPlugin (juce::AudioProcessor::wrapperType_Undefined);
    return filter;
}

JucePlugInProcess::JucePlugInProcess()
    : JucePlugInProcess (createPluginFilterOfType (nativeHostWrapperType))
{
}

JucePlugInProcess::JucePlugInProcess (std::unique_ptr<juce::AudioProcessor> processor)
    : filter (std::move (processor))
{
    AddChunk (FIC_CHUNK_JUCE, "Juce Audio Plugin Data", EffectLayerDef::chunkAnsweredByProcess);
    ++numInstances;
}

JucePlugInProcess::~JucePlugInProcess()
{
    const platform::AutoreleaseScope scope;

    // The host's engine and the view have hold of the processor if nobody has freed the instance.
    CallAndTranslateExceptionsToReturnValues ([this] { return CEffectProcessRTAS::Free(); });

    if (IsLoggedIn())
        MIDILogOut();

    transport.reset();
    filter->setPlayHead (nullptr);
    filter->removeListener (this);
    filter->releaseResources();
    filter.reset();

    if (--numInstances == 0)
        MessagePump::callWhenNotRunning (shutDownJuceIfUnused);
}

void JucePlugInProcess::EffectInit()
{
    // A rate that no audio has would spoil all that is worked out from it.
    if (GetSampleRate() > 0)
        sampleRate = GetSampleRate();

    const int maxBlockSize = GetMaximumRTASQuantum();
    filter->setPlayConfigDetails (numAudioInputs, numAudioOutputs, sampleRate, maxBlockSize);
    addControls();
    MIDILogIn();
    transport = std::make_unique<CEffectMIDITransport> (GetMIDIWorld());
    midiEvents.ensureSize (midiEventBytes);

    numChannelPointers = std::max (filter->getTotalNumInputChannels(), filter->getTotalNumOutputChannels());
    channelPointers.calloc (static_cast<std::size_t> (numChannelPointers));

    filter->setPlayHead (this);
    filter->addListener (this);
    filter->prepareToPlay (sampleRate, maxBlockSize);
}

JUCE_BEGIN_IGNORE_WARNINGS_GCC_LIKE ("-Wdeprecated-declarations") // parameters by number

void JucePlugInProcess::addControls()
{
    controls.AddControl (std::make_unique<CPluginControl_OnOff> (
                             fourCC ("bypa"), "Master Bypass\nMastrByp\nMByp\nByp", 0, true, nullptr, nullptr)
                             .release());
    DefineMasterBypassControlIndex (masterBypassIndex);

    for (int index = 0; index < filter->getNumParameters(); ++index)
        controls.AddControl (std::make_unique<JucePluginControl> (*filter, index).release());
}

std::int32_t JucePlugInProcess::UpdateControlValue (std::int32_t control, std::int32_t value)
{
    if (control == masterBypassIndex)
        SetBypassed (value > 0);
    else if (control >= firstParameterControl)
        filter->setParameter (control - firstParameterControl, parameterFromLong (value));

    return CProcess::UpdateControlValue (control, value); // NOLINT: the class between has the bypass too
}

JUCE_END_IGNORE_WARNINGS_GCC_LIKE

std::int32_t JucePlugInProcess::GetChunkSize (std::uint32_t chunkID, std::int32_t* size)
{
    if (chunkID != FIC_CHUNK_JUCE)
        return CEffectProcessMIDI::GetChunkSize (chunkID, size);

    stateBlock.reset();
    filter->getStateInformation (stateBlock);

    if (size != nullptr)
        *size = static_cast<std::int32_t> (stateBlock.getSize()) + ficChunkHeaderSize;

    return ficSuccess;
}

std::int32_t JucePlugInProcess::GetChunk (std::uint32_t chunkID, SFicPlugInChunk* chunk)
{
    if (chunkID != FIC_CHUNK_JUCE)
        return CEffectProcessMIDI::GetChunk (chunkID, chunk);

    if (chunk == nullptr)
        return ficSuccess;

    if (stateBlock.isEmpty())
        filter->getStateInformation (stateBlock);

    chunk->chunkSize = static_cast<std::int32_t> (stateBlock.getSize()) + ficChunkHeaderSize;
    stateBlock.copyTo (bodyOf (chunk), 0, stateBlock.getSize());
    stateBlock.reset();
    return ficSuccess;
}

std::int32_t JucePlugInProcess::SetChunk (std::uint32_t chunkID, const SFicPlugInChunk* chunk)
{
    if (chunkID != FIC_CHUNK_JUCE)
        return CEffectProcessMIDI::SetChunk (chunkID, chunk);

    stateBlock.reset();

    if (chunk != nullptr && chunk->chunkSize > ficChunkHeaderSize)
        filter->setStateInformation (reinterpret_cast<const unsigned char*> (chunk) + ficChunkHeaderSize,
                                     chunk->chunkSize - ficChunkHeaderSize);

    return ficSuccess;
}

std::int32_t JucePlugInProcess::GetDelaySamplesLong (std::int32_t* numSamples)
{
    if (numSamples != nullptr)
        *numSamples = filter != nullptr ? filter->getLatencySamples() : 0;

    return ficSuccess;
}

void JucePlugInProcess::audioProcessorParameterChanged (juce::AudioProcessor*, int index, float value)
{
    // The callers of these three know nothing of the host's error codes, nor of exceptions that carry them.
    CallAndTranslateExceptionsToReturnValues (
        [&] { return SetControlValue (controlOf (index), longFromParameter (value)); });
}

void JucePlugInProcess::audioProcessorParameterChangeGestureBegin (juce::AudioProcessor*, int index)
{
    CallAndTranslateExceptionsToReturnValues ([&] { return TouchControl (controlOf (index)); });
}

void JucePlugInProcess::audioProcessorParameterChangeGestureEnd (juce::AudioProcessor*, int index)
{
    CallAndTranslateExceptionsToReturnValues ([&] { return ReleaseControl (controlOf (index)); });
}

std::unique_ptr<CPlugInView> JucePlugInProcess::CreateCPlugInView()
{
    return std::make_unique<JuceCustomUIView> (*filter, static_cast<NewSizeSender&> (*this));
}

JuceCustomUIView* JucePlugInProcess::getView() const
{
    return dynamic_cast<JuceCustomUIView*> (GetView());
}

std::int32_t JucePlugInProcess::GetViewRect (Rect* area)
{
    if (auto* const editorView = getView())
        editorView->updateSize();

    return CProcess::GetViewRect (area);
}

std::int32_t JucePlugInProcess::SetViewPort (GrafPtr port)
{
    const auto result = CProcess::SetViewPort (port);

    if (auto* const editorView = getView())
        editorView->attachToWindow (port);

    return result;
}

bool JucePlugInProcess::RunPlatformMessages()
{
    return messagePump.run();
}

void JucePlugInProcess::dispatchNewSizeToken()
{
    std::int32_t nameID = 0;
    GetProcessNameID (&nameID);

    if (gOurTokenTask != nullptr)
    {
        const auto token = newSizeToken (nameID);
        host::FicSDSDispatchToken (&token);
    }
}
