// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Calls of the group as objects: an operation of CProcessGroupInterface with its arguments.

#pragma once

#include "CProcessGroup.h"
#include "HostGlobals.h"

#include <cstdint>
#include <tuple>

/** Applies the operation to gProcessGroup. */
template <typename Operation, typename... Arguments>
class ArgGroupFunc
{
public:
    explicit ArgGroupFunc (Operation operationToApply, Arguments... argumentsToPass)
        : operation (operationToApply),
          arguments (argumentsToPass...)
    {
    }

    /** [host-main] */
    std::int32_t operator()() const
    {
        return std::apply ([this] (Arguments... each) { return (gProcessGroup->*operation) (each...); },
                           arguments);
    }

private:
    Operation operation;
    std::tuple<Arguments...> arguments;
};

template <typename Operation>
using S0ArgGroupFunc = ArgGroupFunc<Operation>;
template <typename Operation, typename A>
using S1ArgGroupFunc = ArgGroupFunc<Operation, A>;
template <typename Operation, typename A, typename B>
using S2ArgGroupFunc = ArgGroupFunc<Operation, A, B>;
template <typename Operation, typename A, typename B, typename C>
using S3ArgGroupFunc = ArgGroupFunc<Operation, A, B, C>;
template <typename Operation, typename A, typename B, typename C, typename D>
using S4ArgGroupFunc = ArgGroupFunc<Operation, A, B, C, D>;
template <typename Operation, typename A, typename B, typename C, typename D, typename E>
using S5ArgGroupFunc = ArgGroupFunc<Operation, A, B, C, D, E>;
template <typename Operation, typename A, typename B, typename C, typename D, typename E, typename F>
using S6ArgGroupFunc = ArgGroupFunc<Operation, A, B, C, D, E, F>;

/** [any] The function object for that many arguments; there is none for more than six. */
template <typename Operation>
auto groupFunc (Operation operation)
{
    return S0ArgGroupFunc<Operation> (operation);
}

template <typename Operation, typename A>
auto groupFunc (Operation operation, A a)
{
    return S1ArgGroupFunc<Operation, A> (operation, a);
}

template <typename Operation, typename A, typename B>
auto groupFunc (Operation operation, A a, B b)
{
    return S2ArgGroupFunc<Operation, A, B> (operation, a, b);
}

template <typename Operation, typename A, typename B, typename C>
auto groupFunc (Operation operation, A a, B b, C c)
{
    return S3ArgGroupFunc<Operation, A, B, C> (operation, a, b, c);
}

template <typename Operation, typename A, typename B, typename C, typename D>
auto groupFunc (Operation operation, A a, B b, C c, D d)
{
    return S4ArgGroupFunc<Operation, A, B, C, D> (operation, a, b, c, d);
}

template <typename Operation, typename A, typename B, typename C, typename D, typename E>
auto groupFunc (Operation operation, A a, B b, C c, D d, E e)
{
    return S5ArgGroupFunc<Operation, A, B, C, D, E> (operation, a, b, c, d, e);
}

template <typename Operation, typename A, typename B, typename C, typename D, typename E, typename F>
auto groupFunc (Operation operation, A a, B b, C c, D d, E e, F f)
{
    return S6ArgGroupFunc<Operation, A, B, C, D, E, F> (operation, a, b, c, d, e, f);
}
