// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The functions of the host's framework, callable as host::FicGestalt (...) and so on whether the host has
// them or not.

#pragma once

#include "UDigiLibAccess.h"

#include <type_traits>

namespace host
{
/** Calls one function of the host. Without the framework it returns ficFrameworkMissing, without the function
    ficFunctionMissing; where the result is no code, null or 0. */
template <FicFunctionIndex index, typename Proc>
struct FicStub;

template <FicFunctionIndex index, typename Result, typename... Arguments>
struct FicStub<index, Result (*) (Arguments...)>
{
    /** [host-main] */
    Result operator() (Arguments... arguments) const
    {
        if (! UDigiLibAccess::IsLoaded())
            return failure (ficFrameworkMissing);

        platform::HostFunction function = nullptr;

        if (UDigiLibAccess::GetProcPtr (index, &function) != ficSuccess)
            return failure (ficFunctionMissing);

        return reinterpret_cast<Result (*) (Arguments...)> (function) (arguments...);
    }

private:
    static constexpr Result failure (FicResult code) noexcept
    {
        if constexpr (std::is_same_v<Result, std::int32_t>)
            return code;
        else
            return {};
    }
};

#define FIC_HOST_FUNCTION_STUB(Result, Name, parameters)                                                     \
    inline constexpr FicStub<FicFunctionIndex::index##Name, Name##Proc> Name {};

FIC_HOST_FUNCTIONS (FIC_HOST_FUNCTION_STUB)

#undef FIC_HOST_FUNCTION_STUB
} // namespace host
