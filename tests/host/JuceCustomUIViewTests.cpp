// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The view with a window that only pretends: no window system is needed.

#include "EditorTestProcessor.h"
#include "host/platform/HostWindow.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace
{
/** What the host did to its window, and what became of the component inside. */
struct FakeWindow
{
    int width = 800;
    bool isShown = true;
    HostWindow::Watcher* watcher = nullptr; // null while nobody is interested
    juce::Component* child = nullptr;
    EventLog log;
};

class FakeHostWindow final : public HostWindow
{
public:
    FakeHostWindow (FakeWindow& windowToBe, Watcher& watcher)
        : window (windowToBe)
    {
        window.watcher = &watcher;
    }

    ~FakeHostWindow() override { window.watcher = nullptr; }

    int getWidth() const override { return window.width; }
    bool isShown() const override { return window.isShown; }
    void forwardKey (const juce::KeyPress& key) override
    {
        window.log.push_back (key.getTextDescription().toStdString());
    }

    void addChild (juce::Component& component) override
    {
        window.child = &component;
        window.log.push_back ("in");
    }

    void removeChild (juce::Component& component) override
    {
        EXPECT_EQ (window.child, &component);
        window.child = nullptr;
        window.log.push_back ("out");
    }

private:
    FakeWindow& window;
};

constexpr GrafPtr firstPort = 1;
constexpr GrafPtr secondPort = 2;

class JuceCustomUIViewTest : public testing::Test
{
protected:
    EditorTestProcessor::Editor* editor() const
    {
        return static_cast<EditorTestProcessor::Editor*> (processor.getActiveEditor());
    }

    FakeWindow first, second;

    ScopedHostWindowSource source { [this] (GrafPtr port,
                                            HostWindow::Watcher& watcher) -> std::unique_ptr<HostWindow>
                                    {
                                        auto& window = port == firstPort ? first : second;
                                        return std::make_unique<FakeHostWindow> (window, watcher);
                                    } };

    EditorTestProcessor processor;
    CountingSizeSender process;
    JuceCustomUIView view { processor, process };
};
} // namespace

TEST_F (JuceCustomUIViewTest, MakesTheEditorWhenItsSizeIsFirstAskedFor)
{
    EXPECT_THAT (processor.log, IsEmpty());

    view.updateSize();
    view.updateSize();

    EXPECT_THAT (processor.log, ElementsAre ("editor made"));
    EXPECT_THAT (viewRectangle (view), ElementsAre (0, 0, 300, 400));
}

TEST_F (JuceCustomUIViewTest, TellsTheHostOfEachNewSizeOnce)
{
    view.updateSize();
    EXPECT_EQ (view.getTimerInterval(), 50);

    view.timerCallback();
    EXPECT_EQ (process.numTokens, 1);
    EXPECT_FALSE (view.isTimerRunning());

    view.updateSize();
    EXPECT_FALSE (view.isTimerRunning());

    view.attachToWindow (firstPort);
    EXPECT_FALSE (view.isTimerRunning());

    editor()->setSize (400, 300);
    EXPECT_FALSE (view.isTimerRunning());

    editor()->setSize (500, 300);
    EXPECT_TRUE (view.isTimerRunning());
    EXPECT_THAT (viewRectangle (view), ElementsAre (0, 0, 300, 500));

    editor()->setSize (500, 301);
    view.timerCallback();
    EXPECT_EQ (process.numTokens, 2);
    EXPECT_THAT (viewRectangle (view), ElementsAre (0, 0, 301, 500));
}

TEST_F (JuceCustomUIViewTest, LeavesTheRectangleAloneWithoutAnEditorSize)
{
    view.updateSize();
    view.timerCallback();

    for (const juce::Point<int> size : { juce::Point<int> (0, 0), { 500, 0 }, { 0, 500 } })
    {
        editor()->setSize (size.x, size.y);
        view.updateSize();
        EXPECT_THAT (viewRectangle (view), ElementsAre (0, 0, 300, 400));
        EXPECT_FALSE (view.isTimerRunning());
    }

    view.deleteEditorComp();
    processor.givesEditor = false;
    view.updateSize();
    view.attachToWindow (firstPort);
    EXPECT_THAT (viewRectangle (view), ElementsAre (0, 0, 300, 400));
    EXPECT_THAT (first.log, IsEmpty());
}

TEST_F (JuceCustomUIViewTest, LimitsASizeThatTheHostCannotHold)
{
    processor.editorSize = { 40000, 33000 };
    view.updateSize();
    EXPECT_THAT (viewRectangle (view), ElementsAre (0, 0, 32767, 32767));
}

TEST_F (JuceCustomUIViewTest, StandsInTheMiddleOfAWiderWindowAndAtTheLeftOfANarrowerOne)
{
    for (const auto& [width, x] : { std::pair (800, 200), { 403, 1 }, { 400, 0 }, { 300, 0 } })
    {
        first.width = width;
        view.attachToWindow (firstPort);
        EXPECT_EQ (first.child->getBounds(), juce::Rectangle<int> (x, 0, 400, 300));
        EXPECT_EQ (editor()->getPosition(), juce::Point<int>());

        // The same when the host resizes the window.
        second.width = 1000;
        view.attachToWindow (secondPort);
        second.width = width;
        second.watcher->hostWindowChanged();
        EXPECT_EQ (second.child->getPosition(), juce::Point<int> (x, 0));
        EXPECT_EQ (first.watcher, nullptr);
    }
}

TEST_F (JuceCustomUIViewTest, ClosesMenusThenTellsTheProcessorThenDeletes)
{
    view.attachToWindow (firstPort);

    juce::Component modal;
    editor()->addAndMakeVisible (modal);
    modal.enterModalState (false);

    view.attachToWindow (0);

    EXPECT_FALSE (modal.isCurrentlyModal());
    EXPECT_THAT (processor.log, ElementsAre ("editor made", "editor deleted"));
    EXPECT_THAT (first.log, ElementsAre ("in", "out"));
    EXPECT_EQ (processor.getActiveEditor(), nullptr);
    EXPECT_FALSE (view.isTimerRunning());

    // Once more is nothing more, and what follows begins anew.
    view.attachToWindow (0);
    view.updateSize();
    view.attachToWindow (secondPort);
    EXPECT_EQ (processor.log.size(), 3u);
    EXPECT_EQ (processor.log.back(), "editor made");
    EXPECT_NE (second.child, nullptr);
}

TEST_F (JuceCustomUIViewTest, OutlivesAWindowThatIsTakenAwayFirst)
{
    view.attachToWindow (firstPort);
    auto* const child = first.child;

    // What a native window measures that was destroyed along with the host's.
    child->setBounds (0, 0, 0, 0);
    EXPECT_EQ (editor()->getBounds(), juce::Rectangle<int> (400, 300));
    EXPECT_THAT (viewRectangle (view), ElementsAre (0, 0, 300, 400));
    first.watcher->hostWindowGone();

    EXPECT_THAT (first.log, ElementsAre ("in", "out"));
    EXPECT_EQ (first.watcher, nullptr);

    editor()->setSize (410, 310);
    EXPECT_THAT (viewRectangle (view), ElementsAre (0, 0, 310, 410));
    EXPECT_TRUE (child->keyPressed (juce::KeyPress ('x')));

    view.attachToWindow (0);
    EXPECT_THAT (first.log, ElementsAre ("in", "out"));
    EXPECT_EQ (processor.getActiveEditor(), nullptr);
}

TEST_F (JuceCustomUIViewTest, DescribesTheTokenOfANewSize)
{
    const auto token = newSizeToken (0x12345678);
    EXPECT_EQ (token.nameID, 0x12345678);
    EXPECT_EQ (token.targetID, 0x12345678);
    EXPECT_EQ (token.tokenType, 0x53455456u);    // 'SETV'
    EXPECT_EQ (token.tokenSubType, 0x574e5253u); // 'WNRS'
    EXPECT_EQ (token.manufacturer, 0x4447444eu); // 'DGDN'
    EXPECT_EQ (token.protocol, 0x50726f63u);     // 'Proc'
    EXPECT_EQ (token.tokenLength, 38);
    EXPECT_THAT (token.reserved, testing::Each (0));
}
