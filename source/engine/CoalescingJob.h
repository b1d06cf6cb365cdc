// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Lets several threads ask for the same recalculation without ever waiting for each other.

#pragma once

#include <atomic>

/** Runs a job for whichever thread asks, one run at a time. A thread that asks while another runs the job
   only leaves word and goes on; the running thread then runs it again. So the last run always starts after
   the last request, and sees what was stored before it. */
class CoalescingJob
{
public:
    /** [any] `job` must not throw and must read afresh whatever it works from. */
    template <typename Job>
    void request (Job&& job) noexcept
    {
        // Sequential consistency on purpose: the request must be visible before the busy flag is tried, and
        // the busy flag must be down before the request is looked at once more, or a request could be lost.
        // An exchange rather than a store, so that the run sees what each of several requesters stored.
        requested.exchange (true);

        while (requested.load() && ! busy.exchange (true))
        {
            while (requested.exchange (false))
                job();

            busy.store (false);
        }
    }

private:
    std::atomic<bool> requested { false };
    std::atomic<bool> busy { false };
};
