// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The four fixed colours of the product.

#pragma once

#include <juce_graphics/juce_graphics.h>

namespace CrzQ7Colours
{
inline const juce::Colour q7mainColour { 255, 53, 0 };
inline const juce::Colour q7complementColourA { 8, 111, 161 };
inline const juce::Colour q7complementColourB { 124, 231, 0 };
inline const juce::Colour q7darkGrey { 51, 51, 51 };
} // namespace CrzQ7Colours
