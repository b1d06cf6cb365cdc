// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later

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
