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
#include <optional>
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
    std::vector<std::uintptr_t> first;  ///< of those that are no pointers, in place of their numbers
    std::optional<std::int32_t> number; ///< of the others; then there are no windows and no functions
    bool nullPointers = false;
    bool textsFillTheirRoom = false; ///< of 256 bytes

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
            const bool isNull =
                nullPointers || (number && std::is_function_v<std::remove_pointer_t<Argument>>);
            const bool isText = textsFillTheirRoom && resultBytes<Argument>() == 1;
            numResultBytes[index] = isText ? bytesPerArgument : resultBytes<Argument>();
            words.push_back (isNull ? 0 : asWord (memory[index].data()));
            return reinterpret_cast<Argument> (words.back());
        }
        else
        {
            words.push_back (index < first.size()                       ? first[index]
                             : ! number                                 ? index + 1
                             : std::is_same_v<Argument, std::uintptr_t> ? 0
                                                                        : asWord (*number));
            return static_cast<Argument> (words.back());
        }
    }

    std::size_t numTouchedBytes() const
    {
        std::size_t touched = 0;

        for (const auto& each : memory)
            touched +=
                each.size() - static_cast<std::size_t> (std::count (each.begin(), each.end(), untouched));

        return touched;
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

    /** Whether all memory but that for results is as it was. */
    bool leavesTheRestAlone() const
    {
        for (std::size_t i = 0; i < memory.size(); ++i)
            if (std::any_of (memory[i].begin() + static_cast<std::ptrdiff_t> (numResultBytes[i]),
                             memory[i].end(),
                             [] (auto byte) { return byte != untouched; }))
                return false;

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

enum class Concerns
{
    group,
    type,
    process,
    nobody
};

/** A row of the routine table, with a way to call what stands behind its number. */
struct RoutineRow
{
    std::int32_t selector;
    const char* name;
    Concerns concerns;
    std::int32_t neutralAnswer;
    std::int32_t (*call) (FicRoutine routine, ArgumentMaker& maker);

    bool isFixed() const { return concerns == Concerns::nobody; }
};

#define ROUTINE_ROW(selector, Name, concerns, answer)                                                        \
    RoutineRow { selector,                                                                                   \
                 #Name,                                                                                      \
                 Concerns::concerns,                                                                         \
                 answer,                                                                                     \
                 [] (FicRoutine routine, ArgumentMaker& maker) {                                             \
                     return callWith (                                                                       \
                         reinterpret_cast<PI_##Name##Proc> (reinterpret_cast<void (*)()> (routine)), maker); \
                 } },
#define GROUP_ROW(selector, Name, ...)           ROUTINE_ROW (selector, Name, group, 0)
#define TYPE_ROW(selector, Name, ...)            ROUTINE_ROW (selector, Name, type, 0)
#define PROCESS_ROW(selector, Name, answer, ...) ROUTINE_ROW (selector, Name, process, answer)
#define FIXED_ROW(selector, Name, ...)           ROUTINE_ROW (selector, Name, nobody, 0)

inline const RoutineRow routineRows[] = { FIC_ROUTINES (GROUP_ROW, TYPE_ROW, PROCESS_ROW, FIXED_ROW) };

#undef ROUTINE_ROW
#undef GROUP_ROW
#undef TYPE_ROW
#undef PROCESS_ROW
#undef FIXED_ROW
