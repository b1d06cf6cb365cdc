// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Opens the editor's window, waits until it stands and has the keyboard, and finds open menus.

#include "DrivenEditor.h"

namespace
{
/** A place of the screen that no window covers: the editor comes up in the middle. */
const juce::Point<int> emptyCorner { 3, 3 };

constexpr juce::uint32 settlingMs = 150;  ///< without a move, and a window stands where it stays
constexpr juce::uint32 keyboardMs = 2000; ///< without the keyboard for so long, and a window will not get it

constexpr float bareGroundX = 0.5f, bareGroundY = 0.09f; ///< of the panel, where there is no control

std::string nameOf (int index)
{
    return parameterTable[static_cast<size_t> (index)].name;
}
} // namespace

HostLog::HostLog (juce::AudioProcessor& processorToWatch)
    : processor (processorToWatch)
{
    processor.addListener (this);
}

HostLog::~HostLog()
{
    processor.removeListener (this);
}

void HostLog::audioProcessorParameterChanged (juce::AudioProcessor*, int index, float)
{
    if (index < numParameters && (lines.empty() || lines.back() != nameOf (index)))
        lines.push_back (nameOf (index));
}

void HostLog::audioProcessorParameterChangeGestureBegin (juce::AudioProcessor*, int index)
{
    lines.push_back ("begin " + nameOf (index));
}

void HostLog::audioProcessorParameterChangeGestureEnd (juce::AudioProcessor*, int index)
{
    lines.push_back ("end " + nameOf (index));
}

int HostLog::countOpenGestures() const
{
    int count = 0;

    for (const auto& line : lines)
        count += line.starts_with ("begin ") - line.starts_with ("end ");

    return count;
}

void DrivenEditor::SetUp()
{
    if (! person.isThere())
        GTEST_SKIP() << "there is no X display with XTest; scripts/with-display starts one";

    processor = std::make_unique<WideLoomAudioProcessor>();
    processor->resetDefaultEditorDesktopHeightRatio();
    processor->setEditorHeight (processor->getDefaultEditorHeight());
    host = std::make_unique<HostLog> (*processor);
    person.moveAwayTo (emptyCorner);
    openWindow();
}

void DrivenEditor::TearDown()
{
    closeWindow();
    host.reset();
    processor.reset();
}

void DrivenEditor::openWindow()
{
    window = std::make_unique<EditorWindow> (*processor, "WideLoom", [this] { ++numSpaces; });

    // Window managers move it, and the keyboard comes with the pointer.
    auto place = window->getScreenPosition();
    auto since = juce::Time::getMillisecondCounter();
    ASSERT_TRUE (waitUntil (
        [&]
        {
            const auto now = juce::Time::getMillisecondCounter();

            if (window->getScreenPosition() != place)
            {
                place = window->getScreenPosition();
                since = now;
            }

            // The keyboard follows the pointer into a window, but not into one that came up under it.
            if (! window->isActiveWindow() && now > since + keyboardMs)
            {
                person.moveAwayTo (emptyCorner);
                since = now;
            }

            person.moveAwayTo (panel().getScreenBounds().getRelativePoint (bareGroundX, bareGroundY));
            return window->isActiveWindow() && now > since + settlingMs;
        }));

    // JUCE has not seen a button go up when there was no window to see it.
    if (juce::ModifierKeys::currentModifiers.isAnyMouseButtonDown())
        person.clickUntil ([] { return ! juce::ModifierKeys::currentModifiers.isAnyMouseButtonDown(); });

    person.moveTo (control ("titleLabel"));
    ASSERT_TRUE (waitUntil ([&] { return infoText().contains ("Click for more infos"); })) << infoText();
    host->clear();
}

float DrivenEditor::valueOf (ParameterId id) const
{
    return processor->getParameterManager()->getParameterValue (static_cast<int> (id));
}

int DrivenEditor::countUndoSteps()
{
    int count = 0;

    for (; processor->canUndo(); ++count)
        processor->undoLastParameterChange();

    for (int i = 0; i < count; ++i)
        processor->redoLastParameterChange();

    host->clear();
    return count;
}

void DrivenEditor::clickUntil (const juce::String& id, const std::function<bool()>& isSo)
{
    EXPECT_TRUE (waitUntil ([&] { return control (id).isEnabled(); })) << id;
    person.click (control (id));
    EXPECT_TRUE (waitUntil (isSo)) << id;
}

void DrivenEditor::enter (const juce::String& text)
{
    person.typeOver (text);
    person.hit (TestDevices::Key::returnKey);
}

std::vector<juce::Component*> openMenus()
{
    std::vector<juce::Component*> menus;
    auto& desktop = juce::Desktop::getInstance();

    for (int i = desktop.getNumComponents(); --i >= 0;)
        if (auto* component = desktop.getComponent (i);
            component->getName() == "menu" && component->isShowing())
            menus.push_back (component);

    return menus;
}

juce::Component* findMenuItem (const juce::String& text)
{
    for (auto* menu : openMenus())
        for (auto* item : menu->getChildren())
            if (auto* accessible = item->getAccessibilityHandler();
                accessible != nullptr && accessible->getTitle() == text)
                return item;

    return nullptr;
}
