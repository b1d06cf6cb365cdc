// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The wall between the adapter and the host: no exception gets past these calls.

#pragma once

#include "CDAEError.h"
#include "HostInterface.h"

#include <cstdint>
#include <new>

/** [any] The functor's result, or the code of what it threw. */
template <typename Functor>
std::int32_t CallAndTranslateExceptionsToReturnValues (Functor&& functor) noexcept
{
    try
    {
        return functor();
    }
    catch (const std::bad_alloc&)
    {
        return ficOutOfMemory;
    }
    catch (const CDAEError& error)
    {
        return error.GetErrorCode();
    }
    catch (...)
    {
        return ficUnknownException;
    }
}

/** [any] Turns a failed result into the exception that carries it. */
inline void throwIfFailed (std::int32_t result)
{
    if (result != ficSuccess)
        throw CDAEError (result);
}

/** Keeps the first error of several calls, all of which run. */
class FirstError
{
public:
    /** [any] Calls the functor; nothing that it throws gets out. */
    template <typename Functor>
    void run (Functor&& functor) noexcept
    {
        const auto outcome = CallAndTranslateExceptionsToReturnValues (functor);

        if (result == ficSuccess)
            result = outcome;
    }

    /** [any] 0 if all went well. */
    std::int32_t get() const noexcept { return result; }

private:
    std::int32_t result = ficSuccess;
};
