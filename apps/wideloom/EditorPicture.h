// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The editor painted into an image, which needs no display.

#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

#include <optional>

class WideLoomAudioProcessor;

/** What the editor is seen doing. */
enum class EditorPanel
{
    main,
    save,     ///< asking for a preset's name
    info,     ///< the info screen
    resizing, ///< its corner being dragged
    warning,  ///< on a track that is not stereo
    menu      ///< with the settings menu and its factory presets open
};

struct EditorPictureRequest
{
    int height = 600; ///< of the editor, in pixels, above 0
    bool isDark = false;
    bool isExpert = false;
    EditorPanel panel = EditorPanel::main;

    struct Peaks
    {
        float left, right; ///< linear, 1.0 = full scale
    };
    std::optional<Peaks> meters; ///< for input and output meters alike
};

/** The limits of a picture's height, in pixels. */
inline constexpr int lowestPictureHeight = 50;
inline constexpr int highestPictureHeight = 4000;

/** [message] The editor of the processor as it stands, 1.5 times as wide as high; larger where an open menu
   needs the room. Gives the processor the height, colour scheme and mode of the request. */
juce::Image paintEditorPicture (WideLoomAudioProcessor& processor, const EditorPictureRequest& request);
