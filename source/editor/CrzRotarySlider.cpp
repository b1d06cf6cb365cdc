// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The knob of the continuous parameters.

#include "CrzRotarySlider.h"

#include <engine/CrzParameter.h>

#include <cmath>
#include <utility>

namespace
{
constexpr int pixelsForFullRange = 350;

// How a drag with Shift turns speed into change.
constexpr double fineSensitivity = 1.0;
constexpr int fineThresholdPixels = 1;
constexpr double fineOffset = 0.01f;

constexpr int plainDecimals = 2;
constexpr auto numberCharacters = "0123456789.,-";

CrzParameterValueMapper* mapperOf (const CrzParameter* parameter)
{
    return parameter != nullptr ? parameter->getValueMapper() : nullptr;
}

/** A slider's range does not stop a value that is not finite. */
double finiteOrZero (double value) noexcept
{
    return std::isfinite (value) ? value : 0.0;
}
} // namespace

CrzRotarySlider::CrzRotarySlider (CrzParameter* parameterToShow)
    : parameter (parameterToShow)
{
    setSliderStyle (juce::Slider::RotaryVerticalDrag);
    setMouseDragSensitivity (pixelsForFullRange);
    setVelocityBasedMode (false);
    setVelocityModeParameters (
        fineSensitivity, fineThresholdPixels, fineOffset, false, juce::ModifierKeys::noModifiers);
}

CrzRotarySlider::~CrzRotarySlider()
{
    // Deleted in mid-drag: nobody else would give the pointer back.
    if (plainPressIsDown)
        juce::Desktop::getInstance().getMainMouseSource().enableUnboundedMouseMovement (false);
}

void CrzRotarySlider::mouseDown (const juce::MouseEvent& event)
{
    plainPressIsDown = false;

    if (! isEnabled())
    {
        juce::Slider::mouseDown (event);
        return;
    }

    if (event.mods.isCommandDown())
    {
        mouseDoubleClick (event);
        return;
    }

    auto source = event.source;

    if (! source.isUnboundedMouseMovementEnabled())
        source.enableUnboundedMouseMovement (true, false);

    plainPressIsDown = true;
    mouseDownPosition = event.getScreenPosition();
    juce::Slider::mouseDown (event);
}

void CrzRotarySlider::mouseDrag (const juce::MouseEvent& event)
{
    // After a Command-click the base class would hide the pointer as soon as Shift is down.
    if (! plainPressIsDown)
        return;

    setVelocityBasedMode (event.mods.isShiftDown());
    juce::Slider::mouseDrag (event);
}

void CrzRotarySlider::mouseUp (const juce::MouseEvent& event)
{
    auto source = event.source;

    if (source.isUnboundedMouseMovementEnabled())
        source.enableUnboundedMouseMovement (false);

    const bool wasPlainPress = std::exchange (plainPressIsDown, false);
    juce::Slider::mouseUp (event);

    if (! isEnabled())
        return;

    setVelocityBasedMode (false);

    // A Command-click left the pointer alone, and what is stored then is the place of an earlier press.
    if (wasPlainPress)
        movePointerTo (mouseDownPosition);
}

void CrzRotarySlider::modifierKeysChanged (const juce::ModifierKeys& modifiers)
{
    // In a drag the base class would show the pointer and move it as soon as any modifier goes down.
    if (plainPressIsDown)
        juce::Component::modifierKeysChanged (modifiers); // NOLINT: past the base class on purpose
    else
        juce::Slider::modifierKeysChanged (modifiers);
}

double CrzRotarySlider::getValueFromText (const juce::String& text)
{
    auto number = text.trim();

    while (number.startsWithChar ('+'))
        number = number.substring (1).trimStart();

    number = number.replaceCharacter (',', '.').initialSectionContainingOnly (numberCharacters);

    if (const auto* mapper = mapperOf (parameter))
        return finiteOrZero (mapper->string2normedValueAsFloat (number));

    return finiteOrZero (number.getDoubleValue());
}

juce::String CrzRotarySlider::getTextFromValue (double value)
{
    if (const auto* mapper = mapperOf (parameter))
        return mapper->normed2RealValueAsString (static_cast<float> (value));

    return juce::String (finiteOrZero (value), plainDecimals);
}

void CrzRotarySlider::movePointerTo (juce::Point<int> screenPosition)
{
    juce::Desktop::setMousePosition (screenPosition);
}
