// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Makes the editor when it is needed, puts it into the host's window, and tells of new sizes after a drag.

#include "JuceCustomUIView.h"

#include "EditorCompWrapper.h"
#include "HostTokens.h"

#include <algorithm>
#include <limits>

namespace
{
constexpr int newSizeDelayMs = 50;

/** The host's rectangles have 16 bits. */
std::int16_t toRectCoordinate (int pixels)
{
    return static_cast<std::int16_t> (std::min<int> (pixels, std::numeric_limits<std::int16_t>::max()));
}
} // namespace

SFicSDSToken newSizeToken (std::int32_t rootNameID) noexcept
{
    return makeToken (
        rootNameID, FIC_TOKEN_SET, FIC_TOKEN_NEW_SIZE, FIC_PROTOCOL_PROCESS, ficTokenHeaderLength);
}

JuceCustomUIView::JuceCustomUIView (juce::AudioProcessor& filterToEdit, NewSizeSender& processToTell)
    : filter (filterToEdit),
      process (processToTell)
{
}

JuceCustomUIView::~JuceCustomUIView()
{
    deleteEditorComp();
}

void JuceCustomUIView::DrawContents (Rect*) {}

void JuceCustomUIView::DrawBackground (Rect*) {}

void JuceCustomUIView::updateSize()
{
    if (editorComp == nullptr)
        editorComp.reset (filter.createEditorIfNeeded());

    if (editorComp == nullptr || editorComp->getWidth() == 0 || editorComp->getHeight() == 0)
        return;

    Rect oldArea {};
    GetRect (&oldArea);

    const Rect newArea {
        0, 0, toRectCoordinate (editorComp->getHeight()), toRectCoordinate (editorComp->getWidth())
    };
    SetRect (&newArea);

    if (oldArea.right != newArea.right || oldArea.bottom != newArea.bottom)
        startTimer (newSizeDelayMs);
}

void JuceCustomUIView::attachToWindow (GrafPtr newPort)
{
    if (newPort == 0)
    {
        deleteEditorComp();
        return;
    }

    updateSize();
    wrapper.reset();

    if (editorComp != nullptr)
        wrapper = std::make_unique<EditorCompWrapper> (newPort, *editorComp, *this);
}

void JuceCustomUIView::deleteEditorComp()
{
    if (editorComp == nullptr && wrapper == nullptr)
        return;

    // A host that is asked to look at the size of a closed view would have the editor made again, for nobody.
    stopTimer();

    closeMenusAndModalComponent();

    filter.editorBeingDeleted (editorComp.get());
    editorComp.reset();
    wrapper.reset();
}

void JuceCustomUIView::timerCallback()
{
    // A host that resized its window in the middle of a drag would pull the corner away from under the mouse.
    if (juce::Component::isMouseButtonDownAnywhere())
        return;

    stopTimer();
    process.dispatchNewSizeToken();
}
