// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// A pop-up menu drawn into a picture, where no window can show it.

#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

/** How large the menu is, in pixels. */
juce::Rectangle<int> menuPictureSize (const juce::PopupMenu& menu, juce::LookAndFeel& lookAndFeel);

/** Draws the menu's rows with the look and feel.
    @param topLeft      of the menu, in pixels
    @param highlighted  the text of the row that looks as if the mouse were on it; may be empty
    @return the bounds of the highlighted row, empty if there is none */
juce::Rectangle<int> drawMenuPicture (juce::Graphics& g,
                                      const juce::PopupMenu& menu,
                                      juce::LookAndFeel& lookAndFeel,
                                      juce::Point<int> topLeft,
                                      const juce::String& highlighted = {});
