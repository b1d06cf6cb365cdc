// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The host's real-time thread.

#pragma once

#include <atomic>
#include <functional>
#include <thread>

namespace refhost
{
/** Calls a function block after block, from its construction to its end. */
class EngineThread
{
public:
    explicit EngineThread (std::function<void()> renderBlock);
    ~EngineThread();
    EngineThread (const EngineThread&) = delete;
    EngineThread& operator= (const EngineThread&) = delete;

    /** [any] Blocks rendered so far. */
    std::int64_t getNumBlocks() const noexcept { return numBlocks; }

    /** [any] Returns when `count` more blocks have been rendered. */
    void waitForBlocks (std::int64_t count) const;

private:
    std::function<void()> render;
    std::atomic<bool> shouldEnd { false };
    std::atomic<std::int64_t> numBlocks { 0 };
    std::thread thread; // last: it uses the others
};
} // namespace refhost
