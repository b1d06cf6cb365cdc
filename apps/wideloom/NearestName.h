// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// How near a mistyped name is to a real one.

#pragma once

#include <cstddef>
#include <string_view>

/** How far a typed name is from a real one, without regard to case and white space. One that is a part of the
    other is near. */
std::size_t unlikeness (std::string_view typed, std::string_view name);
