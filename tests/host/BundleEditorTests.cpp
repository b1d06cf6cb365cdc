// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The editor in a window of the reference host, under mouse and keyboard, through the bundle's exports.

#include "BundleFixture.h"
#include "refhost/HostWindow.h"
#include "support/XHost.h"

#include <juce_core/juce_core.h>

#include <thread>

namespace
{
/** Far more than anything here takes; what fails to happen fails after it. */
constexpr int patienceMs = 60000;

constexpr unsigned long spaceKeysym = 0x20;
constexpr GrafPtr noWindow = 0x1ffffff0; // a number that nobody has

/** A place in the editor, in fractions of its size. */
struct Place
{
    float x, y;
};

constexpr Place widthKnob { 0.5f, 0.842f };
constexpr Place menuButton { 0.97f, 0.045f };
constexpr Place corner { 0.9643f, 0.9465f };
constexpr Place bareGround { 0.5f, 0.09f };

class BundleEditor : public BundleFixture
{
protected:
    void SetUp() override
    {
        screen.begin();
        start();
        instance = insert();
        ASSERT_NE (instance, nullptr);
        services.tokens.observer = [this] (const SFicSDSToken& token) { tokens.push_back (token); };
        openWindow();
    }

    void TearDown() override
    {
        window.reset();
        instance.reset();
        services.tokens.observer = nullptr;
        screen.end();
        BundleFixture::TearDown();
    }

    void openWindow()
    {
        std::string problem;
        window = refhost::HostWindow::open (*bundle, services, *instance, "An instance", problem);
        ASSERT_NE (window, nullptr) << problem;
        ASSERT_TRUE (runUntil ([this] { return hasEditor(); })) << describeWindow();
    }

    /** Lives as a host does until something is so. */
    template <typename Condition>
    [[nodiscard]] bool runUntil (Condition isSo)
    {
        const auto end = juce::Time::getMillisecondCounter() + patienceMs;

        while (! isSo())
        {
            if (juce::Time::getMillisecondCounter() > end)
                return false;

            if (window != nullptr)
                window->idle();
            else if (instance != nullptr)
                instance->idle();

            std::this_thread::yield();
        }

        return true;
    }

    /** What GetViewRect says. */
    juce::Point<int> viewSize() const
    {
        Rect area {};
        EXPECT_EQ (pi.GetViewRect (typeCode, instance->getIndex(), &area), ficSuccess);
        return { area.right - area.left, area.bottom - area.top };
    }

    /** Window and editor are as large as the view says, and shown. */
    bool hasEditor()
    {
        const auto number = window->getWindowNumber();
        const auto size = viewSize();
        const auto children = screen.getChildren (number);
        return screen.getSize (number) == size && children.size() == 1 && children.front().isShown
               && children.front().bounds == juce::Rectangle<int> (size.x, size.y);
    }

    std::string describeWindow()
    {
        const auto number = window->getWindowNumber();
        auto text = "the view is " + viewSize().toString() + ", the window "
                    + screen.getSize (number).toString() + (screen.isShown (number) ? " shown" : " hidden");

        for (const auto& child : screen.getChildren (number))
            text += ", a child " + child.bounds.toString() + (child.isShown ? " shown" : " hidden");

        return text.toStdString();
    }

    void moveMouse (Place place, juce::Point<int> offset = {})
    {
        const auto size = viewSize().toFloat();
        screen.moveMouse (window->getWindowNumber(),
                          juce::Point<float> (size.x * place.x, size.y * place.y).roundToInt() + offset);
    }

    /** Of the tokens so far, those for one control, by their kinds. */
    std::vector<std::uint32_t> kindsOf (std::int32_t control) const
    {
        std::int32_t nameID = 0;
        EXPECT_EQ (pi.GetControlNameID (typeCode, instance->getIndex(), control, &nameID), ficSuccess);
        std::vector<std::uint32_t> kinds;

        for (const auto& token : tokens)
            if (token.nameID == nameID && token.tokenType == FIC_TOKEN_SET)
                kinds.push_back (token.tokenSubType);

        return kinds;
    }

    /** Moves the pointer with the button down until something has come of it, so that a hold has begun. */
    template <typename Condition>
    void dragWidthKnobUntil (Condition isSo)
    {
        int distance = 0;
        moveMouse (widthKnob);
        screen.pressMouse (true);
        EXPECT_TRUE (runUntil (
            [&]
            {
                distance = distance % 40 + 1;
                moveMouse (widthKnob, { 0, -distance });
                return isSo();
            }));
    }

    void holdWidthKnob()
    {
        const auto before = instance->getValue (stereoWidth);
        dragWidthKnobUntil ([&] { return instance->getValue (stereoWidth) != before; });
    }

    /** The last word on the knob was that it is held no more. */
    bool hasLetGo() const
    {
        const auto kinds = kindsOf (stereoWidth);
        return ! kinds.empty() && kinds.back() == FIC_TOKEN_TOUCH && tokens.back().payload[0] == 0;
    }

    /** Opens the editor's menu, and returns once it is on the screen. */
    void openMenu()
    {
        const auto numBefore = countShownWindows();
        moveMouse (menuButton);
        screen.pressMouse (true);
        screen.pressMouse (false);
        EXPECT_TRUE (runUntil ([&] { return countShownWindows() > numBefore; }));
    }

    int countShownWindows() const
    {
        int count = 0;

        for (const auto& child : screen.getChildren (screen.getScreen()))
            count += child.isShown;

        return count;
    }

    XHost& screen { XHost::get() };
    std::unique_ptr<refhost::HostInstance> instance;
    std::unique_ptr<refhost::HostWindow> window;
    std::vector<SFicSDSToken> tokens;
};

TEST_F (BundleEditor, TellsTheHostOfAHoldFromItsBeginToItsEnd)
{
    using testing::Contains;
    holdWidthKnob();
    EXPECT_EQ (tokens.front().payload[0], 1);
    EXPECT_EQ (kindsOf (stereoWidth).front(), FIC_TOKEN_TOUCH);
    EXPECT_THAT (kindsOf (stereoWidth), Contains (FIC_TOKEN_TOUCH).Times (1));
    EXPECT_THAT (kindsOf (stereoWidth), Contains (FIC_TOKEN_VALUE));

    screen.pressMouse (false);
    EXPECT_TRUE (runUntil ([&] { return hasLetGo(); }));
    EXPECT_EQ (tokens.back().payload[0], 0);
    EXPECT_THAT (kindsOf (stereoWidth), Contains (FIC_TOKEN_TOUCH).Times (2));
    EXPECT_THAT (kindsOf (swapLR), testing::IsEmpty());
}

TEST_F (BundleEditor, KeepsOneTouchWhileTheHostSetsThatControlAndAnother)
{
    holdWidthKnob();

    for (const auto control : { stereoWidth, swapLR })
        EXPECT_EQ (pi.SetControlValue (typeCode, instance->getIndex(), control, highest), ficSuccess);

    EXPECT_THAT (kindsOf (swapLR), testing::ElementsAre (FIC_TOKEN_TOUCH, FIC_TOKEN_VALUE, FIC_TOKEN_TOUCH));
    EXPECT_THAT (kindsOf (stereoWidth), testing::Contains (FIC_TOKEN_TOUCH).Times (1));
    screen.pressMouse (false);
    EXPECT_TRUE (runUntil ([&] { return hasLetGo(); }));
    EXPECT_THAT (kindsOf (stereoWidth), testing::Contains (FIC_TOKEN_TOUCH).Times (2));
    EXPECT_EQ (instance->getValue (swapLR), highest);
}

TEST_F (BundleEditor, LetsGoOfAControlThatTheHostDoesNotMove)
{
    services.tokens.keepsWishes = false;
    const auto before = instance->getValue (stereoWidth);
    dragWidthKnobUntil (
        [&] { return testing::Value (kindsOf (stereoWidth), testing::Contains (FIC_TOKEN_VALUE)); });
    screen.pressMouse (false);
    EXPECT_TRUE (runUntil ([&] { return hasLetGo(); }));
    EXPECT_EQ (instance->getValue (stereoWidth), before);
}

TEST_F (BundleEditor, FollowsItsCornerAndTakesTheWindowAlong)
{
    const auto before = viewSize();
    moveMouse (corner);
    const auto size = before.toFloat();
    const auto from = juce::Point<float> (size.x * corner.x, size.y * corner.y).roundToInt();
    screen.pressMouse (true);

    for (int step = 1; step <= 10; ++step)
    {
        screen.moveMouse (window->getWindowNumber(), from - juce::Point<int> (15 * step, 10 * step));
        window->idle();
    }

    // The window stays until the corner is let go: it would move away from under the mouse.
    EXPECT_TRUE (runUntil ([&] { return viewSize().x <= before.x - 100; }));
    EXPECT_THAT (
        tokens,
        testing::Each (testing::Field (&SFicSDSToken::tokenSubType, testing::Ne (FIC_TOKEN_NEW_SIZE))));
    EXPECT_EQ (screen.getSize (window->getWindowNumber()), before);

    screen.pressMouse (false);
    EXPECT_TRUE (runUntil ([&] { return hasEditor(); }));
    std::int32_t root = 0;
    EXPECT_EQ (pi.GetProcessNameID (typeCode, instance->getIndex(), &root), ficSuccess);
    ASSERT_FALSE (tokens.empty());
    EXPECT_EQ (tokens.back().tokenType, FIC_TOKEN_SET);
    EXPECT_EQ (tokens.back().tokenSubType, FIC_TOKEN_NEW_SIZE);
    EXPECT_EQ (tokens.back().protocol, FIC_PROTOCOL_PROCESS);
    EXPECT_EQ (tokens.back().nameID, root);

    const auto after = viewSize();
    window.reset();
    openWindow();
    EXPECT_EQ (viewSize(), after);
}

TEST_F (BundleEditor, LeavesTheHostTheKeysThatItHasNoUseFor)
{
    moveMouse (bareGround);
    screen.pressMouse (true);
    screen.pressMouse (false);
    std::vector<unsigned long> keys;

    // The keyboard comes with the click, some time after it.
    EXPECT_TRUE (runUntil (
        [&]
        {
            screen.typeKey (spaceKeysym);
            window->idle();
            keys = window->takeKeys();
            return ! keys.empty();
        }));
    EXPECT_THAT (keys, testing::Each (spaceKeysym));
}

TEST_F (BundleEditor, ClosesWithItsMenuOpen)
{
    openMenu();
    window.reset();
    EXPECT_TRUE (runUntil ([&] { return screen.findWindow ("An instance") == 0; }));

    openWindow();
    openMenu();
    window.reset();
    instance.reset(); // with nothing run in between
    instance = insert();
    openWindow();
    EXPECT_EQ (XHost::getNumErrors(), 0);
}

TEST_F (BundleEditor, EndsAHoldWhenItIsClosed)
{
    holdWidthKnob();
    window.reset();
    EXPECT_EQ (kindsOf (stereoWidth).back(), FIC_TOKEN_TOUCH);
    EXPECT_THAT (kindsOf (stereoWidth), testing::Contains (FIC_TOKEN_TOUCH).Times (2));
    screen.pressMouse (false);
    openWindow();
}

TEST_F (BundleEditor, SurvivesAWindowThatIsTakenAwayFirst)
{
    for (const bool withMenu : { false, true })
    {
        if (withMenu)
            openMenu();

        screen.destroy (window->getWindowNumber());
        instance->setValue (stereoWidth, lowest);

        for (int i = 0; i < 50; ++i)
            instance->idle();

        window.reset();
        openWindow();
        holdWidthKnob();
        screen.pressMouse (false);
        EXPECT_TRUE (runUntil ([&] { return hasLetGo(); }));
    }
}

TEST_F (BundleEditor, MovesFromWindowToWindow)
{
    window.reset();
    const auto index = instance->getIndex();
    const auto first = screen.makeWindow (900, 600);
    const auto second = screen.makeWindow (1000, 700);

    for (const auto port : { first, second, noWindow, first, first })
    {
        EXPECT_EQ (pi.SetViewPort (typeCode, index, port), ficSuccess);
        EXPECT_TRUE (runUntil (
            [&]
            {
                return screen.getChildren (first).size() == (port == first)
                       && screen.getChildren (second).size() == (port == second);
            }));
    }

    EXPECT_EQ (pi.SetViewPort (typeCode, index, 0), ficSuccess);
    EXPECT_THAT (screen.getChildren (first), testing::IsEmpty());
    EXPECT_EQ (XHost::getNumErrors(), 0);
}

TEST_F (BundleEditor, GoesWithItsInstance)
{
    window.reset();
    const auto other = insert();
    const auto hostsOwn = screen.makeWindow (400, 300);
    const auto othersOwn = screen.makeWindow (400, 300);
    EXPECT_EQ (pi.SetViewPort (typeCode, instance->getIndex(), hostsOwn), ficSuccess);
    EXPECT_EQ (pi.SetViewPort (typeCode, other->getIndex(), othersOwn), ficSuccess);
    EXPECT_TRUE (runUntil (
        [&]
        { return screen.getChildren (hostsOwn).size() == 1 && screen.getChildren (othersOwn).size() == 1; }));

    instance.reset();
    EXPECT_THAT (screen.getChildren (hostsOwn), testing::IsEmpty());
    EXPECT_THAT (screen.getChildren (othersOwn), testing::SizeIs (1));
    other->idle();
    EXPECT_EQ (XHost::getNumErrors(), 0);
}
} // namespace
