// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The corner handle that resizes the editor and tells the panel when a drag begins and ends.

#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

class MainEditorComponent;

/** [message] Resizes a component by its bottom right corner. */
class ResizerForEditor : public juce::ResizableCornerComponent
{
public:
    /** None of the three is owned; each must outlive the drags. The panel may be null. */
    ResizerForEditor (juce::Component* componentToResize,
                      juce::ComponentBoundsConstrainer* constrainer,
                      MainEditorComponent* panel);
    ~ResizerForEditor() override;

    void mouseDown (const juce::MouseEvent& event) override;
    void mouseUp (const juce::MouseEvent& event) override;

private:
    MainEditorComponent* const mainEditorComponent;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (ResizerForEditor)
};
