// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later

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
        sigaction (signal, &action, nullptr);

    for (const int signal : { SIGPIPE, SIGXFSZ })
        std::signal (signal, SIG_IGN);
}

bool wasInterrupted() noexcept
{
    return interrupted != 0;
}
