// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The effect as it plays on the desktop, with its editor in a window.

#pragma once

#include "EffectPath.h"

#include <functional>
#include <memory>

/** [message] Sound goes through getPath(), on the audio thread. */
class LiveEffect
{
public:
    /** In the plug-in, as a host shows it. */
    static std::unique_ptr<LiveEffect> makeHosted();

    /** Without a host between. */
    static std::unique_ptr<LiveEffect> makeDirect();

    virtual ~LiveEffect() = default;

    virtual EffectPath& getPath() noexcept = 0;

    /** Opens the editor, once the path is prepared. That it is closed ends the message loop.
        @param spaceWasPressed  called for each press of the Space key that no control wanted */
    virtual Problem showEditor (const juce::String& title, std::function<void()> spaceWasPressed) = 0;

    /** Of the window that showEditor() has opened. */
    virtual void setTitle (const juce::String& title) = 0;
};
