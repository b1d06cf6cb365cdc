// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The host's view of a process: owns the editor and tells the host how large it is.

#pragma once

#include "CCustomView.h"

#include <juce_audio_processors/juce_audio_processors.h>

#include <memory>

/** What the view needs of its process. */
class NewSizeSender
{
public:
    virtual ~NewSizeSender() = default;

    /** [host-main] Dispatches newSizeToken() of the process's root name, if there is a token service. */
    virtual void dispatchNewSizeToken() = 0;
};

/** [any] Tells the host to ask for the size of the view again. */
SFicSDSToken newSizeToken (std::int32_t rootNameID) noexcept;

/** Makes the editor when its size is first asked for, puts it into the host's window, and follows its size.
   The process and the filter outlive it. Everything here is [host-main]. */
class JuceCustomUIView : public CCustomView, public juce::Timer
{
public:
    class EditorCompWrapper;

    JuceCustomUIView (juce::AudioProcessor& filter, NewSizeSender& process);
    ~JuceCustomUIView() override;

    void DrawContents (Rect* area) override;
    void DrawBackground (Rect* area) override;

    /** Brings the view's rectangle to the editor's size, and makes the editor if there is none. A change is
       told to the host a little later, once no mouse button is held. An editor without a size changes
       nothing. */
    void updateSize();

    /** Shows the editor in the host's window; 0 closes it, and deletes the editor. */
    void attachToWindow (GrafPtr newPort);

    /** Closes menus and modal windows, then deletes the editor and what it stood in. */
    void deleteEditorComp();

    void timerCallback() override;

private:
    juce::AudioProcessor& filter;
    NewSizeSender& process;
    std::unique_ptr<EditorCompWrapper> wrapper;
    std::unique_ptr<juce::AudioProcessorEditor> editorComp;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (JuceCustomUIView)
};
