// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "RenderBatch.h"

#include "Interruption.h"
#include "ProgressBar.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <map>
#include <spawn.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace
{
/** The processes at work. */
class Children
{
public:
    Problem start (std::size_t task, const std::vector<std::string>& arguments)
    {
        std::vector<std::string> words { "wideloom" };
        words.insert (words.end(), arguments.begin(), arguments.end());
        std::vector<char*> pointers;
        pointers.reserve (words.size() + 1);

        for (auto& word : words)
            pointers.push_back (word.data());

        pointers.push_back (nullptr);
        pid_t process = 0;
        const int error =
            ::posix_spawn (&process, "/proc/self/exe", nullptr, nullptr, pointers.data(), environ);

        if (error != 0)
            return std::string ("no further process can be started: ") + std::strerror (error);

        running[process] = task;
        return {};
    }

    std::size_t count() const noexcept { return running.size(); }

    /** Waits until one ends, and says which task it had and whether it did it. False when it was interrupted
        in waiting. */
    bool waitForOne (std::size_t& task, bool& succeeded)
    {
        int status = 0;
        const auto process = ::waitpid (-1, &status, 0);
        const auto found = running.find (process);

        if (found == running.end())
            return false;

        task = found->second;
        succeeded = WIFEXITED (status) && WEXITSTATUS (status) == 0;
        running.erase (found);
        return true;
    }

    void interrupt() const
    {
        for (const auto& [process, task] : running)
            ::kill (process, SIGTERM);
    }

private:
    std::map<pid_t, std::size_t> running;
};

ExitStatus reportFailures (const std::vector<RenderOptions::Task>& tasks, const std::vector<bool>& done)
{
    const auto numFailed = std::count (done.begin(), done.end(), false);

    if (numFailed == 0)
        return ExitStatus::success;

    auto text = std::to_string (numFailed) + " of " + std::to_string (tasks.size()) + " files failed:";

    for (std::size_t i = 0; i < tasks.size(); ++i)
        if (! done[i])
            text += "\n  " + tasks[i].input;

    printError (text);
    return ExitStatus::failure;
}
} // namespace

ExitStatus runRenderBatch (const RenderOptions& options, const std::vector<RenderOptions::Task>& tasks)
{
    const auto cores = std::max (1u, std::thread::hardware_concurrency());
    const auto numJobs = options.numJobs > 0 ? static_cast<std::size_t> (options.numJobs) : cores;
    std::vector<bool> done (tasks.size());
    std::size_t next = 0, numEnded = 0;
    bool wasPassedOn = false;
    Children children;
    ProgressBar bar (! options.quiet && ! options.noProgress);

    while (children.count() > 0 || (next < tasks.size() && ! wasInterrupted()))
    {
        if (wasInterrupted() && ! wasPassedOn)
        {
            children.interrupt();
            wasPassedOn = true;
        }

        if (next < tasks.size() && children.count() < numJobs && ! wasInterrupted())
        {
            if (const auto problem = children.start (next, options.argumentsFor (tasks[next])))
                printError ("'" + tasks[next].input + "': " + *problem);

            ++next;
            continue;
        }

        std::size_t task = 0;
        bool succeeded = false;

        if (children.waitForOne (task, succeeded))
        {
            done[task] = succeeded;
            bar.show (static_cast<std::int64_t> (++numEnded), static_cast<std::int64_t> (tasks.size()));
        }
    }

    return reportFailures (tasks, done);
}
