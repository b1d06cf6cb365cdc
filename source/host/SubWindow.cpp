// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Puts the component into the host's window and follows its width, its showing and its end.

#include "SubWindow.h"

#include <algorithm>

SubWindow::SubWindow (GrafPtr hostWindow, juce::Component& comp)
    : component (comp),
      window (HostWindow::find (hostWindow, *this))
{
    if (window == nullptr)
        return;

    // First the place, so that the component never shows elsewhere.
    followHostWindow();
    window->addChild (component);
}

SubWindow::~SubWindow()
{
    if (window != nullptr)
        window->removeChild (component);
}

void SubWindow::forwardKey (const juce::KeyPress& key)
{
    if (window != nullptr)
        window->forwardKey (key);
}

void SubWindow::hostWindowChanged()
{
    followHostWindow();
}

void SubWindow::hostWindowGone()
{
    closeMenusAndModalComponent();
    window->removeChild (component);
    window.reset();
}

void SubWindow::followHostWindow()
{
    component.setTopLeftPosition (std::max (0, (window->getWidth() - component.getWidth()) / 2), 0);
    component.setVisible (window->isShown());
}

std::unique_ptr<SubWindow> attachSubWindow (GrafPtr hostWindow, juce::Component& comp)
{
    return std::make_unique<SubWindow> (hostWindow, comp);
}

void removeSubWindow (std::unique_ptr<SubWindow> subWindow)
{
    subWindow.reset();
}

void forwardCurrentKeyEventToHostWindow (SubWindow& subWindow, const juce::KeyPress& key)
{
    subWindow.forwardKey (key);
}

void closeMenusAndModalComponent()
{
    juce::PopupMenu::dismissAllActiveMenus();

    if (auto* modal = juce::Component::getCurrentlyModalComponent())
        modal->exitModalState (0);
}
