// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Runs those of JUCE's sources that are ready, whatever their messages take away meanwhile.

#include "MessagePump.h"

#include "X11Juce.h"

#include <juce_events/juce_events.h>
#include <juce_events/native/juce_linux_EventLoopInternal.h>
#include <poll.h>

#include <algorithm>
#include <utility>
#include <vector>

namespace
{
/** What messages post while they run is run in the same call, but a window whose messages never end must not
   hold the host up. */
constexpr int maxRounds = 8;

/** Touched on the message thread only. */
struct PumpState
{
    bool isRunning = false;
    std::vector<std::function<void()>> callsAfterwards;
};

PumpState& pumpState()
{
    static PumpState state;
    return state;
}

/** Marks a pump as being at work, and makes the calls that had to wait for its end. */
class ScopedRun
{
public:
    ScopedRun() { pumpState().isRunning = true; }

    ~ScopedRun()
    {
        pumpState().isRunning = false;

        for (const auto& call : std::exchange (pumpState().callsAfterwards, {}))
            call();
    }

    ScopedRun (const ScopedRun&) = delete;
    ScopedRun& operator= (const ScopedRun&) = delete;
};

/** The sources of messages that have something to read. JUCE's own loop cannot be used: it keeps its list of
   them in an object that a message which shuts JUCE down deletes, and that a loop inside a message
   overwrites. */
std::vector<int> findReadySources()
{
    std::vector<pollfd> sources;

    for (const int source : juce::LinuxEventLoopInternal::getRegisteredFds())
        sources.push_back ({ source, POLLIN, 0 });

    std::vector<int> ready;

    if (::poll (sources.data(), static_cast<nfds_t> (sources.size()), 0) > 0)
        for (const auto& source : sources)
            if (source.revents != 0)
                ready.push_back (source.fd);

    if (const auto file = X11Juce::getFileWithEvents();
        file && std::ranges::find (ready, *file) == ready.end())
        ready.push_back (*file);

    return ready;
}
} // namespace

MessagePump::MessagePump()
    : alive (std::make_shared<bool> (true))
{
}

MessagePump::~MessagePump()
{
    *alive = false;
}

bool MessagePump::run()
{
    if (pumpState().isRunning || juce::MessageManager::getInstanceWithoutCreating() == nullptr)
        return true;

    JUCE_ASSERT_MESSAGE_THREAD

    // From here on `this` may vanish with any message.
    const auto stillAlive = alive;

    {
        const ScopedRun scope;

        for (int round = 0; round < maxRounds && *stillAlive; ++round)
        {
            const auto ready = findReadySources();

            if (ready.empty())
                break;

            for (const int source : ready)
            {
                // A source that an earlier one took away is no longer known by then, and is passed over.
                juce::LinuxEventLoopInternal::invokeEventLoopCallbackForFd (source);

                if (! *stillAlive)
                    break;
            }
        }
    }

    return *stillAlive;
}

void MessagePump::callWhenNotRunning (std::function<void()> function)
{
    if (pumpState().isRunning)
        pumpState().callsAfterwards.push_back (std::move (function));
    else
        function();
}
