// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Signal handlers that do no more than raise a flag.

#include "Interruption.h"

#include <csignal>
#include <initializer_list>

namespace
{
volatile std::sig_atomic_t interrupted = 0;

void noteInterruption (int)
{
    interrupted = 1;
}
} // namespace

void watchForInterruption() noexcept
{
    struct sigaction action = {};
    action.sa_handler = noteInterruption; // without SA_RESTART, so that a waiting read returns
    sigemptyset (&action.sa_mask);

    for (const int signal : { SIGINT, SIGTERM, SIGHUP })
    {
        struct sigaction inherited = {};

        // Whoever starts the program with a signal ignored, as nohup does, means it.
        if (sigaction (signal, nullptr, &inherited) == 0 && inherited.sa_handler != SIG_IGN)
            sigaction (signal, &action, nullptr);
    }

    for (const int signal : { SIGPIPE, SIGXFSZ })
        std::signal (signal, SIG_IGN);
}

bool wasInterrupted() noexcept
{
    return interrupted != 0;
}
