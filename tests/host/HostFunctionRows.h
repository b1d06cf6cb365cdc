// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// The functions of a fake host in a table, to be looked up as a running program's exports are.

#pragma once

#include <host/platform/HostLibrary.h>

#include <span>
#include <string_view>

struct HostFunctionRow
{
    std::string_view name;
    platform::HostFunction function;
};

/** `Proc` is always named, so that a function that plug-ins would call otherwise does not compile. */
template <typename Proc>
HostFunctionRow hostFunctionRow (std::string_view name, Proc function)
{
    return { name, reinterpret_cast<platform::HostFunction> (function) };
}

/** Null if no row has that name. */
inline platform::HostFunction findIn (std::span<const HostFunctionRow> rows, std::string_view name)
{
    for (const auto& row : rows)
        if (row.name == name)
            return row.function;

    return nullptr;
}
