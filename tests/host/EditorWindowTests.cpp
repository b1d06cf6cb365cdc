// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The editor in a host's window on a real X server, with mouse and keyboard.

#include "EditorTestProcessor.h"
#include "host/platform/MessagePump.h"
#include "support/XHost.h"

#include <X11/keysym.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <thread>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace
{
/** Far more than anything here takes; what fails to happen fails after it. */
constexpr int patienceMs = 20000;

constexpr int usedKey = XK_u;
constexpr GrafPtr noWindow = 0x1ffffff0;     // a number that nobody has
constexpr GrafPtr noNumber = ~GrafPtr { 0 }; // not even a number of a window

class EditorWindow : public testing::Test
{
protected:
    EditorWindow() { host.begin(); }

    ~EditorWindow() override
    {
        view.reset();
        host.end();
        EXPECT_TRUE (XHost::handlesErrors());
    }

    /** Runs messages as a host does until something holds. */
    template <typename Condition>
    [[nodiscard]] bool runUntil (Condition condition)
    {
        const auto end = juce::Time::getMillisecondCounter() + patienceMs;

        while (! condition())
        {
            if (juce::Time::getMillisecondCounter() > end || ! pump.run())
                return false;

            std::this_thread::yield();
        }

        return true;
    }

    testing::AssertionResult runUntilPlaced (GrafPtr window, juce::Rectangle<int> bounds)
    {
        std::vector<XHost::Child> children;

        const auto isPlaced = [&]
        {
            children = host.getChildren (window);
            return children.size() == 1 && children.front().bounds == bounds && children.front().isShown;
        };

        if (runUntil (isPlaced))
            return testing::AssertionSuccess();

        auto failure = testing::AssertionFailure()
                       << "in a window that is " << (host.isShown (window) ? "shown" : "hidden");

        for (const auto& child : children)
            failure << ", " << child.bounds.toString() << (child.isShown ? " shown" : " hidden");

        return failure << ", the editor is " << (editor().isShowing() ? "shown" : "hidden");
    }

    juce::AudioProcessorEditor& editor() { return *processor.getActiveEditor(); }

    /** Opens the editor in a new window and clicks it, so that it gets the keyboard. */
    GrafPtr openAndClick()
    {
        const auto window = host.makeWindow (400, 300);
        view->attachToWindow (window);
        EXPECT_TRUE (runUntilPlaced (window, { 0, 0, 400, 300 }));

        host.moveMouse (window, { 200, 150 });
        host.pressMouse (true);
        EXPECT_TRUE (runUntil ([&] { return juce::Component::isMouseButtonDownAnywhere(); }));
        host.pressMouse (false);
        EXPECT_TRUE (runUntil (
            [&]
            { return editor().hasKeyboardFocus (true) && ! juce::Component::isMouseButtonDownAnywhere(); }));
        return window;
    }

    XHost& host { XHost::get() };
    MessagePump pump;
    EditorTestProcessor processor;
    CountingSizeSender process;
    std::optional<JuceCustomUIView> view { std::in_place, processor, process };
};
} // namespace

TEST_F (EditorWindow, OpensAtTheTopInTheMiddle)
{
    const auto wide = host.makeWindow (800, 600);
    view->attachToWindow (wide);
    EXPECT_TRUE (runUntilPlaced (wide, { 200, 0, 400, 300 }));

    const auto narrow = host.makeWindow (300, 200);
    view->attachToWindow (narrow);
    EXPECT_TRUE (runUntilPlaced (narrow, { 0, 0, 400, 300 }));
    EXPECT_THAT (host.getChildren (wide), IsEmpty());
}

TEST_F (EditorWindow, FollowsWhateverItStandsIn)
{
    const auto outer = host.makeWindow (600, 400);
    const auto inner = host.makeWindow (500, 400, outer);
    view->attachToWindow (inner);
    EXPECT_TRUE (runUntilPlaced (inner, { 50, 0, 400, 300 }));

    for (const auto window : { outer, inner })
    {
        host.hide (window);
        EXPECT_TRUE (runUntil ([&] { return ! editor().isShowing(); }));
        host.show (window);
        EXPECT_TRUE (runUntil ([&] { return editor().isShowing(); }));
    }

    host.resize (inner, 450, 400);
    EXPECT_TRUE (runUntilPlaced (inner, { 25, 0, 400, 300 }));
}

TEST_F (EditorWindow, OpensInAWindowThatIsShownLater)
{
    const auto window = host.makeWindow (400, 300);
    host.hide (window);
    view->attachToWindow (window);
    EXPECT_FALSE (editor().isShowing());
    host.show (window);
    EXPECT_TRUE (runUntilPlaced (window, { 0, 0, 400, 300 }));
}

TEST_F (EditorWindow, TellsANewSizeAndWaitsForTheMouse)
{
    const auto window = openAndClick();
    EXPECT_TRUE (runUntil ([&] { return process.numTokens == 1; }));

    editor().setSize (450, 320);
    EXPECT_TRUE (runUntil ([&] { return process.numTokens == 2; }));
    EXPECT_TRUE (runUntilPlaced (window, { 0, 0, 450, 320 }));

    host.pressMouse (true);
    EXPECT_TRUE (runUntil ([&] { return juce::Component::isMouseButtonDownAnywhere(); }));
    editor().setSize (460, 330);
    view->timerCallback();
    EXPECT_TRUE (view->isTimerRunning());
    EXPECT_EQ (process.numTokens, 2);

    host.pressMouse (false);
    EXPECT_TRUE (runUntil ([&] { return process.numTokens == 3; }));
    EXPECT_FALSE (view->isTimerRunning());
    EXPECT_THAT (viewRectangle (*view), ElementsAre (0, 0, 330, 460));
}

TEST_F (EditorWindow, SendsUnusedKeysOnAsTheyWere)
{
    openAndClick();

    // The keypad's own keys are transport keys in many a host, and JUCE takes them for the others.
    for (const int symbol : { usedKey, XK_space, usedKey, XK_KP_Enter, XK_Left, XK_F5, XK_x })
        host.typeKey (static_cast<unsigned long> (symbol));

    EXPECT_TRUE (runUntil ([&] { return host.getKeys().size() >= 10; }));
    std::vector<XHost::Key> expected;

    for (const int symbol : { XK_space, XK_KP_Enter, XK_Left, XK_F5, XK_x })
        for (const bool pressed : { true, false })
            expected.push_back ({ static_cast<unsigned long> (symbol), pressed });

    EXPECT_EQ (host.getKeys(), expected);
}

TEST_F (EditorWindow, LeavesTheWindowBeforeTheHostDestroysIt)
{
    const auto window = host.makeWindow (400, 300);
    view->attachToWindow (window);
    EXPECT_TRUE (runUntilPlaced (window, { 0, 0, 400, 300 }));

    view->attachToWindow (0);
    EXPECT_THAT (host.getChildren (window), IsEmpty());
    host.destroy (window);
    EXPECT_TRUE (pump.run());
    EXPECT_EQ (XHost::getNumErrors(), 0);
}

TEST_F (EditorWindow, ClosesWithAMenuOpen)
{
    const auto window = openAndClick();
    std::optional<int> answer;
    juce::PopupMenu menu;
    menu.addItem (1, "An item");
    menu.showMenuAsync (juce::PopupMenu::Options().withTargetComponent (editor()),
                        [&] (int result) { answer = result; });
    EXPECT_TRUE (runUntil ([&] { return juce::Component::getCurrentlyModalComponent() != nullptr; }));
    EXPECT_FALSE (answer.has_value());

    view->attachToWindow (0);
    host.destroy (window);
    EXPECT_THAT (processor.log, ElementsAre ("editor made", "editor deleted"));
    EXPECT_TRUE (runUntil ([&] { return answer.has_value(); }));
    EXPECT_EQ (answer, 0);
    EXPECT_EQ (juce::Component::getCurrentlyModalComponent(), nullptr);
    EXPECT_EQ (XHost::getNumErrors(), 0);
}

TEST_F (EditorWindow, SurvivesAWindowThatIsTakenAwayFirst)
{
    const auto window = openAndClick();
    juce::PopupMenu menu;
    menu.addItem (1, "An item");
    menu.showMenuAsync (juce::PopupMenu::Options().withTargetComponent (editor()));
    EXPECT_TRUE (runUntil ([&] { return juce::Component::getCurrentlyModalComponent() != nullptr; }));

    host.destroy (window);
    editor().repaint();
    EXPECT_TRUE (runUntil ([&] { return ! editor().isShowing(); }));
    EXPECT_TRUE (runUntil ([&] { return juce::Component::getCurrentlyModalComponent() == nullptr; }));
    editor().setSize (420, 310);
    EXPECT_THAT (viewRectangle (*view), ElementsAre (0, 0, 310, 420));

    // The same editor goes on in another window, which then vanishes between two messages.
    const auto next = host.makeWindow (420, 310);
    view->attachToWindow (next);
    EXPECT_TRUE (runUntilPlaced (next, { 0, 0, 420, 310 }));
    host.destroy (next);
    editor().repaint();
    editor().setSize (430, 320);
    view->attachToWindow (0);
    EXPECT_TRUE (pump.run());

    EXPECT_THAT (processor.log, ElementsAre ("editor made", "editor deleted"));
    EXPECT_EQ (XHost::getNumErrors(), 0);
}

TEST_F (EditorWindow, SurvivesNumbersThatAreNoWindow)
{
    for (const auto port : { noWindow, noNumber })
    {
        view->attachToWindow (port);
        EXPECT_TRUE (pump.run());
        EXPECT_FALSE (editor().isShowing());
    }

    const auto window = host.makeWindow (400, 300);
    view->attachToWindow (window);
    EXPECT_TRUE (runUntilPlaced (window, { 0, 0, 400, 300 }));
    EXPECT_EQ (XHost::getNumErrors(), 0);
}

TEST_F (EditorWindow, LeavesTheHostItsOwnErrors)
{
    const auto window = host.makeWindow (400, 300);
    view->attachToWindow (window);
    host.provokeError();
    EXPECT_EQ (XHost::getNumErrors(), 1);

    view.reset();
    host.provokeError();
    EXPECT_EQ (XHost::getNumErrors(), 2);
    view.emplace (processor, process);
}

TEST_F (EditorWindow, LivesBesideAnother)
{
    EditorTestProcessor otherProcessor;
    CountingSizeSender otherProcess;
    std::optional<JuceCustomUIView> otherView { std::in_place, otherProcessor, otherProcess };

    const auto window = host.makeWindow (400, 300);
    const auto otherWindow = host.makeWindow (600, 300);
    view->attachToWindow (window);
    otherView->attachToWindow (otherWindow);
    EXPECT_TRUE (runUntilPlaced (window, { 0, 0, 400, 300 }));
    EXPECT_TRUE (runUntilPlaced (otherWindow, { 100, 0, 400, 300 }));

    otherView.reset();
    host.resize (window, 500, 300);
    EXPECT_TRUE (runUntilPlaced (window, { 50, 0, 400, 300 }));
    host.destroy (window);
    EXPECT_TRUE (runUntil ([&] { return ! editor().isShowing(); }));
    EXPECT_EQ (XHost::getNumErrors(), 0);
}
