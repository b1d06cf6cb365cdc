// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The live parameter table, and the flags that tell the editor what to refresh.

#pragma once

#include "CrzParameter.h"
#include "RealTime.h"

#include <juce_core/juce_core.h>

namespace juce
{
class AudioProcessor;
}

/** Owns the rows. They are added while the processor is built and never again, so finding one needs no lock;
    values and flags are atomics and may be touched from any thread. */
class CrzParameterManager
{
public:
    explicit CrzParameterManager (juce::AudioProcessor* processor) noexcept
        : audioProcessor (processor)
    {
    }

    juce::AudioProcessor* getAudioProcessor() const noexcept { return audioProcessor; }

    /** [message, while the table is built] Takes ownership and returns the row's index. */
    int addParameter (CrzParameter* newParameter);

    int getNumberOfParameters() const noexcept { return parameters.size(); }

    /** [any] Null for an index outside the table. */
    CrzParameter* getParameter (int index) const noexcept { return parameters[index]; }

    /** [message] By name, exact and case-sensitive; null for an unknown one. */
    CrzParameter* getParameter (const juce::String& name) const;

    /** [message] -1 for an unknown name. */
    int getParameterIndex (const juce::String& name) const;

    /** [message] "invalid parameter" below the table, "reserved" past its end. */
    juce::String getParameterName (int index) const;

    /** [message] Empty for an index outside the table. */
    juce::String getParameterValueAsText (int index) const;

    /** [any] 0.0 for an index outside the table. */
    float getParameterValue (int index) const noexcept;

    /** [message] 0.0 for an unknown name. */
    float getParameterValue (const juce::String& name) const;

    /** [any] Stores the value and raises the three flags that a change concerns. Does nothing for an index
        outside the table. */
    void setParameterValue (int index, float value) noexcept;

    /** [any] */
    void setSampleRateNeedsToBeUpdatedInEditor (bool needsUpdate) noexcept
    {
        sampleRateNeedsToBeUpdatedInEditor.store (needsUpdate, std::memory_order_relaxed);
    }

    // [message] Each of these reads a flag and lowers it.
    bool getParameterNeedsToBeUpdatedInEditor() noexcept
    {
        return consume (parameterNeedsToBeUpdatedInEditor);
    }
    bool getSampleRateNeedsToBeUpdatedInEditor() noexcept
    {
        return consume (sampleRateNeedsToBeUpdatedInEditor);
    }
    bool getPresetNameNeedsToBeUpdatedInEditor() noexcept
    {
        return consume (presetNameNeedsToBeUpdatedInEditor);
    }
    bool getUndoButtonsNeedToBeUpdatedInEditor() noexcept
    {
        return consume (undoButtonsNeedToBeUpdatedInEditor);
    }

private:
    static bool consume (std::atomic<bool>& flag) noexcept
    {
        return flag.exchange (false, std::memory_order_relaxed);
    }

    juce::AudioProcessor* audioProcessor;
    juce::OwnedArray<CrzParameter> parameters;

    // Raised on any thread, lowered on the message thread.
    std::atomic<bool> parameterNeedsToBeUpdatedInEditor { false };
    std::atomic<bool> sampleRateNeedsToBeUpdatedInEditor { false };
    std::atomic<bool> presetNameNeedsToBeUpdatedInEditor { false };
    std::atomic<bool> undoButtonsNeedToBeUpdatedInEditor { false };

    JUCE_DECLARE_NON_COPYABLE (CrzParameterManager)
};
