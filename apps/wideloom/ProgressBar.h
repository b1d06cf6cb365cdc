// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// How far the work is, on a terminal.

#pragma once

#include <cstdint>

/** Draws on standard error when that is a terminal, and nothing otherwise. Gone when it is deleted. */
class ProgressBar
{
public:
    /** `wanted` of false keeps it from drawing at all. */
    explicit ProgressBar (bool wanted);
    ~ProgressBar();
    ProgressBar (const ProgressBar&) = delete;
    ProgressBar& operator= (const ProgressBar&) = delete;

    void show (std::int64_t done, std::int64_t total);

private:
    bool isVisible;
    int shownPercent = -1;
};
