// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Starts processes, waits for them, and tells of those that failed.

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

enum class Outcome
{
    notStarted, ///< because of an interruption
    failed,
    done
};

/** One message with the names of all files with that outcome, if there are any. */
void nameFiles (const std::vector<RenderOptions::Task>& tasks,
                const std::vector<Outcome>& outcomes,
                Outcome outcome,
                const char* what)
{
    const auto count = std::count (outcomes.begin(), outcomes.end(), outcome);

    if (count == 0)
        return;

    auto text = std::to_string (count) + " of " + std::to_string (tasks.size()) + " files " + what + ":";

    for (std::size_t i = 0; i < tasks.size(); ++i)
        if (outcomes[i] == outcome)
            text += "\n  " + tasks[i].input;

    printError (text);
}
} // namespace

ExitStatus runRenderBatch (const RenderOptions& options, const std::vector<RenderOptions::Task>& tasks)
{
    const auto cores = std::max (1u, std::thread::hardware_concurrency());
    const auto numJobs = options.numJobs > 0 ? static_cast<std::size_t> (options.numJobs) : cores;
    std::vector<Outcome> outcomes (tasks.size(), Outcome::notStarted);
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
            outcomes[next] = Outcome::failed; // Until it is done.

            if (const auto problem = children.start (next, options.argumentsFor (tasks[next])))
                printError ("'" + tasks[next].input + "': " + *problem);

            ++next;
            continue;
        }

        std::size_t task = 0;
        bool succeeded = false;

        if (children.waitForOne (task, succeeded))
        {
            outcomes[task] = succeeded ? Outcome::done : Outcome::failed;
            bar.show (static_cast<std::int64_t> (++numEnded), static_cast<std::int64_t> (tasks.size()));
        }
    }

    nameFiles (tasks, outcomes, Outcome::failed, "failed");
    nameFiles (tasks, outcomes, Outcome::notStarted, "were not started");
    const bool isComplete =
        std::all_of (outcomes.begin(), outcomes.end(), [] (auto o) { return o == Outcome::done; });
    return isComplete ? ExitStatus::success : ExitStatus::failure;
}
