// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Counts what the audio thread must not do.

#pragma once

/** Counts, while it lives, the calls of the heap (operator new and delete, malloc and its kin) and of locks
    (pthread mutexes, read-write locks and condition variables) that its own thread makes. It stands in for
    those functions in the whole executable, so it cannot work beside a sanitizer that does the same.

    One at a time for each thread. */
class AllocationCounter
{
public:
    /** Whether this build counts at all. */
    static bool isAvailable() noexcept;

    AllocationCounter() noexcept;
    ~AllocationCounter();

    AllocationCounter (const AllocationCounter&) = delete;
    AllocationCounter& operator= (const AllocationCounter&) = delete;

    int heapCalls() const noexcept;
    int locks() const noexcept;
};
