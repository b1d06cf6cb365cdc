// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// This plug-in, as its host sees it: names, codes, channel configurations.

#pragma once

#include "CEffectGroupMIDI.h"

class CEffectProcess;

/** One type for each channel configuration. Its destructor ends all instances, then JUCE. All operations are
 * [host-main]. */
class JucePlugInGroup : public CEffectGroupMIDI
{
public:
    JucePlugInGroup();
    ~JucePlugInGroup() override;

    /** Initialises JUCE and makes an instance that the caller owns. */
    static CEffectProcess* createNewProcess();

    /** Long name, newline, short name. */
    static const char* createRTASName() noexcept;

protected:
    void CreateEffectTypes() override;
};
