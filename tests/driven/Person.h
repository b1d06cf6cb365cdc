// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Someone at the mouse and the keyboard, who waits after each movement until the program has taken notice.

#pragma once

#include "TestDevices.h"

#include <juce_gui_basics/juce_gui_basics.h>

#include <functional>

/** Runs the message loop until something is so. False if it is not after a time in which it must have been.
 */
bool waitUntil (const std::function<bool()>& isSo);

/** [message] */
class Person : private juce::MouseListener
{
public:
    Person();
    ~Person() override;

    /** Whether there is a display to sit at. */
    bool isThere() const { return devices.areThere(); }

    /** To the middle of a component, or to another place in it given in fractions of its size. */
    void moveTo (const juce::Component& component, float x = 0.5f, float y = 0.5f);

    /** To a place where there is none, or where nobody must notice. */
    void moveAwayTo (juce::Point<int> screenPosition);

    /** A pixel to the right and back. */
    void nudge();

    void press();
    void release();

    /** With the button down, in steps such as a hand makes. */
    void dragBy (int x, int y);

    void click (const juce::Component& component);

    /** Clicks where the pointer is. */
    void click();
    void doubleClick (const juce::Component& component);

    /** Double-clicks where the pointer is. */
    void doubleClick();

    /** Where the answer may be that nothing takes notice. */
    void clickBlindly()
    {
        devices.setLeftButton (true);
        devices.setLeftButton (false);
    }

    /** Clicks at a hand's pace, again and again, until something is so. Menus look at the button only every
       now and then. */
    void clickUntil (const std::function<bool()>& isSo);

    /** Lets go of a button whose component may be gone, so that nobody need notice. */
    void letButtonGo() { devices.setLeftButton (false); }

    /** One notch, away from the person or towards them. */
    void turnWheel (bool isUp);

    void hold (TestDevices::Key key) { devices.setKey (key, true); }
    void letGo (TestDevices::Key key) { devices.setKey (key, false); }
    void hit (TestDevices::Key key);
    void type (const juce::String& text) { devices.type (text.toRawUTF8()); }

    /** In place of what is selected or stands in the text entry. */
    void typeOver (const juce::String& text);

private:
    void mouseDrag (const juce::MouseEvent&) override { ++drags; }
    void mouseDown (const juce::MouseEvent&) override { ++presses; }
    void mouseUp (const juce::MouseEvent&) override { ++releases; }
    void mouseDoubleClick (const juce::MouseEvent&) override { ++doubleClicks; }
    void mouseWheelMove (const juce::MouseEvent&, const juce::MouseWheelDetails&) override { ++notches; }

    /** Does something and waits for the program to have counted it. */
    void actAndWait (const int& counter, const std::function<void()>& act);

    TestDevices devices;
    int drags = 0, presses = 0, releases = 0, doubleClicks = 0, notches = 0;
};
