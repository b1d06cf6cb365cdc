// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Keeps the switch that turns all views off.

#include "Views.h"

namespace
{
bool noViews = false;
}

bool platform::NoViews() noexcept
{
    return noViews;
}

void platform::setNoViews (bool none) noexcept
{
    noViews = none;
}
