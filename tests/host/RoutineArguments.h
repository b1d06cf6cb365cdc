// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Arguments for routines and operations of any row, in which it shows what a call has written.

#pragma once

#include "host/HostInterface.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <tuple>
#include <type_traits>
#include <vector>

template <typename Argument>
std::uintptr_t asWord (Argument argument)
{
    if constexpr (std::is_pointer_v<Argument>)
        return reinterpret_cast<std::uintptr_t> (argument);
    else
        return static_cast<std::uintptr_t> (argument);
}

/** How many bytes of what an argument points to are a result: one of a text, none of what the plug-in only
   reads, of the host's own things and of chunks, which only a process can fill. */
template <typename Argument>
constexpr std::size_t resultBytes()
{
    using Pointee = std::remove_pointer_t<Argument>;

    if constexpr (! std::is_pointer_v<Argument> || std::is_const_v<Pointee> || std::is_function_v<Pointee>)
        return 0;
    else if constexpr (
        std::is_same_v<
            Pointee,
            EventRecord> || std::is_same_v<Pointee, DAEConnection> || std::is_same_v<Pointee, SFicPlugInChunk>)
        return 0;
    else
        return sizeof (Pointee);
}

/** Arguments that can be told apart; those that are pointers point to memory of their own. */
class ArgumentMaker
{
public:
    ArgumentMaker()
    {
        for (auto& each : memory)
            each.fill (untouched);
    }

    template <typename Argument>
    Argument next()
    {
        const auto index = words.size();

        if constexpr (std::is_pointer_v<Argument>)
        {
            numResultBytes[index] = resultBytes<Argument>();
            words.push_back (asWord (memory[index].data()));
            return reinterpret_cast<Argument> (words.back());
        }
        else
        {
            words.push_back (index + 1);
            return static_cast<Argument> (words.back());
        }
    }

    std::size_t numTouchedBytes() const
    {
        std::size_t number = 0;

        for (const auto& each : memory)
            number +=
                each.size() - static_cast<std::size_t> (std::count (each.begin(), each.end(), untouched));

        return number;
    }

    /** Whether every result is zero, or an empty text, and all other memory as it was. */
    bool onlyResultsAreCleared() const
    {
        for (std::size_t i = 0; i < memory.size(); ++i)
        {
            auto expected = memory[i];
            expected.fill (untouched);
            std::fill_n (expected.begin(), numResultBytes[i], std::uint8_t { 0 });

            if (memory[i] != expected)
                return false;
        }

        return true;
    }

    std::vector<std::uintptr_t> words;

private:
    static constexpr std::uint8_t untouched = 0xa5;
    static constexpr std::size_t bytesPerArgument = 256;
    static constexpr std::size_t mostArguments = 8;

    alignas (std::max_align_t) std::array<std::array<std::uint8_t, bytesPerArgument>, mostArguments> memory;
    std::array<std::size_t, mostArguments> numResultBytes {};
};

template <typename... Arguments>
std::int32_t callWith (std::int32_t (*routine) (Arguments...), ArgumentMaker& maker)
{
    // Braces, so that the arguments are made in order.
    const std::tuple<Arguments...> arguments { maker.next<Arguments>()... };
    return std::apply (routine, arguments);
}

template <typename Object, typename... Arguments>
std::int32_t callWith (Object& object, std::int32_t (Object::*operation) (Arguments...), ArgumentMaker& maker)
{
    const std::tuple<Arguments...> arguments { maker.next<Arguments>()... };
    return std::apply ([&] (Arguments... each) { return (object.*operation) (each...); }, arguments);
}
