// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Uses the mouse and the keyboard, and runs the message loop until JUCE has heard of it.

#include "Person.h"

#include <gtest/gtest.h>

namespace
{
constexpr juce::uint32 patienceMs =
    60000; ///< far beyond what even an instrumented build on a busy machine needs
constexpr int loopSliceMs = 2;
constexpr int handMs = 100;     ///< between pressing a button and letting it go
constexpr int longestStep = 10; ///< pixels of a drag between two events

// Whether two clicks are a double click is said by who clicks, not by the machine's load.
constexpr int neverDouble = 0;
constexpr int alwaysDouble = 60000;
} // namespace

bool waitUntil (const std::function<bool()>& isSo)
{
    const auto start = juce::Time::getMillisecondCounter();

    while (! isSo())
    {
        if (juce::Time::getMillisecondCounter() - start > patienceMs)
            return false;

        juce::MessageManager::getInstance()->runDispatchLoopUntil (loopSliceMs);
    }

    return true;
}

Person::Person()
{
    juce::Desktop::getInstance().addGlobalMouseListener (this);
}

Person::~Person()
{
    juce::Desktop::getInstance().removeGlobalMouseListener (this);
}

void Person::actAndWait (const int& counter, const std::function<void()>& act)
{
    const int before = counter;
    act();
    EXPECT_TRUE (waitUntil ([&] { return counter != before; })) << "the program did not notice the mouse";
}

void Person::moveTo (const juce::Component& component, float x, float y)
{
    ASSERT_TRUE (component.isShowing()) << component.getComponentID();
    const auto source = juce::Desktop::getInstance().getMainMouseSource();

    // With an eye on the pointer: the window may be moving yet.
    EXPECT_TRUE (waitUntil (
        [&]
        {
            const auto place = component.getScreenBounds().getRelativePoint (x, y);

            const auto* under = source.getComponentUnderMouse();

            if (under != nullptr && (under == &component || component.isParentOf (under))
                && juce::Desktop::getMousePosition() == place)
                return true;

            devices.movePointerTo (place.x, place.y);
            nudge();
            return false;
        }))
        << "the pointer does not reach " << component.getComponentID();
}

void Person::moveAwayTo (juce::Point<int> screenPosition)
{
    devices.movePointerTo (screenPosition.x, screenPosition.y);
}

void Person::nudge()
{
    devices.movePointerBy (1, 0);
    devices.movePointerBy (-1, 0);
}

void Person::press()
{
    juce::MouseEvent::setDoubleClickTimeout (neverDouble);
    actAndWait (presses, [&] { devices.setLeftButton (true); });
}

void Person::release()
{
    actAndWait (releases, [&] { devices.setLeftButton (false); });
}

void Person::dragBy (int x, int y)
{
    const int numSteps =
        juce::jmax (1, (juce::jmax (std::abs (x), std::abs (y)) + longestStep - 1) / longestStep);

    for (int step = 0; step < numSteps; ++step)
        actAndWait (drags,
                    [&]
                    {
                        const auto part = [&] (int whole)
                        { return whole * (step + 1) / numSteps - whole * step / numSteps; };
                        devices.movePointerBy (part (x), part (y));
                    });
}

void Person::click (const juce::Component& component)
{
    moveTo (component);
    click();
}

void Person::click()
{
    press();
    release();
}

void Person::clickUntil (const std::function<bool()>& isSo)
{
    const auto runLoop = [] { juce::MessageManager::getInstance()->runDispatchLoopUntil (handMs); };

    EXPECT_TRUE (waitUntil (
        [&]
        {
            devices.setLeftButton (true);
            runLoop();
            devices.setLeftButton (false);
            runLoop();
            return isSo();
        }));
}

void Person::doubleClick (const juce::Component& component)
{
    moveTo (component);
    doubleClick();
}

void Person::doubleClick()
{
    click();
    juce::MouseEvent::setDoubleClickTimeout (alwaysDouble);
    actAndWait (doubleClicks,
                [&]
                {
                    devices.setLeftButton (true);
                    devices.setLeftButton (false);
                });
}

void Person::turnWheel (bool isUp)
{
    actAndWait (notches, [&] { devices.turnWheel (isUp); });
}

void Person::hit (TestDevices::Key key)
{
    devices.setKey (key, true);
    devices.setKey (key, false);
}

void Person::typeOver (const juce::String& text)
{
    hold (TestDevices::Key::control);
    hit (TestDevices::Key::selectAll);
    letGo (TestDevices::Key::control);
    type (text);
}
