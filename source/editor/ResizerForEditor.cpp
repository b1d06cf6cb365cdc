// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Drags as JUCE's corner does, and tells the panel of each press and release.

#include "ResizerForEditor.h"

#include "MainEditorComponent.h"

ResizerForEditor::ResizerForEditor (juce::Component* componentToResize,
                                    juce::ComponentBoundsConstrainer* constrainerToUse,
                                    MainEditorComponent* panel)
    : juce::ResizableCornerComponent (componentToResize, constrainerToUse),
      mainEditorComponent (panel)
{
}

ResizerForEditor::~ResizerForEditor() = default;

void ResizerForEditor::mouseDown (const juce::MouseEvent& event)
{
    juce::ResizableCornerComponent::mouseDown (event);

    if (mainEditorComponent != nullptr)
        mainEditorComponent->resizingStarted();
}

void ResizerForEditor::mouseUp (const juce::MouseEvent& event)
{
    juce::ResizableCornerComponent::mouseUp (event);

    if (mainEditorComponent != nullptr)
        mainEditorComponent->resizingStopped();
}
