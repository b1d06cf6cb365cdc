// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Mouse events for components that no window shows.

#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

namespace synthetic_mouse
{
/** An event of the main pointer at a place in `component`, in pixels. */
inline juce::MouseEvent eventAt (juce::Component& component,
                                 juce::Point<float> position,
                                 int modifiers,
                                 bool wasDragged = false)
{
    const auto source = juce::Desktop::getInstance().getMainMouseSource();
    const juce::Time now;
    return { source,
             position,
             juce::ModifierKeys (modifiers | juce::ModifierKeys::leftButtonModifier),
             juce::MouseInputSource::defaultPressure,
             juce::MouseInputSource::defaultOrientation,
             juce::MouseInputSource::defaultRotation,
             juce::MouseInputSource::defaultTiltX,
             juce::MouseInputSource::defaultTiltY,
             &component,
             &component,
             now,
             position,
             now,
             1,
             wasDragged };
}

/** A press, drags and a release, all as one pointer. */
class Pointer
{
public:
    explicit Pointer (juce::Component& componentUnderPointer)
        : component (componentUnderPointer)
    {
    }

    void press (juce::Point<float> position, int modifiers = 0)
    {
        component.mouseDown (eventAt (component, position, modifiers));
    }

    void drag (juce::Point<float> position, int modifiers = 0)
    {
        component.mouseDrag (eventAt (component, position, modifiers, true));
    }

    void release (juce::Point<float> position, int modifiers = 0)
    {
        component.mouseUp (eventAt (component, position, modifiers, true));
    }

private:
    juce::Component& component;
};
} // namespace synthetic_mouse
