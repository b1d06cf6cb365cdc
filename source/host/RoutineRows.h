// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// What is made from the rows of FIC_ROUTINES beside declarations: the answers of operations that know nothing
// better.

#pragma once

#include "HostInterface.h"

#include <cstdint>
#include <type_traits>

/** The arguments but the first: drops the empty one in front of a row's own names. */
#define FIC_REST(first, ...) __VA_ARGS__

/** Takes a row and makes nothing of it. */
#define FIC_SKIP(...)

namespace host
{
/** Whether an operation's pointer to `Type` is a place for a result. A chunk is not: nobody knows how much
   room there is behind the pointer before a process has said that it has this chunk. */
template <typename Type>
inline constexpr bool isResultPlace = std::is_scalar_v<Type> && ! std::is_const_v<Type>;

template <>
inline constexpr bool isResultPlace<Rect> = true;
template <>
inline constexpr bool isResultPlace<SFicConnectionFormat> = true;
template <>
inline constexpr bool isResultPlace<SFicPlugInStemFormats> = true;
template <>
inline constexpr bool isResultPlace<SFicPlugInSpec> = true;

template <typename Argument>
void clearIfResult (Argument argument) noexcept
{
    if constexpr (std::is_pointer_v<Argument>)
    {
        if constexpr (isResultPlace<std::remove_pointer_t<Argument>>)
        {
            if (argument != nullptr)
                *argument = {};
        }
    }
}

/** [any] Clears the results among the arguments: numbers, records and pointers to zero, texts of either kind
   to empty. Returns the answer of the row. */
template <std::int32_t answer, typename... Arguments>
std::int32_t neutralAnswer (Arguments... arguments) noexcept
{
    (clearIfResult (arguments), ...);
    return answer;
}

/** [any] What a FIXED row answers, whatever it is given. One of them promises an empty text. */
template <std::int32_t selector, typename... Arguments>
std::int32_t fixedAnswer (Arguments... arguments) noexcept
{
    if constexpr (selector == ficSelectorGetControlUnitsString)
        return neutralAnswer<ficSuccess> (arguments...);
    else
        return (static_cast<void> (arguments), ..., std::int32_t { ficSuccess });
}
} // namespace host
