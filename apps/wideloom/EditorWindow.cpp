// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Puts the processor's editor under a native title bar and passes Space on.

#include "EditorWindow.h"

EditorWindow::EditorWindow (juce::AudioProcessor& processor,
                            const juce::String& title,
                            std::function<void()> spaceWasPressed)
    : juce::DocumentWindow (title, juce::Colours::black, closeButton | minimiseButton),
      editor (processor.createEditorIfNeeded()),
      onSpace (std::move (spaceWasPressed))
{
    setUsingNativeTitleBar (true);
    setContentNonOwned (editor.get(), true);
    centreWithSize (getWidth(), getHeight());
    setWantsKeyboardFocus (true);
    setVisible (true);
    toFront (true);
}

EditorWindow::~EditorWindow()
{
    clearContentComponent();
    editor->processor.editorBeingDeleted (editor.get());
}

void EditorWindow::closeButtonPressed()
{
    juce::MessageManager::getInstance()->stopDispatchLoop();
}

bool EditorWindow::keyPressed (const juce::KeyPress& key)
{
    if (key != juce::KeyPress::spaceKey)
        return juce::DocumentWindow::keyPressed (key);

    onSpace();
    return true;
}
