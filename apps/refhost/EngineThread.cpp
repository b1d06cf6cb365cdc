// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Renders on a thread of its own and wakes whoever waits for blocks.

#include "EngineThread.h"

namespace refhost
{
EngineThread::EngineThread (std::function<void()> renderBlock)
    : render (std::move (renderBlock)),
      thread (
          [this]
          {
              while (! shouldEnd)
              {
                  render();
                  ++numBlocks;
                  numBlocks.notify_all();
                  std::this_thread::yield(); // leaves the engine's lock to those who describe
              }
          })
{
}

EngineThread::~EngineThread()
{
    shouldEnd = true;
    thread.join();
}

void EngineThread::waitForBlocks (std::int64_t count) const
{
    const auto target = numBlocks + count;

    for (auto now = numBlocks.load(); now < target; now = numBlocks)
        numBlocks.wait (now);
}
} // namespace refhost
