// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The two ways to play the effect: by itself in a window of our own, or as an instance in the host's window.

#include "LiveEffect.h"

#include "EditorWindow.h"
#include "HostPath.h"

#include <engine/WideLoomAudioProcessor.h>
#include <refhost/HostWindow.h>

#include <utility>

namespace
{
/** How often the host has time for its window and its plug-in. */
constexpr int idleIntervalMs = 10;

constexpr unsigned long spaceKeysym = 0x20;

class DirectEffect : public LiveEffect
{
public:
    EffectPath& getPath() noexcept override { return path; }

    Problem showEditor (const juce::String& title, std::function<void()> spaceWasPressed) override
    {
        window = std::make_unique<EditorWindow> (path.getProcessor(), title, std::move (spaceWasPressed));
        return {};
    }

    void setTitle (const juce::String& title) override { window->setName (title); }

private:
    DirectPath path;
    std::unique_ptr<EditorWindow> window;
};

class HostedEffect : public LiveEffect, private juce::Timer
{
public:
    EffectPath& getPath() noexcept override { return path; }

    Problem showEditor (const juce::String& title, std::function<void()> spaceWasPressed) override
    {
        auto& session = path.getSession();
        std::string problem;
        window = refhost::HostWindow::open (
            session.getBundle(), session.getServices(), session.getInstance(), title.toStdString(), problem);

        if (window == nullptr)
            return problem;

        onSpace = std::move (spaceWasPressed);
        startTimer (idleIntervalMs);
        return {};
    }

    void setTitle (const juce::String& title) override { window->setTitle (title.toStdString()); }

private:
    void timerCallback() override
    {
        if (! window->idle())
            juce::MessageManager::getInstance()->stopDispatchLoop();

        for (const auto keysym : window->takeKeys())
            if (keysym == spaceKeysym)
                onSpace();
    }

    HostPath path { false };
    std::unique_ptr<refhost::HostWindow> window;
    std::function<void()> onSpace;
};
} // namespace

std::unique_ptr<LiveEffect> LiveEffect::makeHosted()
{
    return std::make_unique<HostedEffect>();
}

std::unique_ptr<LiveEffect> LiveEffect::makeDirect()
{
    return std::make_unique<DirectEffect>();
}
