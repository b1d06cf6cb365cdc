// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Stands between one instance in the host and its juce::AudioProcessor.

#pragma once

#include "CEffectMIDITransport.h"
#include "CEffectProcessMIDI.h"
#include "CEffectProcessRTAS.h"
#include "JuceCustomUIView.h"
#include "platform/MessagePump.h"

#include <juce_audio_processors/juce_audio_processors.h>

#include <cstdint>
#include <memory>

/** Owns the processor. Control 1 is the master bypass, control i + 2 the processor's parameter i. JUCE has
   been initialised before; the last instance shuts it down. All operations are [host-main] except where they
   say otherwise. */
class JucePlugInProcess : public CEffectProcessMIDI,
                          public CEffectProcessRTAS,
                          public juce::AudioProcessorListener,
                          public juce::AudioPlayHead,
                          private NewSizeSender
{
public:
    class JucePluginControl;

    /** On the program's own processor. */
    JucePlugInProcess();

    /** On a processor, which must not be null. */
    explicit JucePlugInProcess (std::unique_ptr<juce::AudioProcessor> processor);
    ~JucePlugInProcess() override;

    /** The chunk FIC_CHUNK_JUCE is the processor's state block as it is. The block whose size was told is the
       one that GetChunk() then writes. */
    std::int32_t GetChunkSize (std::uint32_t chunkID, std::int32_t* size) override;
    std::int32_t GetChunk (std::uint32_t chunkID, SFicPlugInChunk* chunk) override;
    std::int32_t SetChunk (std::uint32_t chunkID, const SFicPlugInChunk* chunk) override;

    /** Asks for the size of the editor, which is made if there is none. */
    std::int32_t GetViewRect (Rect* area) override;
    std::int32_t SetViewPort (GrafPtr port) override;
    std::int32_t GetDelaySamplesLong (std::int32_t* numSamples) override;

    /** [audio] Runs the processor in place on `outputs`, under its callback lock. */
    void RenderAudio (float** inputs, float** outputs, std::int32_t numSamples) override;

    std::int32_t UpdateControlValue (std::int32_t control, std::int32_t value) override;

    /** [audio] Every field but those that no host of this kind knows. */
    juce::Optional<PositionInfo> getPosition() const override;

    // What the processor reports goes to the host as a control's value or touch.
    void audioProcessorParameterChanged (juce::AudioProcessor*, int index, float value) override;
    void audioProcessorParameterChangeGestureBegin (juce::AudioProcessor*, int index) override;
    void audioProcessorParameterChangeGestureEnd (juce::AudioProcessor*, int index) override;

    /** The host asks for the latency whenever it wants it. */
    void audioProcessorChanged (juce::AudioProcessor*, const ChangeDetails&) override {}

    juce::AudioProcessor& getFilter() const noexcept { return *filter; }

protected:
    void EffectInit() override;
    std::unique_ptr<CPlugInView> CreateCPlugInView() override;
    bool RunPlatformMessages() override;

private:
    void addControls();
    void dispatchNewSizeToken() override;
    JuceCustomUIView* getView() const;
    void renderLocked (float** inputs, float** outputs, int numSamples);

    std::unique_ptr<juce::AudioProcessor> filter;
    juce::MidiBuffer midiEvents; // stays empty, the processor takes no notes
    std::unique_ptr<CEffectMIDITransport> transport;
    juce::MemoryBlock stateBlock; // what GetChunkSize() told the size of
    juce::HeapBlock<float*> channelPointers;
    int numChannelPointers = 0;
    double sampleRate = 44100.0; // Hz
    MessagePump messagePump;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (JucePlugInProcess)
};

/** [host-main] The program's processor, made as one for that kind of host. */
std::unique_ptr<juce::AudioProcessor> createPluginFilterOfType (juce::AudioProcessor::WrapperType type);
