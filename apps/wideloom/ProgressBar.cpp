// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Draws the bar anew only when it has moved, and wipes it at the end.

#include "ProgressBar.h"

#include <cstdio>
#include <string>
#include <unistd.h>

namespace
{
constexpr int percentPerMark = 4;
constexpr int allMarks = 100 / percentPerMark;

void draw (const std::string& text)
{
    std::fputs (text.c_str(), stderr);
    std::fflush (stderr);
}
} // namespace

ProgressBar::ProgressBar (bool wanted)
    : isVisible (wanted && ::isatty (STDERR_FILENO) != 0)
{
}

ProgressBar::~ProgressBar()
{
    if (shownPercent >= 0)
        draw ("\r\x1b[K");
}

void ProgressBar::show (std::int64_t done, std::int64_t total)
{
    const int percent =
        total > 0 ? static_cast<int> (static_cast<double> (done) * 100.0 / static_cast<double> (total)) : 100;

    if (! isVisible || percent == shownPercent)
        return;

    shownPercent = percent;
    const auto marks = static_cast<std::size_t> (percent / percentPerMark);
    draw ("\r[" + std::string (marks, '#') + std::string (allMarks - marks, ' ') + "] "
          + std::to_string (percent) + " %");
}
