// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Runs audio through the plug-in bundle, as its native host does.

#pragma once

#include "DirectPath.h"
#include "HostSession.h"

/** The settings travel as control values and as the chunk that a host keeps in its sessions. */
class HostPath : public EffectPath
{
public:
    /** A host sees nothing of the effect's own meters. With meters, a second effect gets the same, and shows
        them. */
    explicit HostPath (bool withMeters);
    ~HostPath() override;

    Problem prepare (double sampleRate, int maxBlockFrames) override;
    Problem setState (const juce::MemoryBlock& block) override;
    juce::MemoryBlock getState() override;
    void setParameter (int index, float normalised) override;
    void process (juce::AudioBuffer<float>& block) override;
    MeterPeaks takeMeterPeaks() override;

    /** Once prepare() has succeeded. */
    HostSession& getSession() noexcept { return *session; }

private:
    std::unique_ptr<HostSession> session;
    std::unique_ptr<DirectPath> twin; ///< null without meters
    juce::AudioBuffer<float> rendered;
};
