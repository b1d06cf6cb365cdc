// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The plug-in's one audio object.

#pragma once

#include "CoalescingJob.h"
#include "CrzParameterManager.h"
#include "CrzStereoVuVisuals.h"
#include "LatestValueExchange.h"
#include "ParameterTable.h"
#include "SafeBassFilter.h"
#include "SignalChain.h"

#include <juce_audio_processors/juce_audio_processors.h>

#include <atomic>
#include <memory>

/** What setMuteMsOption() chooses between. */
enum class MuteMsOption : juce::int32
{
    muteNothing = 0,
    muteMidOnly = 1,
    muteSideOnly = 2
};

/** A stereo width, panorama and mid/side effect without latency or tail. Owns all state.

    The processor needs no preparation: processBlock() follows the sample rate that setPlayConfigDetails() or
    setRateAndBufferSizeDetails() set. It works on channels 0 and 1, in place. */
class WideLoomAudioProcessor : public juce::AudioProcessor
{
public:
    WideLoomAudioProcessor();
    ~WideLoomAudioProcessor() override;

    //==================================================================================================
    // Audio

    void prepareToPlay (double, int) override {}
    void releaseResources() override {}

    /** [audio] Runs the signal chain on channels 0 and 1 (2 or more channels x samples, -1..1 nominal), and
        clears the processor's output channels from 2 upward. A buffer of fewer than two channels is left
        alone. Neither allocates nor locks. */
    void processBlock (juce::AudioBuffer<float>& buffer, juce::MidiBuffer& midi) override;
    using juce::AudioProcessor::processBlock;

    /** [message] The peaks since the last call, which is when they start anew. */
    CrzStereoVuVisuals getInputVuMeterVisuals() noexcept { return inputVuVisuals.take(); }
    CrzStereoVuVisuals getOutputVuMeterVisuals() noexcept { return outputVuVisuals.take(); }

    //==================================================================================================
    // Parameters

    CrzParameterManager* getParameterManager() const noexcept { return parameterManager.get(); }

    /** [any] The way of every parameter write. Ignores the slots past the table. Values are stored as they
     * come. */
    void setParameter (int index, float value) override;

    /** [message] The way in which the editor changes a parameter. Ignores unknown names. */
    void setParamAndNotifyHost (const juce::String& name, float value, bool beginTransaction);

    /** [message] Sets MuteMid and MuteSide as one choice. */
    void setMuteMsOption (MuteMsOption option);

    int getNumParameters() override { return numParameterSlots; }
    const juce::String getParameterName (int index) override
    {
        return parameterManager->getParameterName (index);
    }
    float getParameter (int index) override { return parameterManager->getParameterValue (index); }
    const juce::String getParameterText (int index) override;
    int getParameterNumSteps (int) override { return 0x7FFFFFFF; }
    float getParameterDefaultValue (int index) override;
    bool isParameterAutomatable (int) const override { return true; }
    using juce::AudioProcessor::getParameterName;
    using juce::AudioProcessor::getParameterText;

    //==================================================================================================
    // What hosts ask

    const juce::String getName() const override { return "WideLoom"; }
    bool acceptsMidi() const override { return false; }
    bool producesMidi() const override { return false; }
    bool silenceInProducesSilenceOut() const override { return true; }
    double getTailLengthSeconds() const override { return 0.0; }
    const juce::String getInputChannelName (int channel) const override { return juce::String (channel + 1); }
    const juce::String getOutputChannelName (int channel) const override
    {
        return juce::String (channel + 1);
    }
    bool isInputChannelStereoPair (int) const override { return true; }
    bool isOutputChannelStereoPair (int) const override { return true; }

    /** Whether the channel layout can be processed. True for every layout. */
    bool checkInputOutputConfig() const { return true; }

    int getNumPrograms() override { return 1; }
    int getCurrentProgram() override { return 0; }
    void setCurrentProgram (int) override {}
    const juce::String getProgramName (int) override;
    void changeProgramName (int, const juce::String&) override {}

    void getStateInformation (juce::MemoryBlock&) override {}
    void setStateInformation (const void*, int) override {}

    bool hasEditor() const override { return false; }
    juce::AudioProcessorEditor* createEditor() override { return nullptr; }

    //==================================================================================================
    // What the editor shows and what must outlive it

    /** [message] The rate of the latest block, such as "44100 Hz", or "(unknown)" before the first one. */
    juce::String getLastSampleRateString() const;

    void setExpertMode (bool shouldBeOn) noexcept { expertModeAsDouble = shouldBeOn ? 1.0 : 0.0; }
    bool getExpertMode() const noexcept { return expertModeAsDouble == 1.0; }

    void setChannelName (const juce::String& newName) { channelName = newName; }
    const juce::String& getChannelName() const noexcept { return channelName; }

    juce::String getAllowedCharsForPresetNames() const;

private:
    /** What the chain reads from the live object while a block runs. */
    struct TableControls
    {
        float stereoWidth (int) const noexcept { return widthParameter.getValue(); }
        float pan (int) const noexcept { return panParameter.getValue(); }
        float inputGain() const noexcept { return inputGainLinear.load (std::memory_order_relaxed); }
        float outputGain() const noexcept { return outputGainLinear.load (std::memory_order_relaxed); }

        const CrzParameter& widthParameter;
        const CrzParameter& panParameter;
        const std::atomic<float>& inputGainLinear;
        const std::atomic<float>& outputGainLinear;
    };

    /** A normalised gain and its linear factor, so that a block pays for the power only after a change.
        Used by the audio thread alone. */
    struct CachedGain
    {
        float linearFor (float newNormalised) noexcept;

        float normalised = 0.5f;
        float linear = 1.0f;
    };

    void initAllParameters();
    int addParameter (const juce::String& name,
                      float defaultValue,
                      CrzParameterValueMapper::CrzMappingENUM mapping);
    float valueOf (ParameterId id) const noexcept
    {
        return parameterManager->getParameterValue (indexOf (id));
    }

    // [audio] The steps at the start of a block.
    void followSampleRate() noexcept;
    void followSafeBassCoefficients() noexcept;
    void followGains() noexcept;

    /** [any] Recalculates for the stored SafeBassFreq. When several threads ask at once, one of them works,
       nobody waits, and the value stored last ends in force. */
    void updateSafeBassFilterCoefficients() noexcept;

    /** Makes the coefficients for a normalised frequency and hands them to the audio thread, which takes them
       at the start of its next block. Does nothing while no sample rate is known. One caller at a time. */
    void calculateSafeBassFilterCoefficients (double normalisedFrequency) noexcept;

    std::atomic<double> lastSampleRate { 0.0 }; ///< Hz; written by the audio thread

    std::unique_ptr<CrzParameterManager> parameterManager;
    juce::String channelName { "No Channel Name" };
    double expertModeAsDouble = 0.0;

    SharedStereoPeaks inputVuVisuals;
    SharedStereoPeaks outputVuVisuals;

    // Written by setParameter() on any thread and by each block's start; read while a block runs.
    std::atomic<float> inputGainLinear { 1.0f };
    std::atomic<float> outputGainLinear { 1.0f };

    // Whoever runs the job publishes; the audio thread fetches.
    CoalescingJob safeBassJob;
    LatestValueExchange<SafeBassCoefficients> safeBassCoefficients;

    // The audio thread's own.
    SafeBassFilter safeBassFilter;
    bool safeBassCoefficientsValid = false; ///< whether the filter has taken coefficients; stays true
    double safeBassFilterSampleRate = 0.0;  ///< Hz; the rate that the filter's coefficients were made for
    CachedGain cachedInputGain, cachedOutputGain;
    SignalChain signalChain;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (WideLoomAudioProcessor)
};

/** A new WideLoomAudioProcessor, owned by the caller. */
juce::AudioProcessor* createPluginFilter();
