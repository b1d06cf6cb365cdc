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

class PluginSettingsFile;
class UserPresetList;

/** What setMuteMsOption() chooses between. */
enum class MuteMsOption : juce::int32
{
    muteNothing = 0,
    muteMidOnly = 1,
    muteSideOnly = 2
};

/** A stereo width, panorama and mid/side effect without latency or tail. Owns all state.

    The processor needs no preparation: processBlock() follows the sample rate that setPlayConfigDetails() or
    setRateAndBufferSizeDetails() set. It works on channels 0 and 1, in place.

    The operations from "The preset tree" on stand in source/presets, and what they need is built there too.
 */
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

    /** [message] The way in which the editor changes a parameter. Ignores unknown names. A value that differs
        from the current preset's is written there too, undoably, and marks the preset as modified; only then
        does `beginTransaction` close the undo step. */
    void setParamAndNotifyHost (const juce::String& name, float value, bool beginTransaction);

    /** [message] Sets MuteMid and MuteSide as one choice and one undo step. */
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
    const juce::String getProgramName (int) override { return getCurrentPresetName(); }

    /** [message] Names the current preset, undoably, and tells the host. The index is ignored. */
    void changeProgramName (int, const juce::String& name) override;

    /** [message] Replaces the block's contents with the session state. */
    void getStateInformation (juce::MemoryBlock& destData) override;

    /** [message] Takes a session state over; a bad block of any kind changes nothing. */
    void setStateInformation (const void* data, int sizeInBytes) override;

    bool hasEditor() const override { return true; }

    /** [message] A new editor, owned by the caller. Defined in source/editor. */
    juce::AudioProcessorEditor* createEditor() override;

    //==================================================================================================
    // What the editor shows and what must outlive it

    /** [message] The rate of the latest block, such as "44100 Hz", or "(unknown)" before the first one. */
    juce::String getLastSampleRateString() const;

    void setExpertMode (bool shouldBeOn) noexcept { expertModeAsDouble = shouldBeOn ? 1.0 : 0.0; }
    bool getExpertMode() const noexcept { return expertModeAsDouble == 1.0; }

    void setChannelName (const juce::String& newName) { channelName = newName; }
    const juce::String& getChannelName() const noexcept { return channelName; }

    juce::String getAllowedCharsForPresetNames() const;

    float getCurrentColourSchemeBrightness() const noexcept { return colourSchemeBrightness; }
    void setCurrentColourSchemeBrightness (float brightness) noexcept { colourSchemeBrightness = brightness; }

    //==================================================================================================
    // The preset tree. A tree argument that is null or invalid makes an operation do nothing.

    /** [message] A complete tree of the present parameter values under the current preset's name. */
    std::unique_ptr<juce::ValueTree> createValueTreeForAllParameters() const;

    /** [message] Writes every parameter's value into `tree`. */
    void fillValueTreeWithAllParams (juce::ValueTree* tree) const;

    /** [message] Writes one value, 0..1. Undoable where the tree already has the parameter; appending it is
        not. */
    void setParameterInValueTree (juce::ValueTree* tree, const juce::String& name, float value) const;
    void setParameterInValueTree (juce::ValueTree* tree, int index, float value) const;

    /** [message] -1.0 for an invalid tree, 0.0 for a parameter that it lacks. */
    float getParamValueFromValueTree (juce::ValueTree* tree, int index) const;

    /** [message] Makes the tree's name and values the live ones, in the order of its children, with the host
        told. What it does not mention stays. Of two children of one name the first counts. */
    void recallAllParamsFromValueTree (const juce::ValueTree* tree);

    /** [message] Overwrites the properties of the current tree, not the live parameters, undoably. */
    void copyAllPresetValuesFromValueTree (const juce::ValueTree& source);

    /** [message] Stamps what saving adds: time, host, machine, user. Never undoable. */
    void addAdditionalInfosToValueTree (juce::ValueTree* tree);

    /** [message] The tree that undo works on. Shares its data: copy it before changing anything. */
    const juce::ValueTree& getCurrentPresetValueTree() const noexcept { return *currentPresetValueTree; }

    //==================================================================================================
    // Undo and redo

    void clearUndoHistory();
    bool canUndo() const;
    bool canRedo() const;
    bool canUndoOrRedo() const { return canUndo() || canRedo(); }

    /** [message] Closes the open undo step. Costs nothing when it is empty. */
    void beginNewTransaction();

    void setCurrentPresetNameUndoable (const juce::String& name);
    void undoLastParameterChange();
    void redoLastParameterChange();

    /** [message] Brings parameters and host in step with the current tree. */
    void restorePresetAfterUndoOrRedo();

    //==================================================================================================
    // Factory presets

    /** [message] A copy of the names, in the order of their IDs. */
    juce::StringArray getAllFactoryPresetNames() const { return factoryPresetNames; }

    /** [message] A copy of the preset's tree; invalid for an ID outside the list. */
    juce::ValueTree getFactoryPresetTree (int presetID) const;

    /** [message] Makes the preset current as one undo step. An ID outside the list changes nothing and gives
        false. */
    bool loadFactoryPresetUndoableWithID (int presetID);

    //==================================================================================================
    // User presets

    /** [message] The header text of a preset file: up to the first 0 byte or the end. */
    juce::String rzReadString (juce::InputStream& stream);

    /** [message] Reads a preset file; invalid if it is none. Values outside 0..1 are limited, and parameters
        without a finite value left out. */
    juce::ValueTree loadUserPresetAsValueTree (const juce::File& file);

    /** [message] Saves the current tree under `name` without its "*" and loads the result. Replaces a file of
        that name. When it fails, the old file and the current preset are as they were, and the result says
        why. */
    juce::Result saveCurrentPresetFromValueTreeToDisk (juce::String name, bool compressed);

    /** [message] Reads the folder anew. */
    void updateAllUserPresetNames();

    /** [message] Reads the folder anew; the names stand in the folder's own order. */
    juce::StringArray getAllUserPresetNames();

    /** [message] Loads by file name, within the open undo step. When there is no such preset, or it cannot be
        read, nothing changes and the answer is false. */
    bool loadUserPresetUndoableWithName (const juce::String& name);

    /** [message] Loads by position in the list, as one undo step; otherwise the same. */
    bool loadUserPresetUndoableWithID (int presetID);

    /** [message] Opens the folder in the desktop's file browser. */
    void revealUserPresetsFolder() const;

    juce::File getUserPresetsFolder() const { return *userPresetsFolder; }

    //==================================================================================================
    // Which preset is current, and the ring of all presets

    int getCurrentPresetID() const noexcept { return currentPresetID; }
    bool currentPresetIsFactory() const noexcept { return stepFactoryPresets; }
    bool currentPresetWasModified() const noexcept { return presetWasModified; }

    /** [message] The name to show and to save under, with one "*" behind it when the preset was modified. */
    juce::String getCurrentPresetName() const;

    /** [message] Finds the current name in the current list; no match changes nothing. */
    void updateCurrentPresetID();

    // [message] One step round the ring of factory presets and, behind them, user presets. A neighbour that
    // cannot be read changes nothing.
    void loadNextPreset();
    void loadPrevPreset();

    //==================================================================================================
    // Settings that all instances share, and editor heights (pixels)

    /** [message] Height of the editor as a share of the display's usable height; 0.5 without a good value. */
    float getDefaultEditorDesktopHeightRatioFromPropertiesFile() const;

    /** [message] Works the default height out anew and stores the ratio. */
    void updateDefaultEditorSizes();

    void resetDefaultEditorDesktopHeightRatio();
    void setCurrentAsDefaultEditorDesktopHeightRatio();
    float getDefaultEditorDesktopHeightRatio() const noexcept { return defaultEditorDesktopHeightRatio; }
    int getDefaultEditorHeight() const noexcept { return defaultEditorHeight; }

    int getEditorHeight() const noexcept { return lastEditorHeight; }
    void setEditorHeight (int newHeight) noexcept { lastEditorHeight = newHeight; }

    /** [message] The folder of the user presets, which is made if it is missing. */
    std::unique_ptr<juce::File> getPresetsFolderFromPropertiesFile() const;

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

    // Construction, in this order.
    void initPropertiesFile();
    void initAllParameters();
    void initFactoryPresets();
    void initUserPresets();

    void addFactoryPreset (
        int presetID, const juce::String& name, float stereoWidth, float safeBass, float safeBassFreq);

    int addParameter (const juce::String& name,
                      float defaultValue,
                      CrzParameterValueMapper::CrzMappingENUM mapping);
    float valueOf (ParameterId id) const noexcept
    {
        return parameterManager->getParameterValue (indexOf (id));
    }

    /** [message] setParameter(), with the listeners told. */
    void sendParameterToHost (int index, float value);

    bool hasValidPresetTree() const;
    juce::String storedPresetName() const;
    void replayAfterHistoryStep (const juce::String& nameBefore);
    void findIdentityAnew();
    void makeUserPresetCurrent (const juce::ValueTree& preset, const juce::String& name);
    juce::File userPresetFile (const juce::String& name) const;
    void storeDefaultEditorDesktopHeightRatio (float newRatio);

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

    std::unique_ptr<PluginSettingsFile> settingsFile;
    juce::PropertiesFile::Options settingsFileOptions;

    bool stepFactoryPresets = true; ///< which list currentPresetID counts in
    int currentPresetID = 0;
    std::unique_ptr<juce::UndoManager> undoManager; ///< null until construction is over
    std::unique_ptr<juce::File> userPresetsFolder;
    juce::OwnedArray<juce::ValueTree> factoryPresetTrees; ///< never changed once made
    juce::StringArray factoryPresetNames;
    juce::StringArray userPresetNames;
    std::unique_ptr<UserPresetList> userPresetList; ///< what fills userPresetNames
    bool presetWasModified = false;

    std::unique_ptr<CrzParameterManager> parameterManager;
    std::unique_ptr<juce::ValueTree> currentPresetValueTree;
    juce::String channelName { "No Channel Name" };
    double expertModeAsDouble = 0.0;

    int defaultEditorHeight = 0; ///< pixels
    int lastEditorHeight = 0;    ///< pixels
    float defaultEditorDesktopHeightRatio = 0.0f;
    float colourSchemeBrightness = 0.3f;

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
