// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Takes the editor in, follows its size, and sends the host's window the keys that it does not use.

#include "EditorCompWrapper.h"

#include <utility>

JuceCustomUIView::EditorCompWrapper::EditorCompWrapper (GrafPtr hostWindow,
                                                        juce::AudioProcessorEditor& editor,
                                                        JuceCustomUIView& ownerToUse)
    : owner (ownerToUse)
{
    setOpaque (true);
    setBroughtToFrontOnMouseClick (true);
    setBounds (editor.getBounds());
    editor.setTopLeftPosition (0, 0);
    addAndMakeVisible (editor);

    subWindow = attachSubWindow (hostWindow, *this);
}

JuceCustomUIView::EditorCompWrapper::~EditorCompWrapper()
{
    removeChildComponent (0); // the editor goes on, perhaps into another wrapper
    removeSubWindow (std::move (subWindow));
}

void JuceCustomUIView::EditorCompWrapper::paint (juce::Graphics&) {}

void JuceCustomUIView::EditorCompWrapper::resized()
{
    // A native window that the host has destroyed measures nothing; the editor keeps its size for the next.
    if (getBounds().isEmpty())
        return;

    if (auto* editor = getChildComponent (0))
        editor->setBounds (getLocalBounds());

    repaint();
}

void JuceCustomUIView::EditorCompWrapper::childBoundsChanged (juce::Component* child)
{
    setSize (child->getWidth(), child->getHeight());
    child->setTopLeftPosition (0, 0);
    owner.updateSize();
}

bool JuceCustomUIView::EditorCompWrapper::keyPressed (const juce::KeyPress& key)
{
    owner.updateSize();

    if (subWindow != nullptr)
        forwardCurrentKeyEventToHostWindow (*subWindow, key);

    return true;
}

void JuceCustomUIView::EditorCompWrapper::userTriedToCloseWindow() {}
