// SPDX-FileCopyrightText: The WideLoom authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// Takes controls in and hands them out, and throws where there is none.

#include "CPluginControlManager.h"

#include "CDAEError.h"
#include "HostInterface.h"

#include <cstddef>
#include <utility>

void CPluginControlManager::AddControl (CPluginControl* control)
{
    std::unique_ptr<CPluginControl> owned (control);

    if (owned == nullptr)
        throw CDAEError (ficObjectNotMade);

    controls.push_back (std::move (owned));
}

CPluginControl* CPluginControlManager::GetControl (std::int32_t index) const
{
    if (! IsValidControlIndex (index))
        throw CDAEError (ficControlOutOfRange);

    return controls[static_cast<std::size_t> (index - 1)].get();
}
