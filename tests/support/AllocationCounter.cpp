// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Takes the place of the heap functions and the mutex lock, and counts while a counter is alive.

#include "AllocationCounter.h"

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    #define WIDELOOM_COUNTS_ALLOCATIONS 0
#else
    #define WIDELOOM_COUNTS_ALLOCATIONS 1
#endif

#if WIDELOOM_COUNTS_ALLOCATIONS

    #include <cerrno>
    #include <cstddef>
    #include <cstdlib>
    #include <dlfcn.h>
    #include <new>
    #include <pthread.h>

namespace
{
// Plain data without a constructor: the counted functions run before anything is constructed.
thread_local bool counting = false;
thread_local int heapCallsSeen = 0;
thread_local int locksSeen = 0;

void countHeapCall() noexcept
{
    if (counting)
        ++heapCallsSeen;
}

void countLock() noexcept
{
    if (counting)
        ++locksSeen;
}

/** The C library's function of that name. Looked up at each call: only tests pay for it, and a static would
    take a lock. */
template <typename Function>
Function* original (Function*, const char* name) noexcept
{
    return reinterpret_cast<Function*> (::dlsym (RTLD_NEXT, name));
}
} // namespace

// glibc's own names for its heap functions, which serve as the originals.
extern "C"
{
    void* __libc_malloc (std::size_t);
    void* __libc_calloc (std::size_t, std::size_t);
    void* __libc_realloc (void*, std::size_t);
    void* __libc_memalign (std::size_t, std::size_t);
    void __libc_free (void*);

    __attribute__ ((visibility ("default"))) void* malloc (std::size_t size)
    {
        countHeapCall();
        return __libc_malloc (size);
    }

    __attribute__ ((visibility ("default"))) void* calloc (std::size_t count, std::size_t size)
    {
        countHeapCall();
        return __libc_calloc (count, size);
    }

    __attribute__ ((visibility ("default"))) void* realloc (void* block, std::size_t size)
    {
        countHeapCall();
        return __libc_realloc (block, size);
    }

    __attribute__ ((visibility ("default"))) void* memalign (std::size_t alignment, std::size_t size)
    {
        countHeapCall();
        return __libc_memalign (alignment, size);
    }

    __attribute__ ((visibility ("default"))) void* aligned_alloc (std::size_t alignment, std::size_t size)
    {
        countHeapCall();
        return __libc_memalign (alignment, size);
    }

    __attribute__ ((visibility ("default"))) int posix_memalign (void** block,
                                                                 std::size_t alignment,
                                                                 std::size_t size)
    {
        countHeapCall();
        void* const made = __libc_memalign (alignment, size);

        if (made == nullptr)
            return ENOMEM;

        *block = made;
        return 0;
    }

    __attribute__ ((visibility ("default"))) void free (void* block)
    {
        // Freeing nothing never reaches the heap; JUCE's empty containers do it.
        if (block != nullptr)
            countHeapCall();

        __libc_free (block);
    }

    #define WIDELOOM_COUNT_LOCK(function, parameters, arguments)                                             \
        __attribute__ ((visibility ("default"))) int function parameters                                     \
        {                                                                                                    \
            countLock();                                                                                     \
            return original (&function, #function) arguments;                                                \
        }

    WIDELOOM_COUNT_LOCK (pthread_mutex_lock, (pthread_mutex_t * mutex), (mutex))
    WIDELOOM_COUNT_LOCK (pthread_mutex_trylock, (pthread_mutex_t * mutex), (mutex))
    WIDELOOM_COUNT_LOCK (pthread_mutex_timedlock,
                         (pthread_mutex_t * mutex, const timespec* until),
                         (mutex, until))
    WIDELOOM_COUNT_LOCK (pthread_rwlock_rdlock, (pthread_rwlock_t * lock), (lock))
    WIDELOOM_COUNT_LOCK (pthread_rwlock_wrlock, (pthread_rwlock_t * lock), (lock))
    WIDELOOM_COUNT_LOCK (pthread_cond_wait,
                         (pthread_cond_t * condition, pthread_mutex_t* mutex),
                         (condition, mutex))
    WIDELOOM_COUNT_LOCK (pthread_cond_timedwait,
                         (pthread_cond_t * condition, pthread_mutex_t* mutex, const timespec* until),
                         (condition, mutex, until))
    WIDELOOM_COUNT_LOCK (pthread_cond_signal, (pthread_cond_t * condition), (condition))
    WIDELOOM_COUNT_LOCK (pthread_cond_broadcast, (pthread_cond_t * condition), (condition))

    #undef WIDELOOM_COUNT_LOCK
}

// In the executable itself, so that they are counted once and not through malloc and free as well.
void* operator new (std::size_t size)
{
    countHeapCall();

    if (void* const block = __libc_malloc (size > 0 ? size : 1))
        return block;

    throw std::bad_alloc();
}

void* operator new[] (std::size_t size)
{
    return operator new (size);
}

void operator delete (void* block) noexcept
{
    if (block != nullptr)
        countHeapCall();

    __libc_free (block);
}

void operator delete[] (void* block) noexcept
{
    operator delete (block);
}

void operator delete (void* block, std::size_t) noexcept
{
    operator delete (block);
}

void operator delete[] (void* block, std::size_t) noexcept
{
    operator delete (block);
}

bool AllocationCounter::isAvailable() noexcept
{
    return true;
}

AllocationCounter::AllocationCounter() noexcept
{
    heapCallsSeen = 0;
    locksSeen = 0;
    counting = true;
}

AllocationCounter::~AllocationCounter()
{
    counting = false;
}

int AllocationCounter::heapCalls() const noexcept
{
    return heapCallsSeen;
}

int AllocationCounter::locks() const noexcept
{
    return locksSeen;
}

#else

bool AllocationCounter::isAvailable() noexcept
{
    return false;
}

AllocationCounter::AllocationCounter() noexcept = default;
AllocationCounter::~AllocationCounter() = default;

int AllocationCounter::heapCalls() const noexcept
{
    return 0;
}

int AllocationCounter::locks() const noexcept
{
    return 0;
}

#endif
